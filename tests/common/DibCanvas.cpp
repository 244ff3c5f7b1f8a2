#include "common/DibCanvas.h"

DibCanvas::DibCanvas(int width, int height, COLORREF background) : m_width(width), m_height(height)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;  // top-down rows
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* bits = nullptr;
    m_bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    m_bits = static_cast<DWORD*>(bits);
    m_dc.Attach(::CreateCompatibleDC(nullptr));
    m_oldBitmap = ::SelectObject(m_dc.m_hDC, m_bitmap);
    Fill(background);
}

DibCanvas::~DibCanvas()
{
    ::SelectObject(m_dc.m_hDC, m_oldBitmap);
    m_dc.DeleteDC();
    ::DeleteObject(m_bitmap);
}

void DibCanvas::Fill(COLORREF color)
{
    const DWORD pixel = (GetRValue(color) << 16) | (GetGValue(color) << 8) | GetBValue(color);
    ::GdiFlush();
    for (int i = 0; i < m_width * m_height; ++i)
        m_bits[i] = pixel;
}

COLORREF DibCanvas::Pixel(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_width || y >= m_height || !m_bits)
        return CLR_INVALID;
    ::GdiFlush();
    const DWORD pixel = m_bits[y * m_width + x];
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

int DibCanvas::CountOtherPixels(COLORREF color) const
{
    return m_width * m_height - CountPixels(color);
}
