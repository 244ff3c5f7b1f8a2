// CPoint, CSize and CRect: the framework's value types over POINT, SIZE and
// RECT (32-bit signed members), as MFC defines them.
#pragma once

#include <windows.h>

class CPoint : public POINT {
public:
    CPoint() { x = 0; y = 0; }
    CPoint(int initX, int initY) { x = initX; y = initY; }
    CPoint(POINT point) { x = point.x; y = point.y; }
    bool operator==(POINT other) const { return x == other.x && y == other.y; }
    bool operator!=(POINT other) const { return !(*this == other); }
};

class CSize : public SIZE {
public:
    CSize() { cx = 0; cy = 0; }
    CSize(int initCX, int initCY) { cx = initCX; cy = initCY; }
    CSize(SIZE size) { cx = size.cx; cy = size.cy; }
    bool operator==(SIZE other) const { return cx == other.cx && cy == other.cy; }
    bool operator!=(SIZE other) const { return !(*this == other); }
};

class CRect : public RECT {
public:
    CRect() { left = top = right = bottom = 0; }
    CRect(int l, int t, int r, int b) { left = l; top = t; right = r; bottom = b; }
    CRect(const RECT& rect) { CopyRect(this, &rect); }
    CRect(POINT topLeft, POINT bottomRight) { left = topLeft.x; top = topLeft.y; right = bottomRight.x; bottom = bottomRight.y; }
    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return CSize(Width(), Height()); }
    CPoint TopLeft() const { return CPoint(left, top); }
    CPoint BottomRight() const { return CPoint(right, bottom); }
    bool IsRectEmpty() const { return ::IsRectEmpty(this) != FALSE; }
    void NormalizeRect()
    {
        if (left > right) { LONG t = left; left = right; right = t; }
        if (top > bottom) { LONG t = top; top = bottom; bottom = t; }
    }
    operator RECT*() { return this; }
    operator const RECT*() const { return this; }
    bool operator==(const RECT& other) const { return EqualRect(this, &other) != FALSE; }
    bool operator!=(const RECT& other) const { return !(*this == other); }
};
