// The gallery host run as a user runs it: its files, what it prints, and
// pixels of its pages that must be ink or paper. Expected positions are
// written down from the pages' layouts (pixels), not computed by their code.
#include "common/DibCanvas.h"

#include <wincodec.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct GalleryRun {
    DWORD exitCode = 0;
    std::string output;
};

// Runs bin\gallery.exe (beside this program) with `arguments`, its output
// read through a pipe, for at most two minutes.
GalleryRun RunGallery(const std::string& arguments)
{
    char self[MAX_PATH];
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string exe = (fs::path(self).parent_path() / "gallery.exe").string();
    SECURITY_ATTRIBUTES inherit = {sizeof inherit, nullptr, TRUE};
    HANDLE readEnd = nullptr, writeEnd = nullptr;
    GalleryRun run;
    run.exitCode = 0xFFFFFFFF;
    if (!::CreatePipe(&readEnd, &writeEnd, &inherit, 0))
        return run;
    ::SetHandleInformation(readEnd, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = writeEnd;
    startup.hStdError = writeEnd;
    startup.hStdInput = ::GetStdHandle(STD_INPUT_HANDLE);
    PROCESS_INFORMATION process = {};
    std::string commandLine = "\"" + exe + "\" " + arguments;
    const BOOL started = ::CreateProcessA(exe.c_str(), &commandLine[0], nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                          &startup, &process);
    ::CloseHandle(writeEnd);
    if (started) {
        char buffer[4096];
        DWORD got = 0;
        while (::ReadFile(readEnd, buffer, sizeof buffer, &got, nullptr) && got > 0)
            run.output.append(buffer, got);
        ::WaitForSingleObject(process.hProcess, 120000);
        ::GetExitCodeProcess(process.hProcess, &run.exitCode);
        ::CloseHandle(process.hThread);
        ::CloseHandle(process.hProcess);
    }
    ::CloseHandle(readEnd);
    return run;
}

// A PNG decoded by the Windows Imaging Component into 32-bit BGRX rows.
struct Picture {
    UINT width = 0, height = 0;
    std::vector<DWORD> pixels;
    COLORREF At(int x, int y) const
    {
        const DWORD p = pixels.at(static_cast<size_t>(y) * width + x);
        return RGB((p >> 16) & 0xFF, (p >> 8) & 0xFF, p & 0xFF);
    }
};

bool DecodePng(const std::string& path, Picture& picture)
{
    IWICImagingFactory* factory = nullptr;
    IWICBitmapDecoder* decoder = nullptr;
    IWICBitmapFrameDecode* frame = nullptr;
    IWICFormatConverter* converter = nullptr;
    const std::wstring widePath(path.begin(), path.end());
    bool decoded =
        SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                     reinterpret_cast<void**>(&factory))) &&
        SUCCEEDED(factory->CreateDecoderFromFilename(widePath.c_str(), nullptr, GENERIC_READ,
                                                     WICDecodeMetadataCacheOnDemand, &decoder)) &&
        SUCCEEDED(decoder->GetFrame(0, &frame)) && SUCCEEDED(frame->GetSize(&picture.width, &picture.height)) &&
        SUCCEEDED(factory->CreateFormatConverter(&converter)) &&
        SUCCEEDED(converter->Initialize(frame, GUID_WICPixelFormat32bppBGR, WICBitmapDitherTypeNone, nullptr, 0.0,
                                        WICBitmapPaletteTypeCustom));
    if (decoded) {
        picture.pixels.resize(static_cast<size_t>(picture.width) * picture.height);
        decoded = SUCCEEDED(converter->CopyPixels(nullptr, picture.width * 4,
                                                  static_cast<UINT>(picture.pixels.size() * 4),
                                                  reinterpret_cast<BYTE*>(picture.pixels.data())));
    }
    for (IUnknown* object : {static_cast<IUnknown*>(converter), static_cast<IUnknown*>(frame),
                             static_cast<IUnknown*>(decoder), static_cast<IUnknown*>(factory)})
        if (object)
            object->Release();
    return decoded;
}

