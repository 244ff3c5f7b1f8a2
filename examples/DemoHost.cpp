// The demo host: draws a small technical chart through the drawing tool in a
// y-up frame and writes it as drawing.png and drawing.emf.
//
//   demo_host.exe [output folder]
#include "PictureFiles.h"

#include <drawtool/DrawTool.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

const int kWidth = 800;
const int kHeight = 600;

// The chart in virtual units: x from 0 to 1000, y from -1200 to 1200 (the
// tool takes integer virtual coordinates), origin at the lower left.
void DrawChart(CDC& dc)
{
    CMoruDrawTool* tool = CreateDrawTool(nullptr, &dc);
    if (!tool)
        return;
    tool->SetOrgX(80);
    tool->SetOrgY(kHeight - 60);  // mode 1: the viewport origin, y pointing up
    tool->SetScaleFact(1.0);
    tool->SetScaleFactX(0.65);
    tool->SetScaleFactY(0.2);
    tool->SetOffsetY(-240.0);     // virtual y -1200 sits on the x axis line
    RECT area = {0, 0, kWidth, kHeight};
    tool->Initialize(&area, 1);

    // Frame and grid.
    tool->SetPen(PS_SOLID, 1, RGB(200, 200, 200));
    for (int x = 0; x <= 1000; x += 100) {
        tool->MoveTo(x, -1200);
        tool->LineTo(x, 1200);
    }
    for (int y = -1200; y <= 1200; y += 400) {
        tool->MoveTo(0, y);
        tool->LineTo(1000, y);
    }
    tool->SetPen(PS_SOLID, 2, RGB(0, 0, 0));
    tool->Rectangle(0, -1200, 1000, 1200);

    // Ticks below and left of the frame, labelled in a 14-unit font.
    tool->SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool->SetFont1A(14, 0.0, "Liberation Sans", 0.0);
    tool->SetTextAlign(TA_TOP | TA_CENTER);
    char label[32];
    for (int x = 0; x <= 1000; x += 100) {
        tool->DrawTick(x, -1200, 6, 0);  // positive length: downward on the screen
        std::snprintf(label, sizeof label, "%d", x);
        tool->TextOutA(x, -1240, label);
    }
    tool->SetTextAlign(TA_TOP | TA_RIGHT);
    for (int y = -1200; y <= 1200; y += 400) {
        tool->DrawTick(0, y, -6, 1);
        std::snprintf(label, sizeof label, "%.1f", y / 1000.0);
        tool->TextOutA(-15, y + 35, label);
    }
    tool->SetPointFontA(6, 0.0, "Liberation Sans", 0.0);  // 6 points: 21 tenths of a millimetre
    tool->SetTextAlign(TA_BOTTOM | TA_LEFT);
    tool->TextOutA(0, 1230, "Damped oscillation");

    // A damped oscillation as one polyline of 2001 points.
    std::vector<POINT> curve;
    for (int i = 0; i <= 2000; ++i) {
        const double t = i / 2.0;
        curve.push_back(POINT{static_cast<LONG>(std::lround(t)),
                              static_cast<LONG>(std::lround(1000.0 * std::exp(-t / 400.0) * std::cos(t / 30.0)))});
    }
    tool->SetPen(PS_SOLID, 2, RGB(0, 90, 200));
    tool->Polyline(curve.data(), static_cast<int>(curve.size()));

    // A filled circle (round on the device whatever the axes) and an arrow.
    tool->SetPen(PS_SOLID, 1, RGB(180, 0, 0));
    tool->SetBrush(BS_SOLID, RGB(255, 200, 200), 0);
    tool->Circle(700, 600, 25);
    tool->SetScaleFactY(-0.65);  // equal scales, so the arrow keeps its shape
    tool->Arrow(500, 300, 150, -120.0, 20, 25.0, 1);
    tool->Finalize();
    DestroyDrawTool(tool);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string folder = argc > 1 ? argv[1] : ".";
    ::CreateDirectoryA(folder.c_str(), nullptr);

    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = kWidth;
    info.bmiHeader.biHeight = -kHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    HGDIOBJ oldBitmap = ::SelectObject(memory.m_hDC, bitmap);
    RECT all = {0, 0, kWidth, kHeight};
    ::FillRect(memory.m_hDC, &all, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    DrawChart(memory);
    ::GdiFlush();

    const std::string png = folder + "\\drawing.png";
    const std::wstring widePng(png.begin(), png.end());
    const bool pngWritten = WritePng(widePng.c_str(), bits, kWidth, kHeight);
    const std::string emf = folder + "\\drawing.emf";
    const bool emfWritten = WriteEmf(emf.c_str(), kWidth, kHeight, [](HDC hdc) {
        CBorrowedDC dc(hdc);
        DrawChart(dc);
    });
    ::SelectObject(memory.m_hDC, oldBitmap);
    ::DeleteObject(bitmap);

    std::printf("%s %s\n", pngWritten ? "wrote" : "FAILED to write", png.c_str());
    std::printf("%s %s\n", emfWritten ? "wrote" : "FAILED to write", emf.c_str());
    return pngWritten && emfWritten ? 0 : 1;
}
