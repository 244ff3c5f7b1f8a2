// What the mapping costs a long polyline: one million virtual points drawn
// through the tool against GDI's Polyline of the same points already
// mapped, on one 32-bit DIB memory DC, plus the mapping's own cost per
// point. Targets: ratio <= 1.15, mapping <= 3 ns per point.
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

constexpr int kPoints = 1000000;
constexpr int kSize = 1024;
constexpr int kRepeats = 7;

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A zig-zag over the canvas whose mapped coordinates have fractions, so
// that RoundToInt takes its rounding path as well as its whole path.
std::vector<POINT> VirtualPoints()
{
    std::vector<POINT> points(kPoints);
    for (int i = 0; i < kPoints; ++i)
        points[i] = POINT{(i * 37) % 1600, (i * 101) % 1800 + (i & 1) * 3};
    return points;
}

CoordinateFrame Frame()
{
    CoordinateFrame frame;
    frame.scaleFactX = 0.6;
    frame.scaleFactY = -0.55;
    frame.offsetX = 12.25;
    frame.offsetY = 1010.5;
    return frame;
}

} // namespace

int main()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = kSize;
    info.bmiHeader.biHeight = -kSize;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    CDC dc;
    dc.Attach(::CreateCompatibleDC(nullptr));
    HGDIOBJ oldBitmap = ::SelectObject(dc.m_hDC, bitmap);

    const CoordinateFrame frame = Frame();
    std::vector<POINT> host = VirtualPoints();
    std::vector<POINT> mapped(kPoints);
    for (int i = 0; i < kPoints; ++i)
        mapped[i] = MapPoint(frame, host[i]);

    CMoruDrawTool tool(nullptr, &dc);
    tool.SetScaleFactX(frame.scaleFactX);
    tool.SetScaleFactY(frame.scaleFactY);
    tool.SetOffsetX(frame.offsetX);
    tool.SetOffsetY(frame.offsetY);
    tool.Initialize(nullptr, 0);

    // Interleaved runs; the fastest of each is the least disturbed.
    CMoruDrawTool idle(nullptr, nullptr);
    idle.SetScaleFactX(frame.scaleFactX);
    idle.SetScaleFactY(frame.scaleFactY);
    idle.SetOffsetX(frame.offsetX);
    idle.SetOffsetY(frame.offsetY);
    idle.Initialize(nullptr, 0);

    double throughTool = 1e9, raw = 1e9, mapping = 1e9, pointByPoint = 1e9;
    long long checksum = 0;
    for (int r = 0; r < kRepeats; ++r) {
        Clock::time_point start = Clock::now();
        checksum += tool.Polyline(host.data(), kPoints);
        ::GdiFlush();
        throughTool = std::min(throughTool, SecondsSince(start));

        start = Clock::now();
        checksum += ::Polyline(dc.m_hDC, mapped.data(), kPoints);
        ::GdiFlush();
        raw = std::min(raw, SecondsSince(start));

        // The tool's own overhead: on a null DC every GDI call fails at once,
        // so what remains is the mapping into the call's copy.
        start = Clock::now();
        checksum += idle.Polyline(host.data(), kPoints);
        mapping = std::min(mapping, SecondsSince(start));

        std::vector<POINT> copy(kPoints);
        start = Clock::now();
        for (int i = 0; i < kPoints; ++i)
            copy[i] = MapPoint(frame, host[i]);
        pointByPoint = std::min(pointByPoint, SecondsSince(start));
        checksum += copy[r].x + copy[kPoints - 1 - r].y;
    }
    idle.Finalize();
    tool.Finalize();

    std::printf("points per call      %d\n", kPoints);
    std::printf("tool Polyline        %8.2f ms\n", throughTool * 1e3);
    std::printf("raw GDI Polyline     %8.2f ms\n", raw * 1e3);
    std::printf("ratio tool / raw     %8.3f   (target <= 1.15)\n", throughTool / raw);
    std::printf("mapping per point    %8.2f ns  (target <= 3; the tool on a null DC)\n", mapping * 1e9 / kPoints);
    std::printf("MapPoint per point   %8.2f ns  (one point at a time, for comparison)\n",
                pointByPoint * 1e9 / kPoints);
    std::printf("(checksum %lld)\n", checksum);

    ::SelectObject(dc.m_hDC, oldBitmap);
    dc.DeleteDC();
    ::DeleteObject(bitmap);
    return 0;
}