std::string ReadText(const fs::path& path)
{
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

struct PageSize {
    const char* name;
    int width, height;
};
const PageSize kPages[] = {{"chart", 1000, 700}, {"shapes", 1000, 760}, {"map", 900, 760}};

const COLORREF kPaper = RGB(255, 255, 255);

// Pixels that the layouts fix, one per line: page, x, y, colour, what.
struct Probe {
    const char* page;
    int x, y;
    COLORREF color;
    const char* what;
};
const Probe kProbes[] = {
    {"chart", 110, 300, RGB(0, 0, 0), "the force axis, on the plot's left edge"},
    {"chart", 500, 610, RGB(0, 0, 0), "the time axis, on the plot's bottom edge"},
    {"chart", 110, 614, RGB(0, 0, 0), "the first time tick, below the axis"},
    {"chart", 900, 400, kPaper, "the plot's lower right, where no data runs"},
    {"chart", 990, 350, kPaper, "the right margin"},
    {"chart", 60, 100, kPaper, "the left margin above the axis title"},
    {"shapes", 115, 185, RGB(0, 0, 0), "the tip of arrow style 10 (head lines meet there)"},
    {"shapes", 45, 185, RGB(0, 0, 0), "the start of arrow style 10"},
    {"shapes", 119, 185, kPaper, "just beyond that tip"},
    // Circle(33, 120, 36) under x scale 2: the box [375, 447) x [144, 216),
    // its 2-pixel rim on the box's edge pixels whatever the axes' scales.
    {"shapes", 411, 144, RGB(200, 40, 40), "Circle's rim, top"},
    {"shapes", 411, 215, RGB(200, 40, 40), "Circle's rim, bottom"},
    {"shapes", 375, 180, RGB(200, 40, 40), "Circle's rim, left"},
    {"shapes", 446, 180, RGB(200, 40, 40), "Circle's rim, right"},
    {"shapes", 411, 180, RGB(255, 225, 225), "Circle's fill, centre"},
    {"shapes", 411, 141, kPaper, "above Circle's rim"},
    {"shapes", 411, 218, kPaper, "below Circle's rim"},
    {"shapes", 372, 180, kPaper, "left of Circle's rim"},
    {"map", 480, 375, RGB(200, 40, 40), "the reference marker at the map's centre"},
    {"map", 880, 375, kPaper, "right of the map's frame"},
};

class Gallery : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        s_folder = fs::temp_directory_path() / "gallery_tests";
        fs::remove_all(s_folder);
        s_run = RunGallery("\"" + (s_folder / "pages").string() + "\"");
    }
    static fs::path Page(const char* name, const char* extension)
    {
        return s_folder / "pages" / (std::string(name) + extension);
    }
    static fs::path s_folder;
    static GalleryRun s_run;
};
fs::path Gallery::s_folder;
GalleryRun Gallery::s_run;

TEST_F(Gallery, MakesItsNestedFolderAndPrintsOneLinePerPageWithWhereItWrote)
{
    ASSERT_EQ(s_run.exitCode, 0u) << "gallery output:\n" << s_run.output;
    std::istringstream lines(s_run.output);
    std::string line;
    int count = 0;
    for (; std::getline(lines, line); ++count) {
        if (count < 3) {
            EXPECT_NE(line.find("wrote " + Page(kPages[count].name, ".png").string()), std::string::npos)
                << "line " << count + 1 << ": " << line;
            EXPECT_NE(line.find(Page(kPages[count].name, ".emf").string()), std::string::npos) << line;
        }
    }
    EXPECT_EQ(count, 4) << "lines printed:\n" << s_run.output;
}

TEST_F(Gallery, EveryPageIsAPngOfItsSizeAndAnEmfThatPlaysBack)
{
    for (const PageSize& page : kPages) {
        Picture picture;
        ASSERT_TRUE(DecodePng(Page(page.name, ".png").string(), picture)) << page.name << ".png does not decode";
        EXPECT_EQ(picture.width, static_cast<UINT>(page.width)) << page.name;
        EXPECT_EQ(picture.height, static_cast<UINT>(page.height)) << page.name;

        HENHMETAFILE emf = ::GetEnhMetaFileA(Page(page.name, ".emf").string().c_str());
        ASSERT_NE(emf, nullptr) << page.name << ".emf does not open";
        DibCanvas canvas(page.width, page.height, RGB(0, 0, 255));
        const RECT all = {0, 0, page.width, page.height};
        EXPECT_TRUE(::PlayEnhMetaFile(canvas.Dc().m_hDC, emf, &all)) << page.name << ".emf does not play back";
        ::GdiFlush();
        // The recording clears its page white and draws on it: the blue
        // canvas is covered, and some ink is left.
        const int pixels = page.width * page.height;
        EXPECT_LT(canvas.CountPixels(RGB(0, 0, 255)), pixels / 100) << page.name << ".emf leaves the canvas showing";
        EXPECT_GT(pixels - canvas.CountPixels(kPaper), pixels / 100) << page.name << ".emf draws almost nothing";
        ::DeleteEnhMetaFile(emf);
    }
}

