// What the drawing tool costs a whole page: the gallery's chart drawn
// through the tool against the same chart drawn with raw GDI calls, points
// mapped beforehand, the same pens, brushes and fonts created in the same
// order, into the same 32-bit DIB. Target: tool / raw <= 1.05. It also
// times the 100,000-point trace alone, the part where the two differ most.
#include "ChartModel.h"
#include "GalleryPages.h"
#include "drawtool/Mapping.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kRepeats = 25;
const char kFace[] = "Liberation Sans";

using Clock = std::chrono::steady_clock;

// Everything the raw page draws, in device units relative to the viewport
// origin, mapped once before timing.
struct MappedChart {
    std::vector<POINT> gridX, gridY;  // pairs of end points
    std::vector<POINT> trace;
    POINT fit[2];
    std::vector<RECT> samples;
    POINT frame[5];
    std::vector<POINT> ticks;  // pairs of end points
    std::vector<POINT> xLabelAt, yLabelAt;
    POINT xTitle, yTitle, title;
    RECT legend;
    POINT legendMarker;
    POINT legendLines[2][2];
    POINT legendTextAt[3];
    int textShift = 0;  // the tool's vertical centring of text
};

// The chart frame the tool works in after Initialize mode 1.
CoordinateFrame Frame(const ChartModel& chart)
{
    CoordinateFrame frame;
    frame.scaleFact = 1.0;
    frame.scaleFactX = chart.scaleX;
    frame.scaleFactY = -chart.scaleY;
    frame.offsetX = chart.offsetX;
    frame.offsetY = chart.offsetY;
    return frame;
}

HFONT Font(int height, int angleTenths, int weight, const char* face = kFace)
{
    return ::CreateFontA(height, 0, angleTenths, angleTenths, weight, 0, 0, 0, SHIFTJIS_CHARSET, OUT_TT_PRECIS,
                         CLIP_LH_ANGLES, DEFAULT_QUALITY, 0, face);
}

// The cell height of `text` in a 15-pixel font.
int TextHeight(HDC hdc, const char* text)
{
    HFONT font = Font(15, 0, 0);
    HGDIOBJ old = ::SelectObject(hdc, font);
    SIZE size = {};
    ::GetTextExtentPoint32A(hdc, text, static_cast<int>(std::char_traits<char>::length(text)), &size);
    ::SelectObject(hdc, old);
    ::DeleteObject(font);
    return size.cy;
}

