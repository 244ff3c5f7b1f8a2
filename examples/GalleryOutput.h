// Where the gallery writes: its output folder, the names of its files, the
// chart's parameters as a namelist and the log of its steps.
#pragma once

#include "ChartModel.h"

#include <string>

class GalleryOutput {
public:
    /// Makes `folder` with every missing level and starts the log
    /// gallery.log in it (emptied first unless `keep`).
    GalleryOutput(const std::string& folder, bool keep);
    bool Ready() const { return m_ready; }
    /// The path to write `name` to: folder\name, or with `keep` the next
    /// name not yet used in the folder.
    std::string FileName(const std::string& name) const;
    const std::string& LogName() const { return m_logName; }
    /// One line in the log, from the source "GALLERY" with `code`.
    void Log(int code, const char* format, ...) const;

private:
    std::string m_folder;
    std::string m_logName;
    bool m_keep;
    bool m_ready;
};

/// Writes the chart's axes, fit and sample count as the namelist group
/// &CHART to `path`; false when the file cannot be written.
bool WriteChartParameters(const std::string& path, const ChartModel& chart);
