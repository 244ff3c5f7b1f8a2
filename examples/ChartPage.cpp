// Page 1: the technical chart, drawn in a y-up frame whose virtual units are
// hundredths of a second and of a kilonewton.
#include "GalleryPages.h"

#include <algorithm>
#include <cmath>

namespace {

const char kFace[] = "Liberation Sans";
const COLORREF kGrid = RGB(222, 222, 222);
const COLORREF kTrace = RGB(40, 110, 200);
const COLORREF kFit = RGB(200, 30, 30);
const COLORREF kSample = RGB(255, 170, 40);

// Positions given in pixels from the plot's lower-left corner, as virtual
// units of the chart's frame.
struct PlotPixels {
    const ChartModel& chart;
    int X(double px) const { return ChartModel::Virtual(chart.x.min) + Dx(px); }
    int Y(double px) const { return ChartModel::Virtual(chart.y.min) + Dy(px); }
    // A distance of `px` pixels along x or y in virtual units.
    int Dx(double px) const { return static_cast<int>(std::lround(px / chart.scaleX)); }
    int Dy(double px) const { return static_cast<int>(std::lround(px / chart.scaleY)); }
};

void DrawGrid(CMoruDrawTool& tool, const ChartModel& chart)
{
    const int left = ChartModel::Virtual(chart.x.min), right = ChartModel::Virtual(chart.x.max);
    const int bottom = ChartModel::Virtual(chart.y.min), top = ChartModel::Virtual(chart.y.max);
    tool.SetPen(PS_SOLID, 1, kGrid);
    for (int i = 1; i < chart.x.divisions; ++i) {
        const int x = ChartModel::Virtual(chart.x.min + i * chart.x.step);
        tool.MoveTo(x, bottom);
        tool.LineTo(x, top);
    }
    for (int i = 1; i < chart.y.divisions; ++i) {
        const int y = ChartModel::Virtual(chart.y.min + i * chart.y.step);
        tool.MoveTo(left, y);
        tool.LineTo(right, y);
    }
}

// Frame, major and minor ticks outside the frame, and the labels: centred
// under the time ticks, right-aligned and centred on the force ticks.
void DrawAxes(CMoruDrawTool& tool, const ChartModel& chart, const PlotPixels& px)
{
    const int left = ChartModel::Virtual(chart.x.min), right = ChartModel::Virtual(chart.x.max);
    const int bottom = ChartModel::Virtual(chart.y.min), top = ChartModel::Virtual(chart.y.max);
    // The frame as a closed polyline, so that its edges lie on the axis
    // values themselves (Rectangle leaves out its right and bottom edges).
    POINT frame[5] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}, {left, bottom}};
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool.Polyline(frame, 5);

    // DrawTick lengths are pixels (ScaleFact 1): positive goes down or right.
    const int minorPerMajor = static_cast<int>(std::lround(chart.x.step / chart.x.minorStep));
    for (int i = 0; i <= chart.x.divisions * minorPerMajor; ++i)
        tool.DrawTick(ChartModel::Virtual(chart.x.min + i * chart.x.minorStep), bottom, i % minorPerMajor ? 4 : 8, 0);
    const int minorPerMajorY = static_cast<int>(std::lround(chart.y.step / chart.y.minorStep));
    for (int i = 0; i <= chart.y.divisions * minorPerMajorY; ++i)
        tool.DrawTick(left, ChartModel::Virtual(chart.y.min + i * chart.y.minorStep), i % minorPerMajorY ? -4 : -8, 1);

    tool.SetFont1A(15, 0.0, kFace, 0.0);
    tool.SetTextAlignEx(TA_CENTER | TA_TOP);
    for (int i = 0; i <= chart.x.divisions; ++i) {
        const int x = ChartModel::Virtual(chart.x.min + i * chart.x.step);
        tool.TextOutA(x, bottom - px.Dy(12), chart.x.labels[i].c_str());
    }

    // The tool's vertical centring shifts top-aligned text down by half its
    // height, which centres it on DCs whose y axis points up. This page is
    // a pixel DC (y down), so each label's reference is raised by the full
    // text height to land its centre on the tick.
    const double textHeight = tool.GetTextHeightA("0");
    tool.SetTextAlignEx(TA_RIGHT | TA_BASELINE);
    for (int i = 0; i <= chart.y.divisions; ++i)
        tool.TextOutA(left - px.Dx(13), ChartModel::Virtual(chart.y.min + i * chart.y.step) + px.Dy(textHeight),
                      chart.y.labels[i].c_str());

    tool.SetFont1A(17, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_CENTER | TA_TOP);
    tool.TextOutA((left + right) / 2, bottom - px.Dy(34), "time [s]");
    tool.SetFont1A(17, 90.0, kFace, 90.0);  // reads upward
    tool.TextOutA(left - px.Dx(92), (bottom + top) / 2, "force [kN]");

    tool.SetFontWeight(FW_BOLD);
    tool.SetFont1A(21, 0.0, kFace, 0.0);
    tool.SetFontWeight(0);
    tool.SetTextAlign(TA_LEFT | TA_BOTTOM);
    tool.TextOutA(left, top + px.Dy(16), "Load test: measured force, samples and their least-squares line");
}