MappedChart Map(const ChartModel& chart, HDC hdc)
{
    const CoordinateFrame f = Frame(chart);
    MappedChart m;
    auto V = ChartModel::Virtual;
    auto P = [&f](int x, int y) { return MapPoint(f, POINT{x, y}); };
    auto T = [&f](int x, int y) { return POINT{MapHalfAwayX(f, x), MapHalfAwayY(f, y)}; };
    const int left = V(chart.x.min), right = V(chart.x.max), bottom = V(chart.y.min), top = V(chart.y.max);
    auto Dx = [&](double px) { return static_cast<int>(std::lround(px / chart.scaleX)); };
    auto Dy = [&](double px) { return static_cast<int>(std::lround(px / chart.scaleY)); };
    auto PX = [&](double px) { return left + Dx(px); };
    auto PY = [&](double px) { return bottom + Dy(px); };

    for (int i = 1; i < chart.x.divisions; ++i) {
        const int x = V(chart.x.min + i * chart.x.step);
        m.gridX.push_back(P(x, bottom));
        m.gridX.push_back(P(x, top));
    }
    for (int i = 1; i < chart.y.divisions; ++i) {
        const int y = V(chart.y.min + i * chart.y.step);
        m.gridY.push_back(P(left, y));
        m.gridY.push_back(P(right, y));
    }
    m.trace.resize(chart.trace.size());
    MapPoints(f, chart.trace.data(), static_cast<int>(chart.trace.size()), m.trace.data());
    const double end = std::min(chart.x.max, (chart.y.max - chart.intercept) / chart.slope);
    m.fit[0] = P(V(chart.x.min), V(chart.intercept + chart.slope * chart.x.min));
    m.fit[1] = P(V(end), V(chart.intercept + chart.slope * end));
    for (size_t i = 0; i < chart.sampleX.size(); ++i) {
        const int x = MapX(f, V(chart.sampleX[i])), y = MapY(f, V(chart.sampleY[i]));
        m.samples.push_back(RECT{x - 4, y - 4, x + 4, y + 4});
    }
    const POINT corners[5] = {{left, bottom}, {right, bottom}, {right, top}, {left, top}, {left, bottom}};
    for (int i = 0; i < 5; ++i)
        m.frame[i] = P(corners[i].x, corners[i].y);
    const int minorX = static_cast<int>(std::lround(chart.x.step / chart.x.minorStep));
    for (int i = 0; i <= chart.x.divisions * minorX; ++i) {
        const POINT start = T(V(chart.x.min + i * chart.x.minorStep), bottom);
        m.ticks.push_back(start);
        m.ticks.push_back(POINT{start.x, start.y + (i % minorX ? 4 : 8)});
    }
    const int minorY = static_cast<int>(std::lround(chart.y.step / chart.y.minorStep));
    for (int i = 0; i <= chart.y.divisions * minorY; ++i) {
        const POINT start = T(left, V(chart.y.min + i * chart.y.minorStep));
        m.ticks.push_back(start);
        m.ticks.push_back(POINT{start.x - (i % minorY ? 4 : 8), start.y});
    }
    // The tool's vertical centring shifts by half the height of "dummy";
    // the page raises its labels by the height of "0".
    m.textShift = RoundHalfAway(TextHeight(hdc, "dummy") * 0.5);
    const int textHeight = TextHeight(hdc, "0");
    for (int i = 0; i <= chart.x.divisions; ++i) {
        m.xLabelAt.push_back(T(V(chart.x.min + i * chart.x.step), bottom - Dy(12)));
    }
    for (int i = 0; i <= chart.y.divisions; ++i) {
        POINT at = T(left - Dx(13), V(chart.y.min + i * chart.y.step) + Dy(textHeight));
        at.y += m.textShift;
        m.yLabelAt.push_back(at);
    }
    m.xTitle = T((left + right) / 2, bottom - Dy(34));
    m.yTitle = T(left - Dx(92), (bottom + top) / 2);
    m.title = T(left, top + Dy(16));

    const double plotHeight = ChartModel::kPlotBottom - ChartModel::kPlotTop, legendTop = plotHeight - 14, row = 26;
    m.legend = RECT{MapX(f, PX(14)), MapY(f, PY(legendTop)), MapX(f, PX(344)), MapY(f, PY(legendTop - 3 * row - 10))};
    for (int r = 0; r < 3; ++r) {
        const double y = legendTop - 5 - row * (r + 0.5);
        if (r == 0)
            m.legendMarker = P(PX(41), PY(y));
        else {
            m.legendLines[r - 1][0] = P(PX(26), PY(y));
            m.legendLines[r - 1][1] = P(PX(56), PY(y));
        }
        m.legendTextAt[r] = T(PX(68), PY(y + textHeight));
        m.legendTextAt[r].y += m.textShift;
    }
    return m;
}

// The raw page: one pen, brush and font at a time, each created when the
// tool would create it and deleted when replaced.
class RawObjects {
public:
    explicit RawObjects(HDC hdc) : m_hdc(hdc) {}
    ~RawObjects()
    {
        Replace(m_pen, m_oldPen, nullptr);
        Replace(m_brush, m_oldBrush, nullptr);
        Replace(m_font, m_oldFont, nullptr);
    }
    void Pen(int width, COLORREF color) { Replace(m_pen, m_oldPen, ::CreatePen(PS_SOLID, width, color)); }
    void Brush(COLORREF color) { Replace(m_brush, m_oldBrush, ::CreateSolidBrush(color)); }
    void NullBrush()
    {
        LOGBRUSH none = {BS_NULL, 0, 0};
        Replace(m_brush, m_oldBrush, ::CreateBrushIndirect(&none));
    }
    void Font(HFONT font) { Replace(m_font, m_oldFont, font); }

private:
    void Replace(HGDIOBJ& current, HGDIOBJ& old, HGDIOBJ next)
    {
        if (current) {
            ::SelectObject(m_hdc, old);
            ::DeleteObject(current);
        }
        current = next;
        if (next)
            old = ::SelectObject(m_hdc, next);
    }
    HDC m_hdc;
    HGDIOBJ m_pen = nullptr, m_oldPen = nullptr, m_brush = nullptr, m_oldBrush = nullptr, m_font = nullptr,
            m_oldFont = nullptr;
};

