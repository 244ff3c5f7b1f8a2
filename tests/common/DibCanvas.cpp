#include "common/DibCanvas.h"

#include <algorithm>

DibCanvas::DibCanvas(int width, int height, COLORREF background) : m_width(width), m_height(height)
{
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};  // top-down rows
    void* bits = nullptr;
    m_bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<DWORD*>(bits);
    m_dc.Attach(::CreateCompatibleDC(nullptr));
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap);
    const DWORD pixel = (GetRValue(background) << 16) | (GetGValue(background) << 8) | GetBValue(background);
    std::fill(m_bits, m_bits + width * height, pixel);
}

DibCanvas::~DibCanvas()
{
    ::SelectObject(m_dc.m_hDC, m_oldBitmap);
    m_dc.DeleteDC();
    ::DeleteObject(m_bitmap);
}

COLORREF DibCanvas::Pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height || !m_bits)
        return CLR_INVALID;
    const DWORD pixel = Bits()[y * m_width + x];
    return RGB((pixel >> 16) & 0xFF, (pixel >> 8) & 0xFF, pixel & 0xFF);
}

int DibCanvas::CountPixels(COLORREF color, int left, int top, int right, int bottom) const
{
    int count = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x)
            count += Pixel(x, y) == color;
    return count;
}