void DrawData(CMoruDrawTool& tool, const ChartModel& chart)
{
    tool.SetPen(PS_SOLID, 1, kTrace);
    // Polyline only reads the points; the tool draws the 100,000 in runs.
    tool.Polyline(const_cast<POINT*>(chart.trace.data()), static_cast<int>(chart.trace.size()));

    // The fitted line across the plot, ending where it leaves the frame.
    double end = chart.x.max;
    if (chart.slope > 0.0)
        end = std::min(end, (chart.y.max - chart.intercept) / chart.slope);
    tool.SetPen(PS_SOLID, 2, kFit);
    tool.MoveTo(ChartModel::Virtual(chart.x.min), ChartModel::Virtual(chart.intercept + chart.slope * chart.x.min));
    tool.LineTo(ChartModel::Virtual(end), ChartModel::Virtual(chart.intercept + chart.slope * end));

    tool.SetPen(PS_SOLID, 1, RGB(120, 60, 0));
    tool.SetBrush(BS_SOLID, kSample, 0);
    for (size_t i = 0; i < chart.sampleX.size(); ++i)
        tool.Circle(ChartModel::Virtual(chart.sampleX[i]), ChartModel::Virtual(chart.sampleY[i]), 4);  // 4 pixels
}

void DrawLegend(CMoruDrawTool& tool, const ChartModel& chart, const PlotPixels& px)
{
    const double plotHeight = ChartModel::kPlotBottom - ChartModel::kPlotTop;
    const double top = plotHeight - 14, rowHeight = 26;
    tool.SetPen(PS_SOLID, 1, RGB(90, 90, 90));
    tool.SetBrush(BS_SOLID, RGB(255, 255, 255), 0);
    tool.Rectangle(px.X(14), px.Y(top), px.X(14 + 330), px.Y(top - 3 * rowHeight - 10));

    tool.SetFont1A(15, 0.0, kFace, 0.0);
    const double textHeight = tool.GetTextHeightA("0");
    tool.SetTextAlignEx(TA_LEFT | TA_BASELINE);
    for (int row = 0; row < 3; ++row) {
        const double y = top - 5 - rowHeight * (row + 0.5);
        if (row == 0) {
            tool.SetPen(PS_SOLID, 1, RGB(120, 60, 0));
            tool.SetBrush(BS_SOLID, kSample, 0);
            tool.Circle(px.X(41), px.Y(y), 4);
        } else {
            tool.SetPen(PS_SOLID, row == 1 ? 2 : 1, row == 1 ? kFit : kTrace);
            tool.MoveTo(px.X(26), px.Y(y));
            tool.LineTo(px.X(56), px.Y(y));
        }
        tool.TextOutA(px.X(68), px.Y(y + textHeight), chart.legend[row].c_str());
    }
}

} // namespace

void DrawChartPage(CDC& dc, const ChartModel& chart)
{
    CMoruDrawTool* tool = CreateDrawTool(nullptr, &dc);
    if (!tool)
        return;
    // The viewport origin sits on the plot's lower-left corner; mode 1 turns
    // the y axis up by negating ScaleFactY, and the offsets are set after it
    // so that (x.min, y.min) lands on the origin.
    tool->SetOrgX(ChartModel::kPlotLeft);
    tool->SetOrgY(ChartModel::kPlotBottom);
    tool->SetScaleFact(1.0);  // fonts, tick lengths and circle radii in pixels
    tool->SetScaleFactX(chart.scaleX);
    tool->SetScaleFactY(chart.scaleY);
    RECT area = {0, 0, ChartModel::kWidth, ChartModel::kHeight};
    tool->Initialize(&area, 1);
    tool->SetOffsetX(chart.offsetX);
    tool->SetOffsetY(chart.offsetY);

    const PlotPixels px{chart};
    DrawGrid(*tool, chart);
    DrawData(*tool, chart);
    DrawAxes(*tool, chart, px);
    DrawLegend(*tool, chart, px);
    tool->Finalize();
    DestroyDrawTool(tool);
}