void DrawRaw(HDC hdc, const ChartModel& chart, const MappedChart& m)
{
    POINT oldOrigin;
    ::SetViewportOrgEx(hdc, ChartModel::kPlotLeft, ChartModel::kPlotBottom, &oldOrigin);
    ::SetBkMode(hdc, TRANSPARENT);
    ::SetTextColor(hdc, RGB(0, 0, 0));
    {
        // The objects the tool starts with: a black pen, a 50-unit font in
        // the DC's own face and a hollow brush.
        RawObjects objects(hdc);
        char face[LF_FACESIZE] = "";
        ::GetTextFaceA(hdc, LF_FACESIZE, face);
        objects.Pen(0, RGB(0, 0, 0));
        objects.Font(Font(50, 0, 0, face));
        objects.NullBrush();

        objects.Pen(1, RGB(222, 222, 222));
        for (size_t i = 0; i < m.gridX.size(); i += 2) {
            ::MoveToEx(hdc, m.gridX[i].x, m.gridX[i].y, nullptr);
            ::LineTo(hdc, m.gridX[i + 1].x, m.gridX[i + 1].y);
        }
        for (size_t i = 0; i < m.gridY.size(); i += 2) {
            ::MoveToEx(hdc, m.gridY[i].x, m.gridY[i].y, nullptr);
            ::LineTo(hdc, m.gridY[i + 1].x, m.gridY[i + 1].y);
        }
        objects.Pen(1, RGB(40, 110, 200));
        ::Polyline(hdc, m.trace.data(), static_cast<int>(m.trace.size()));
        objects.Pen(2, RGB(200, 30, 30));
        ::MoveToEx(hdc, m.fit[0].x, m.fit[0].y, nullptr);
        ::LineTo(hdc, m.fit[1].x, m.fit[1].y);
        objects.Pen(1, RGB(120, 60, 0));
        objects.Brush(RGB(255, 170, 40));
        for (const RECT& r : m.samples)
            ::Ellipse(hdc, r.left, r.top, r.right, r.bottom);

        objects.Pen(1, RGB(0, 0, 0));
        ::Polyline(hdc, m.frame, 5);
        for (size_t i = 0; i < m.ticks.size(); i += 2) {
            ::MoveToEx(hdc, m.ticks[i].x, m.ticks[i].y, nullptr);
            ::LineTo(hdc, m.ticks[i + 1].x, m.ticks[i + 1].y);
        }
        objects.Font(Font(15, 0, 0));
        ::SetTextAlign(hdc, TA_CENTER | TA_TOP);
        for (size_t i = 0; i < chart.x.labels.size(); ++i)
            ::TextOutA(hdc, m.xLabelAt[i].x, m.xLabelAt[i].y, chart.x.labels[i].c_str(),
                       static_cast<int>(chart.x.labels[i].size()));
        ::SetTextAlign(hdc, TA_RIGHT | TA_TOP);
        for (size_t i = 0; i < chart.y.labels.size(); ++i)
            ::TextOutA(hdc, m.yLabelAt[i].x, m.yLabelAt[i].y, chart.y.labels[i].c_str(),
                       static_cast<int>(chart.y.labels[i].size()));
        objects.Font(Font(17, 0, 0));
        ::SetTextAlign(hdc, TA_CENTER | TA_TOP);
        ::TextOutA(hdc, m.xTitle.x, m.xTitle.y, "time [s]", 8);
        objects.Font(Font(17, 900, 0));
        ::TextOutA(hdc, m.yTitle.x, m.yTitle.y, "force [kN]", 10);
        objects.Font(Font(21, 0, FW_BOLD));
        ::SetTextAlign(hdc, TA_LEFT | TA_BOTTOM);
        const char title[] = "Load test: measured force, samples and their least-squares line";
        ::TextOutA(hdc, m.title.x, m.title.y, title, static_cast<int>(sizeof title - 1));

        objects.Pen(1, RGB(90, 90, 90));
        objects.Brush(RGB(255, 255, 255));
        ::Rectangle(hdc, m.legend.left, m.legend.top, m.legend.right, m.legend.bottom);
        objects.Font(Font(15, 0, 0));
        ::SetTextAlign(hdc, TA_LEFT | TA_TOP);
        for (int r = 0; r < 3; ++r) {
            if (r == 0) {
                objects.Pen(1, RGB(120, 60, 0));
                objects.Brush(RGB(255, 170, 40));
                ::Ellipse(hdc, m.legendMarker.x - 4, m.legendMarker.y - 4, m.legendMarker.x + 4, m.legendMarker.y + 4);
            } else {
                objects.Pen(r == 1 ? 2 : 1, r == 1 ? RGB(200, 30, 30) : RGB(40, 110, 200));
                ::MoveToEx(hdc, m.legendLines[r - 1][0].x, m.legendLines[r - 1][0].y, nullptr);
                ::LineTo(hdc, m.legendLines[r - 1][1].x, m.legendLines[r - 1][1].y);
            }
            ::TextOutA(hdc, m.legendTextAt[r].x, m.legendTextAt[r].y, chart.legend[r].c_str(),
                       static_cast<int>(chart.legend[r].size()));
        }
    }
    ::SetViewportOrgEx(hdc, oldOrigin.x, oldOrigin.y, nullptr);
}

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace

int main()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = ChartModel::kWidth;
    info.bmiHeader.biHeight = -ChartModel::kHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    CDC dc;
    dc.Attach(::CreateCompatibleDC(nullptr));
    HGDIOBJ oldBitmap = ::SelectObject(dc.m_hDC, bitmap);
    const RECT all = {0, 0, ChartModel::kWidth, ChartModel::kHeight};
    HBRUSH white = static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));

    const ChartModel chart = MakeChartModel();
    const MappedChart mapped = Map(chart, dc.m_hDC);

    // Interleaved runs; the fastest of each is the least disturbed.
    double throughTool = 1e9, raw = 1e9, mapping = 1e9, traceTool = 1e9, traceRaw = 1e9;
    CMoruDrawTool tool(nullptr, &dc);
    tool.SetScaleFactX(chart.scaleX);
    tool.SetScaleFactY(-chart.scaleY);
    tool.SetOffsetX(chart.offsetX);
    tool.SetOffsetY(chart.offsetY);
    tool.Initialize(nullptr, 0);
    tool.SetPen(PS_SOLID, 1, RGB(40, 110, 200));
    POINT* trace = const_cast<POINT*>(chart.trace.data());
    const int tracePoints = static_cast<int>(chart.trace.size());
    std::vector<POINT> copy(chart.trace.size());
    size_t differing = 0;
    std::vector<DWORD> toolPixels(static_cast<size_t>(ChartModel::kWidth) * ChartModel::kHeight);
    for (int r = 0; r < kRepeats; ++r) {
        ::FillRect(dc.m_hDC, &all, white);
        ::GdiFlush();
        Clock::time_point start = Clock::now();
        DrawChartPage(dc, chart);
        ::GdiFlush();
        throughTool = std::min(throughTool, SecondsSince(start));
        std::copy_n(static_cast<const DWORD*>(bits), toolPixels.size(), toolPixels.data());

        ::FillRect(dc.m_hDC, &all, white);
        ::GdiFlush();
        start = Clock::now();
        DrawRaw(dc.m_hDC, chart, mapped);
        ::GdiFlush();
        raw = std::min(raw, SecondsSince(start));
        differing = 0;
        for (size_t i = 0; i < toolPixels.size(); ++i)
            differing += toolPixels[i] != static_cast<const DWORD*>(bits)[i];

        // The trace alone, on the same DC and pen.
        start = Clock::now();
        tool.Polyline(trace, tracePoints);
        ::GdiFlush();
        traceTool = std::min(traceTool, SecondsSince(start));
        start = Clock::now();
        ::Polyline(dc.m_hDC, mapped.trace.data(), tracePoints);
        ::GdiFlush();
        traceRaw = std::min(traceRaw, SecondsSince(start));

        start = Clock::now();
        MapPoints(Frame(chart), chart.trace.data(), static_cast<int>(chart.trace.size()), copy.data());
        mapping = std::min(mapping, SecondsSince(start));
    }

    std::printf("chart page (%d x %d, %d-point trace)\n", ChartModel::kWidth, ChartModel::kHeight,
                ChartModel::kTracePoints);
    std::printf("through the tool     %8.2f ms\n", throughTool * 1e3);
    std::printf("raw GDI, pre-mapped  %8.2f ms\n", raw * 1e3);
    std::printf("ratio tool / raw     %8.3f   (target <= 1.05)\n", throughTool / raw);
    std::printf("pixels that differ   %8zu   (the two pages must be the same picture)\n", differing);
    std::printf("the trace alone      %8.2f ms through the tool, %.2f ms raw (ratio %.3f)\n", traceTool * 1e3,
                traceRaw * 1e3, traceTool / traceRaw);
    std::printf("mapping the trace    %8.2f ms   (MapPoints into a warm buffer, part of the tool's time)\n",
                mapping * 1e3);

    tool.Finalize();
    ::SelectObject(dc.m_hDC, oldBitmap);
    dc.DeleteDC();
    ::DeleteObject(bitmap);
    return 0;
}