TEST_F(Gallery, InkAndPaperWhereTheLayoutPutsThemInThePngAndTheEmf)
{
    for (const PageSize& page : kPages) {
        Picture picture;
        ASSERT_TRUE(DecodePng(Page(page.name, ".png").string(), picture)) << page.name;
        HENHMETAFILE emf = ::GetEnhMetaFileA(Page(page.name, ".emf").string().c_str());
        ASSERT_NE(emf, nullptr) << page.name;
        DibCanvas canvas(page.width, page.height);
        const RECT all = {0, 0, page.width, page.height};
        ::PlayEnhMetaFile(canvas.Dc().m_hDC, emf, &all);
        ::GdiFlush();
        ::DeleteEnhMetaFile(emf);
        for (const Probe& probe : kProbes) {
            if (std::string(probe.page) != page.name)
                continue;
            const COLORREF png = picture.At(probe.x, probe.y);
            EXPECT_EQ(png, probe.color) << page.name << ".png (" << probe.x << ", " << probe.y << "), " << probe.what
                                        << ": expected 0x" << std::hex << probe.color << ", got 0x" << png;
            // The metafile's frame is kept in hundredths of a millimetre of
            // the reference screen, so playback may scale the page by a
            // fraction of a pixel: the colour must appear within one pixel.
            const int nearby = canvas.CountPixels(probe.color, probe.x - 1, probe.y - 1, probe.x + 2, probe.y + 2);
            EXPECT_GT(nearby, 0) << page.name << ".emf played back: no 0x" << std::hex << probe.color << std::dec
                               << " within a pixel of (" << probe.x << ", " << probe.y << "), " << probe.what
                               << "; got 0x" << std::hex << canvas.Pixel(probe.x, probe.y) << " there";
        }
    }
}

TEST_F(Gallery, WritesTheChartParametersAsANamelistAndLogsEachPage)
{
    const std::string namelist = ReadText(s_folder / "pages" / "chart.nml");
    for (const char* line : {"\n&CHART\t! time in s, force in kN\n", "\nTSTEP = 10.0,\t! NiceAxis, 5 divisions\n",
                             "\nNTRACE = 100000,\t! polyline points\n", "\n/\n"})
        EXPECT_NE(namelist.find(line), std::string::npos)
            << "missing \"" << line << "\" in chart.nml:\n" << namelist;
    const std::string log = ReadText(s_folder / "pages" / "gallery.log");
    for (const char* entry : {"GALLERY(1):wrote ", "GALLERY(2):wrote ", "GALLERY(3):wrote ", "GALLERY(4):wrote "})
        EXPECT_NE(log.find(entry), std::string::npos) << "missing \"" << entry << "\" in gallery.log:\n" << log;
}

// Runs last: it adds files to the folder the other tests read.
TEST_F(Gallery, KeepWritesUnderTheNextFreeNamesAndLeavesEarlierFilesAlone)
{
    const fs::file_time_type written = fs::last_write_time(Page("chart", ".png"));
    const std::string before = ReadText(s_folder / "pages" / "gallery.log");
    const GalleryRun again = RunGallery("--keep \"" + (s_folder / "pages").string() + "\"");
    ASSERT_EQ(again.exitCode, 0u) << "gallery --keep output:\n" << again.output;
    for (const char* name : {"chart1.png", "chart1.emf", "shapes1.png", "shapes1.emf", "map1.png", "map1.emf",
                             "chart1.nml", "gallery1.log"}) {
        EXPECT_TRUE(fs::exists(s_folder / "pages" / name)) << name << " missing after --keep; output:\n" << again.output;
        EXPECT_NE(again.output.find(name), std::string::npos) << name << " not printed:\n" << again.output;
    }
    EXPECT_TRUE(fs::last_write_time(Page("chart", ".png")) == written) << "chart.png was written again";
    EXPECT_EQ(ReadText(s_folder / "pages" / "gallery.log"), before) << "gallery.log changed";
}

} // namespace
