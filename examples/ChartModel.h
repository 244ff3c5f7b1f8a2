// The gallery's technical chart as data: axes chosen by the nice-number
// rules, sample points with their least-squares line, a long measured trace
// and the frame that maps it onto the page. The chart page draws it through
// the drawing tool; the chart benchmark draws the same data with raw GDI.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

/// One axis in data units: [min, max] in `divisions` steps of `step`, with
/// minor ticks every `minorStep`.
struct ChartAxis {
    double min = 0.0;
    double max = 0.0;
    double step = 0.0;
    double minorStep = 0.0;
    int divisions = 0;
    std::vector<std::string> labels;  ///< the major ticks' texts: "0", "2.5", "45"
};

/// The chart in data units (time in s, force in kN), its virtual units
/// (data times kUnitsPerValue, the drawing tool takes integer coordinates)
/// and the page layout in pixels.
struct ChartModel {
    static constexpr int kWidth = 1000;   ///< page width, pixels
    static constexpr int kHeight = 700;   ///< page height, pixels
    static constexpr int kPlotLeft = 110; ///< plot frame, pixels
    static constexpr int kPlotTop = 70;
    static constexpr int kPlotRight = 960;
    static constexpr int kPlotBottom = 610;
    static constexpr int kUnitsPerValue = 100;  ///< virtual units per data unit
    static constexpr int kTracePoints = 100000;

    ChartAxis x;  ///< time, s
    ChartAxis y;  ///< force, kN
    std::vector<double> sampleX, sampleY;  ///< the samples, data units
    double slope = 0.0;                    ///< least-squares line, kN per s
    double intercept = 0.0;                ///< kN
    std::vector<POINT> trace;              ///< the measured trace, virtual units
    std::string legend[3];                 ///< samples, fitted line, trace

    /// Pixels per virtual unit along x and y (both positive; y points up on
    /// the page) and the device offsets that put (x.min, y.min) on the
    /// plot's lower-left corner when the viewport origin is there.
    double scaleX = 0.0;
    double scaleY = 0.0;
    double offsetX = 0.0;
    double offsetY = 0.0;

    /// A data value in virtual units.
    static int Virtual(double value);
};

/// Builds the chart: deterministic samples and trace, NiceAxis for time
/// (5 divisions), NiceRange for force, FitLine through the samples.
ChartModel MakeChartModel();
