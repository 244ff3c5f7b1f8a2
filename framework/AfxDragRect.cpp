// CDC::DrawDragRect: the rubber-band frame of a drag. Frames are XORed with
// a pattern brush, so drawing the last frame again erases it; pixels that
// both frames cover are inverted twice and stay as they were.
#include "AfxDC.h"

#include <algorithm>
#include <climits>

namespace {

/// XORs the frame of `rect` (`size` thick; the whole rectangle when the
/// borders meet) with the DC's brush, in four strips that never overlap.
void InvertFrame(HDC hdc, RECT rect, SIZE size)
{
    if (rect.left > rect.right)
        std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom)
        std::swap(rect.top, rect.bottom);
    const long long width = static_cast<long long>(rect.right) - rect.left;
    const long long height = static_cast<long long>(rect.bottom) - rect.top;
    const long long top = std::clamp<long long>(size.cy, 0, height);
    const long long bottom = std::min(top, height - top);
    const long long left = std::clamp<long long>(size.cx, 0, width);
    const long long right = std::min(left, width - left);
    const long long middle = height - top - bottom;
    auto invert = [hdc](long long x, long long y, long long cx, long long cy) {
        if (cx > 0 && cy > 0)
            ::PatBlt(hdc, static_cast<int>(x), static_cast<int>(y), static_cast<int>(std::min<long long>(cx, INT_MAX)),
                     static_cast<int>(std::min<long long>(cy, INT_MAX)), PATINVERT);
    };
    invert(rect.left, rect.top, width, top);
    invert(rect.left, rect.bottom - bottom, width, bottom);
    invert(rect.left, rect.top + top, left, middle);
    invert(rect.right - right, rect.top + top, right, middle);
}

/// The 50% grey checkerboard drawn when no brush is given.
HBRUSH CreateHalftoneBrush()
{
    static const WORD pattern[8] = {0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA, 0x5555, 0xAAAA};
    HBITMAP bitmap = ::CreateBitmap(8, 8, 1, 1, pattern);
    HBRUSH brush = bitmap ? ::CreatePatternBrush(bitmap) : nullptr;
    if (bitmap)
        ::DeleteObject(bitmap);
    return brush;
}

void InvertFrameWith(HDC hdc, const RECT& rect, SIZE size, CBrush* brush, HBRUSH halftone)
{
    HBRUSH handle = brush ? static_cast<HBRUSH>(brush->m_hObject) : halftone;
    if (!handle)
        return;
    HGDIOBJ old = ::SelectObject(hdc, handle);
    InvertFrame(hdc, rect, size);
    ::SelectObject(hdc, old);
}

} // namespace

void CDC::DrawDragRect(const RECT* rect, SIZE size, const RECT* rectLast, SIZE sizeLast, CBrush* brush,
                       CBrush* brushLast)
{
    if (!m_hDC)
        return;
    // As MFC: the last frame is erased with the new frame's brush unless it
    // has its own; the halftone brush stands in for a missing one (the last
    // frame's can only be missing when the new frame's is).
    if (!brushLast)
        brushLast = brush;
    HBRUSH halftone = brush ? nullptr : CreateHalftoneBrush();
    if (rectLast)
        InvertFrameWith(m_hDC, *rectLast, sizeLast, brushLast, halftone);
    if (rect)
        InvertFrameWith(m_hDC, *rect, size, brush, halftone);
    if (halftone)
        ::DeleteObject(halftone);
}
