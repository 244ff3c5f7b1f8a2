// What the C interface costs a drawing call: short LineTo calls (a cheap GDI
// call, so the wrapper's share shows) through the class and through the C
// handle, with 1000 other tools live so that the registry is not empty.
// Target: C / class <= 1.25, overhead <= 50 ns per call.
#include "drawtool/DrawTool.h"
#include "drawtool/DrawToolC.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

constexpr int kCalls = 100000;
constexpr int kRepeats = 15;
constexpr int kOtherTools = 1000;

using Clock = std::chrono::steady_clock;

template <class Draw>
double Seconds(Draw draw)
{
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < kCalls; ++i)
        draw(i);
    return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace

int main()
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = 256;
    info.bmiHeader.biHeight = -256;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    HDC hdc = ::CreateCompatibleDC(nullptr);
    HGDIOBJ oldBitmap = ::SelectObject(hdc, bitmap);
    CBorrowedDC dc(hdc);

    std::vector<DrawToolHandle> others;
    for (int i = 0; i < kOtherTools; ++i)
        others.push_back(DrawTool_Create(nullptr, nullptr));
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    DrawToolHandle handle = DrawTool_Create(nullptr, hdc);
    DrawTool_Initialize(handle, nullptr, 0);

    // Interleaved runs; the fastest of each is the least disturbed.
    double viaClass = 1e9, viaC = 1e9;
    for (int r = 0; r < kRepeats; ++r) {
        viaClass = std::min(viaClass, Seconds([&](int i) { tool.LineTo(i & 255, (i >> 8) & 255); }));
        viaC = std::min(viaC, Seconds([&](int i) { DrawTool_LineTo(handle, i & 255, (i >> 8) & 255); }));
    }
    std::printf("LineTo through the class %.1f ns, through the C interface %.1f ns per call\n",
                viaClass / kCalls * 1e9, viaC / kCalls * 1e9);
    std::printf("ratio C / class %.3f (target <= 1.25), overhead %.1f ns per call (target <= 50)\n",
                viaC / viaClass, (viaC - viaClass) / kCalls * 1e9);

    DrawTool_Destroy(handle);
    tool.Finalize();
    for (DrawToolHandle other : others)
        DrawTool_Destroy(other);
    ::SelectObject(hdc, oldBitmap);
    ::DeleteObject(bitmap);
    ::DeleteDC(hdc);
    return 0;
}
