#include "common/DibCanvas.h"

#include <algorithm>

DibCanvas::DibCanvas(int width, int height, COLORREF background)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};  // top-down rows
    DWORD* bits = nullptr;
    m_bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, reinterpret_cast<void**>(&bits), nullptr, 0);
    m_dc.Attach(::CreateCompatibleDC(nullptr));
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap);
    const DWORD pixel = (GetRValue(background) << 16) | (GetGValue(background) << 8) | GetBValue(background);
    std::fill(bits, bits + width * height, pixel);
}

DibCanvas::~DibCanvas()
{
    ::SelectObject(m_dc.m_hDC, m_oldBitmap);
    m_dc.DeleteDC();
    ::DeleteObject(m_bitmap);
}

int DibCanvas::CountPixels(COLORREF color, int left, int top, int right, int bottom) const
{
    int count = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            count += Pixel(x, y) == color;
    return count;
}
