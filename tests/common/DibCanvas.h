// A 32-bit DIB section selected into a memory DC, for reading back the
// pixels a drawing really produced.
#pragma once

#include "framework/afxwin.h"

class DibCanvas {
public:
    DibCanvas(int width, int height, COLORREF background = RGB(255, 255, 255));
    ~DibCanvas();
    DibCanvas(const DibCanvas&) = delete;
    DibCanvas& operator=(const DibCanvas&) = delete;

    CDC& Dc() { return m_dc; }
    /// The pixel at device (x, y); CLR_INVALID outside the canvas.
    COLORREF Pixel(int x, int y) const { return ::GetPixel(m_dc.m_hDC, x, y); }
    /// Pixels of `color` in the rectangle [left, right) x [top, bottom).
    int CountPixels(COLORREF color, int left, int top, int right, int bottom) const;

private:
    CDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
};
