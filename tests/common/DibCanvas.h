// A 32-bit top-down DIB section selected into a memory DC, for reading back
// the pixels a drawing really produced.
#pragma once

#include "framework/afxwin.h"

class DibCanvas {
public:
    DibCanvas(int width, int height, COLORREF background = RGB(255, 255, 255));
    ~DibCanvas();
    DibCanvas(const DibCanvas&) = delete;
    DibCanvas& operator=(const DibCanvas&) = delete;

    CDC& Dc() { return m_dc; }
    /// The pixels row by row, each 0x00RRGGBB.
    const DWORD* Bits() const { ::GdiFlush(); return m_bits; }
    /// The pixel at device (x, y) as a COLORREF; CLR_INVALID outside.
    COLORREF Pixel(int x, int y) const;
    /// Pixels of `color` in the rectangle [left, right) x [top, bottom).
    int CountPixels(COLORREF color, int left, int top, int right, int bottom) const;
    int CountPixels(COLORREF color) const { return CountPixels(color, 0, 0, m_width, m_height); }

private:
    CDC m_dc;
    HBITMAP m_bitmap = nullptr;
    HGDIOBJ m_oldBitmap = nullptr;
    DWORD* m_bits = nullptr;
    int m_width;
    int m_height;
};
