// Arcs, pies and circles. Centres and corners are mapped per axis; radii
// follow one of three rules: scaled by the uniform ScaleFact (Circle,
// AngleArc: round whatever the axes), device pixels (Circle2, Circle3), or
// virtual units of a mapped bounding box (Arch).
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"
#include "support/numeric/IntegerConversion.h"

#include <climits>
#include <utility>

int CMoruDrawTool::Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    if (IsInert(m_dc))
        return 0;
    const CoordinateFrame& f = m_frame;
    return ::Arc(m_dc->m_hDC, MapX(f, x1), MapY(f, y1), MapX(f, x2), MapY(f, y2), MapX(f, x3), MapY(f, y3),
                 MapX(f, x4), MapY(f, y4));
}

int CMoruDrawTool::Arc(const RECT* rect, POINT start, POINT end)
{
    return rect ? Arc(rect->left, rect->top, rect->right, rect->bottom, start.x, start.y, end.x, end.y) : 0;
}

int CMoruDrawTool::ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    const CoordinateFrame& f = m_frame;
    return DeviceOf(m_dc).ArcTo(MapX(f, x1), MapY(f, y1), MapX(f, x2), MapY(f, y2), MapX(f, x3), MapY(f, y3),
                                MapX(f, x4), MapY(f, y4));
}

int CMoruDrawTool::ArcTo(const RECT* rect, POINT start, POINT end)
{
    return rect ? ArcTo(rect->left, rect->top, rect->right, rect->bottom, start.x, start.y, end.x, end.y) : 0;
}

int CMoruDrawTool::Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    if (IsInert(m_dc))
        return 0;
    const CoordinateFrame& f = m_frame;
    return ::Pie(m_dc->m_hDC, MapX(f, x1), MapY(f, y1), MapX(f, x2), MapY(f, y2), MapX(f, x3), MapY(f, y3),
                 MapX(f, x4), MapY(f, y4));
}

int CMoruDrawTool::Pie(const RECT* rect, POINT start, POINT end)
{
    return rect ? Pie(rect->left, rect->top, rect->right, rect->bottom, start.x, start.y, end.x, end.y) : 0;
}

int CMoruDrawTool::AngleArc(int x, int y, int radius, float startAngle, float sweepAngle)
{
    if (IsInert(m_dc))
        return 0;
    // The radius takes the uniform factor and no offset; GDI refuses a
    // negative one.
    const int deviceRadius = RoundToInt(radius * m_frame.scaleFact);
    return ::AngleArc(m_dc->m_hDC, MapX(m_frame, x), MapY(m_frame, y), static_cast<DWORD>(deviceRadius),
                      startAngle, sweepAngle);
}

int CMoruDrawTool::Circle(int x, int y, int radius)
{
    if (IsInert(m_dc))
        return 0;
    const CoordinateFrame& f = m_frame;
    const double s = radius * f.scaleFact;
    const double cx = x * f.scaleFactX;
    const double cy = y * f.scaleFactY;
    return ::Ellipse(m_dc->m_hDC, RoundToInt((cx - s) + f.offsetX), RoundToInt((cy - s) + f.offsetY),
                     RoundToInt((s + cx) + f.offsetX), RoundToInt((s + cy) + f.offsetY));
}

int CMoruDrawTool::Circle(POINT centre, int radius) { return Circle(centre.x, centre.y, radius); }

int CMoruDrawTool::Circle2(int x, int y, int radius)
{
    if (IsInert(m_dc))
        return 0;
    const long long cx = MapX(m_frame, x);
    const long long cy = MapY(m_frame, y);
    return ::Ellipse(m_dc->m_hDC, SaturateToInt(cx - radius), SaturateToInt(cy - radius), SaturateToInt(cx + radius),
                     SaturateToInt(cy + radius));
}

int CMoruDrawTool::Circle2(POINT centre, int radius) { return Circle2(centre.x, centre.y, radius); }

int CMoruDrawTool::Circle3(int x, int y, int radius)
{
    if (IsInert(m_dc))
        return 0;
    const CoordinateFrame& f = m_frame;
    const double cx = x * f.scaleFactX + f.offsetX;
    const double cy = y * f.scaleFactY + f.offsetY;
    return ::Ellipse(m_dc->m_hDC, RoundToInt(cx - radius), RoundToInt(cy - radius),
                     RoundToInt(cx + radius + 1.0), RoundToInt(cy + radius + 1.0));
}

// Intended: the POINT form draws the narrower Circle2 figure.
int CMoruDrawTool::Circle3(POINT centre, int radius) { return Circle2(centre.x, centre.y, radius); }

int CMoruDrawTool::Arch(int x, int y, int radius, double startAngle, double endAngle)
{
    double sx = 0.0, sy = 0.0, ex = 0.0, ey = 0.0;
    rotate(radius, 0.0, &sx, &sy, startAngle);
    rotate(radius, 0.0, &ex, &ey, endAngle);

    int left = SaturateToInt(static_cast<long long>(x) - radius);
    int right = SaturateToInt(static_cast<long long>(x) + radius);
    int top = SaturateToInt(static_cast<long long>(y) - radius);
    int bottom = SaturateToInt(static_cast<long long>(y) + radius);
    if (left > right)
        std::swap(left, right);
    if (top > bottom)
        std::swap(top, bottom);

    // Radial points are truncated, not rounded: intended.
    return Arc(left, top, right, bottom, TruncateToInt(sx + x), TruncateToInt(sy + y), TruncateToInt(ex + x),
               TruncateToInt(ey + y));
}

int CMoruDrawTool::Arch(POINT centre, int radius, double startAngle, double endAngle)
{
    return Arch(centre.x, centre.y, radius, startAngle, endAngle);
}
