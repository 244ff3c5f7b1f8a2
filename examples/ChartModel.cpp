#include "ChartModel.h"

#include "support/numeric/AxisScaling.h"
#include "support/numeric/Fitting.h"
#include "support/text/NumberText.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSamples = 40;
constexpr double kDuration = 46.0;  // s

// The force a slowly loaded specimen shows: a linear rise, a settling
// oscillation and a fine ripple from the test rig.
double Force(double t)
{
    return 0.85 * t + 4.0 + 6.0 * std::sin(t * 1.3) * std::exp(-t / 12.0) + 0.5 * std::sin(t * 41.0);
}

// A fixed, repeatable scatter in [-1, 1] (no random generator: the pages
// must look the same on every run).
double Scatter(int i)
{
    return std::sin(i * 12.9898 + 78.233) * 0.5 + std::sin(i * 4.1414) * 0.5;
}

} // namespace

int ChartModel::Virtual(double value)
{
    return static_cast<int>(std::lround(value * kUnitsPerValue));
}

ChartModel MakeChartModel()
{
    ChartModel chart;

    chart.trace.reserve(ChartModel::kTracePoints);
    double low = Force(0.0), high = low;
    for (int i = 0; i < ChartModel::kTracePoints; ++i) {
        const double t = kDuration * i / (ChartModel::kTracePoints - 1);
        const double f = Force(t);
        low = std::min(low, f);
        high = std::max(high, f);
        chart.trace.push_back(POINT{ChartModel::Virtual(t), ChartModel::Virtual(f)});
    }
    for (int i = 0; i < kSamples; ++i) {
        const double t = 1.0 + (kDuration - 2.0) * i / (kSamples - 1);
        chart.sampleX.push_back(t);
        chart.sampleY.push_back(0.85 * t + 4.0 + 3.0 * Scatter(i));
        low = std::min(low, chart.sampleY.back());
        high = std::max(high, chart.sampleY.back());
    }
    FitLine(chart.sampleX, chart.sampleY, chart.slope, chart.intercept);

    // Time: five divisions from zero; force: a 1-2-5 step around all values.
    chart.x.min = 0.0;
    chart.x.max = kDuration;
    chart.x.divisions = 5;
    NiceAxis(chart.x.divisions, chart.x.min, chart.x.max, chart.x.step, 0);
    chart.x.minorStep = chart.x.step / 5.0;
    chart.y.min = low;
    chart.y.max = high;
    chart.y.step = NiceRange(chart.y.min, chart.y.max);
    chart.y.divisions = static_cast<int>(std::lround((chart.y.max - chart.y.min) / chart.y.step));
    chart.y.minorStep = chart.y.step / 5.0;

    for (ChartAxis* axis : {&chart.x, &chart.y})
        for (int i = 0; i <= axis->divisions; ++i)
            axis->labels.push_back(FormatDouble(axis->min + i * axis->step, 3, true).GetString());
    chart.legend[0] = std::to_string(chart.sampleX.size()) + " samples";
    chart.legend[1] = std::string("least-squares line  f = ") + FormatDouble(chart.slope, 3, true).GetString() +
                      " t + " + FormatDouble(chart.intercept, 3, true).GetString();
    chart.legend[2] = "measured force, " + std::to_string(chart.trace.size()) + " points";

    chart.scaleX = (ChartModel::kPlotRight - ChartModel::kPlotLeft) /
                   ((chart.x.max - chart.x.min) * ChartModel::kUnitsPerValue);
    chart.scaleY = (ChartModel::kPlotBottom - ChartModel::kPlotTop) /
                   ((chart.y.max - chart.y.min) * ChartModel::kUnitsPerValue);
    chart.offsetX = -chart.x.min * ChartModel::kUnitsPerValue * chart.scaleX;
    chart.offsetY = chart.y.min * ChartModel::kUnitsPerValue * chart.scaleY;
    return chart;
}
