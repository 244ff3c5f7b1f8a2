// Rectangles, fills and clipping. Rectangles are mapped corner by corner;
// only FrameRect (after mapping) and the RECT FillSolidRect (before mapping)
// put them in order, so the others see an inverted y axis as it is.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"
#include "support/numeric/IntegerConversion.h"

#include <climits>
#include <utility>

namespace {

HBRUSH HandleOf(CBrush* brush) { return static_cast<HBRUSH>(CGdiObject::SafeHandle(brush)); }

void PutInOrder(RECT& rect)
{
    if (rect.left > rect.right)
        std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom)
        std::swap(rect.top, rect.bottom);
}

} // namespace

int CMoruDrawTool::Rectangle(int x1, int y1, int x2, int y2)
{
    if (IsInert(m_dc))
        return 0;
    const RECT box = MapRect(m_frame, RECT{x1, y1, x2, y2});
    return ::Rectangle(m_dc->m_hDC, box.left, box.top, box.right, box.bottom);
}

int CMoruDrawTool::Rectangle(const RECT* rect)
{
    return rect ? Rectangle(rect->left, rect->top, rect->right, rect->bottom) : 0;
}

int CMoruDrawTool::Rectangle(POINT p1, POINT p2) { return Rectangle(p1.x, p1.y, p2.x, p2.y); }

int CMoruDrawTool::RectanglePolygon(POINT* corners, POINT* shifts)
{
    if (IsInert(m_dc))
        return 0;
    if (!corners)
        return 0;
    // Four points fit on the stack: no allocation that could fail.
    POINT quad[4] = {};
    for (int i = 0; i < 4; ++i) {
        quad[i] = MapPoint(m_frame, corners[i]);
        if (shifts) {
            quad[i].x = SaturateToInt(static_cast<long long>(quad[i].x) + shifts[i].x);
            quad[i].y = SaturateToInt(static_cast<long long>(quad[i].y) + shifts[i].y);
        }
    }
    return ::Polygon(m_dc->m_hDC, quad, 4);
}

int CMoruDrawTool::Ellipse(int x1, int y1, int x2, int y2)
{
    if (IsInert(m_dc))
        return 0;
    const RECT box = MapRect(m_frame, RECT{x1, y1, x2, y2});
    return ::Ellipse(m_dc->m_hDC, box.left, box.top, box.right, box.bottom);
}

int CMoruDrawTool::Ellipse(const RECT* rect)
{
    return rect ? Ellipse(rect->left, rect->top, rect->right, rect->bottom) : 0;
}

void CMoruDrawTool::FillRect(const RECT* rect, CBrush* brush)
{
    if (IsInert(m_dc))
        return;
    if (!rect)
        return;
    const RECT box = MapRect(m_frame, *rect);
    ::FillRect(m_dc->m_hDC, &box, HandleOf(brush));
}

void CMoruDrawTool::FillRect2(const RECT* rect) { FillRect(rect, GetBrush()); }

void CMoruDrawTool::FrameRect(const RECT* rect, CBrush* brush)
{
    if (IsInert(m_dc))
        return;
    if (!rect)
        return;
    RECT box = MapRect(m_frame, *rect);
    PutInOrder(box);
    ::FrameRect(m_dc->m_hDC, &box, HandleOf(brush));
}

void CMoruDrawTool::FrameRect2(const RECT* rect) { FrameRect(rect, GetBrush()); }

void CMoruDrawTool::InvertRect(const RECT* rect)
{
    if (IsInert(m_dc))
        return;
    if (!rect)
        return;
    const RECT box = MapRect(m_frame, *rect);
    ::InvertRect(m_dc->m_hDC, &box);
}

void CMoruDrawTool::FillSolidRect(int x, int y, int cx, int cy, COLORREF color)
{
    // The extent is mapped like a coordinate, offset included: intended.
    DeviceOf(m_dc).FillSolidRect(MapX(m_frame, x), MapY(m_frame, y), MapX(m_frame, cx), MapY(m_frame, cy), color);
}

void CMoruDrawTool::FillSolidRect(const RECT* rect, COLORREF color)
{
    if (!rect)
        return;
    RECT box;
    ::CopyRect(&box, rect);
    PutInOrder(box);
    FillSolidRect(box.left, box.top, SaturateToInt(static_cast<long long>(box.right) - box.left),
                  SaturateToInt(static_cast<long long>(box.bottom) - box.top), color);
}

int CMoruDrawTool::ExcludeClipRect(int x1, int y1, int x2, int y2)
{
    const RECT box = MapRect(m_frame, RECT{x1, y1, x2, y2});
    return DeviceOf(m_dc).ExcludeClipRect(&box);
}

int CMoruDrawTool::ExcludeClipRect(const RECT* rect)
{
    return rect ? ExcludeClipRect(rect->left, rect->top, rect->right, rect->bottom) : ERROR;
}

int CMoruDrawTool::IntersectClipRect(int x1, int y1, int x2, int y2)
{
    const RECT box = MapRect(m_frame, RECT{x1, y1, x2, y2});
    return DeviceOf(m_dc).IntersectClipRect(&box);
}

int CMoruDrawTool::IntersectClipRect(const RECT* rect)
{
    return rect ? IntersectClipRect(rect->left, rect->top, rect->right, rect->bottom) : ERROR;
}

int CMoruDrawTool::ExtFloodFill(int x, int y, COLORREF color, UINT fillType)
{
    if (IsInert(m_dc))
        return 0;
    return ::ExtFloodFill(m_dc->m_hDC, MapX(m_frame, x), MapY(m_frame, y), color, fillType);
}

int CMoruDrawTool::DrawIcon(int x, int y, HICON icon)
{
    if (IsInert(m_dc))
        return 0;
    return ::DrawIcon(m_dc->m_hDC, MapX(m_frame, x), MapY(m_frame, y), icon);
}

int CMoruDrawTool::DrawIcon(POINT point, HICON icon) { return DrawIcon(point.x, point.y, icon); }

void CMoruDrawTool::DrawDragRect(const RECT* rect, SIZE size, const RECT* rectLast, SIZE sizeLast, CBrush* brush,
                                 CBrush* brushLast)
{
    // Device units on purpose: a drag rectangle follows the mouse.
    DeviceOf(m_dc).DrawDragRect(rect, size, rectLast, sizeLast, brush, brushLast);
}
