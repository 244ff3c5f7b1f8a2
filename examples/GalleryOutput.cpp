#include "GalleryOutput.h"

#include "support/system/DirectoryListing.h"
#include "support/system/DirectoryTree.h"
#include "support/text/LogWriter.h"
#include "support/text/Namelist.h"

#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <vector>

GalleryOutput::GalleryOutput(const std::string& folder, bool keep) : m_folder(folder), m_keep(keep)
{
    for (char& c : m_folder)
        if (c == '/')
            c = '\\';
    while (m_folder.size() > 1 && m_folder.back() == '\\')
        m_folder.pop_back();
    // MakeDirTree makes the directory part of a path: the trailing
    // backslash makes the folder itself part of it.
    m_ready = MakeDirTree((m_folder + "\\").c_str()) == 1;
    m_logName = FileName("gallery.log");
    SetLogFileName(m_logName.c_str());
    if (!keep)
        DeleteLogFile();
    Log(0, "gallery started in %s, %s\n", m_folder.c_str(),
        keep ? "keeping earlier files" : "replacing earlier files");
}

std::string GalleryOutput::FileName(const std::string& name) const
{
    if (!m_keep)
        return m_folder + "\\" + name;
    return m_folder + "\\" + NextFreeFileName(m_folder.c_str(), name.c_str()).GetString();
}

void GalleryOutput::Log(int code, const char* format, ...) const
{
    char message[1024];
    va_list args;
    va_start(args, format);
    std::vsnprintf(message, sizeof message, format, args);
    va_end(args);
    LogWrite("GALLERY", code, "%s", message);
}

bool WriteChartParameters(const std::string& path, const ChartModel& chart)
{
    CStdioFile file;
    if (!file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText))
        return false;
    try {
        WriteNamelistComment(file, " The gallery's chart: axes, least-squares line and data sizes");
        WriteNamelistGroup(file, "CHART", "time in s, force in kN");
        WriteNamelistString(file, "TITLE", "Load test", "", 1);
        WriteNamelistDouble(file, "TMIN", chart.x.min, "");
        WriteNamelistDouble(file, "TMAX", chart.x.max, "");
        WriteNamelistDouble(file, "TSTEP", chart.x.step, "NiceAxis, 5 divisions");
        WriteNamelistDouble(file, "FMIN", chart.y.min, "");
        WriteNamelistDouble(file, "FMAX", chart.y.max, "");
        WriteNamelistDouble(file, "FSTEP", chart.y.step, "NiceRange");
        std::vector<CString> ticks;
        for (const std::string& label : chart.y.labels)
            ticks.push_back(label.c_str());
        WriteNamelistArray(file, "FTICKS", ticks, "labelled force ticks", 5, 0);
        WriteNamelistDouble(file, "SLOPE", chart.slope, "FitLine, kN per s");
        WriteNamelistDouble(file, "INTERCEPT", chart.intercept, "FitLine, kN");
        WriteNamelistInt(file, "NSAMPLES", static_cast<int>(chart.sampleX.size()), "");
        WriteNamelistInt(file, "NTRACE", static_cast<int>(chart.trace.size()), "polyline points");
        WriteNamelistBool(file, "YUP", true, "Initialize mode 1");
        WriteNamelistEnd(file);
        file.Close();
    } catch (CFileException* error) {
        error->Delete();
        return false;
    }
    return true;
}
