// Arrows and tick marks. An arrow is worked out in virtual units (doubles,
// rounded half away from zero) and drawn through the tool's own MoveTo,
// LineTo and Polygon, so it is mapped like any other figure. A tick starts
// at a mapped (or device) point and is ScaleFact device units long.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"
#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

#include <climits>
#include <cmath>
#include <optional>

namespace {

struct Vec {
    double x = 0.0;
    double y = 0.0;
};

/// A figure point rounded half away from zero, or nothing when a coordinate
/// is NaN or rounds beyond the 32-bit range: such a point has no place on
/// the device, and GDI would spend seconds filling toward it.
std::optional<POINT> Rounded(double x, double y)
{
    auto fits = [](double v) { return v > -2147483648.5 && v < 2147483647.5; };
    if (!fits(x) || !fits(y))
        return std::nullopt;
    return POINT{RoundHalfAway(x), RoundHalfAway(y)};
}

} // namespace

void CMoruDrawTool::Arrow(int x, int y, int length, double angle, int headLength, double headAngle, int style)
{
    // dir(L, a): (0, L) turned by a degrees; 0 points along +y.
    auto dir = [this](double l, double a) {
        Vec v;
        rotate(0.0, l, &v.x, &v.y, a);
        return v;
    };
    const double degree = std::acos(-1.0) / 180.0;

    const Vec shaft = dir(length, angle);
    const Vec tip{x + shaft.x, y + shaft.y};
    const int position = style / 10;
    const int kind = style - 10 * position;
    const double side = headLength / std::cos(degree * headAngle);

    // A 90-degree head angle makes `side` enormous (cos 90 is 6e-17): its
    // far points, like every NaN point, are not drawn, nor the lines and
    // polygons through them.
    Vec a, b;
    if (position == 0 || position == 2) {
        a = dir(side, angle - headAngle);
        b = dir(side, angle + headAngle);
    } else if (position == 1) {
        a = dir(-side, angle - headAngle);
        b = dir(-side, angle + headAngle);
    }

    const POINT start{x, y};
    const std::optional<POINT> end = Rounded(tip.x, tip.y);
    auto line = [this](POINT from, const std::optional<POINT>& to) {
        if (to) {
            MoveTo(from);
            LineTo(*to);
        }
    };
    switch (kind) {
    case 0:  // line arrow: shaft, then a head of two lines at the chosen end
        line(start, end);
        if (position == 0) {
            line(start, Rounded(x + a.x, y + a.y));
            line(start, Rounded(x + b.x, y + b.y));
        } else if (position == 1 && end) {
            // The apex is the truncated tip, one unit short of the rounded
            // shaft end for halves and above: intended.
            const POINT apex{static_cast<int>(tip.x), static_cast<int>(tip.y)};
            line(apex, Rounded(tip.x + a.x, tip.y + a.y));
            line(apex, Rounded(tip.x + b.x, tip.y + b.y));
        }
        break;
    case 1: {  // filled head, always anchored at the start point (by design)
        line(start, end);
        const std::optional<POINT> sideA = Rounded(x + a.x, y + a.y);
        const std::optional<POINT> sideB = Rounded(x + b.x, y + b.y);
        if (sideA && sideB) {
            POINT head[4] = {start, *sideA, *sideB, start};
            Polygon(head, 4);
        }
        break;
    }
    case 2: {  // block arrow: one closed outline, no separate shaft
        const double half = headAngle / 2;
        const double bodySide = headLength / std::cos(degree * half);
        const Vec e = dir(bodySide, angle - half);
        const Vec f = dir(bodySide, angle + half);
        const Vec head = dir(headLength, angle);
        const Vec q{shaft.x - head.x, shaft.y - head.y};
        const std::optional<POINT> corners[6] = {
            Rounded(x + a.x, y + a.y),
            Rounded(x + e.x, y + e.y),
            Rounded((x + q.x) + e.x, (y + q.y) + e.y),
            Rounded((x + q.x) + f.x, (y + q.y) + f.y),
            Rounded(x + f.x, y + f.y),
            Rounded(x + b.x, y + b.y),
        };
        POINT outline[8] = {start, {}, {}, {}, {}, {}, {}, start};
        for (int i = 0; i < 6; ++i) {
            if (!corners[i])
                return;
            outline[i + 1] = *corners[i];
        }
        Polygon(outline, 8);
        break;
    }
    default:  // unknown kinds draw nothing, not even the shaft
        break;
    }
}

namespace {

/// The tick's end in device units: `length` * ScaleFact from (x, y) along x
/// or y; sums beyond the 32-bit range are held at its ends.
POINT TickEnd(int x, int y, int length, int alongX, double scaleFact)
{
    const long long step = RoundHalfAway(length * scaleFact);
    if (alongX)
        return POINT{SaturateToInt(x + step), y};
    return POINT{x, SaturateToInt(y + step)};
}

} // namespace

CPoint CMoruDrawTool::DrawTick(int x, int y, int length, int alongX)
{
    // The start is rounded half away from zero, not by the mapping rule.
    return DrawTick2(MapHalfAwayX(m_frame, x), MapHalfAwayY(m_frame, y), length, alongX);
}

CPoint CMoruDrawTool::DrawTick(POINT point, int length, int alongX) { return DrawTick(point.x, point.y, length, alongX); }

CPoint CMoruDrawTool::DrawTick2(int x, int y, int length, int alongX)
{
    CDC& dc = DeviceOf(m_dc);
    dc.MoveTo(x, y);
    const POINT end = TickEnd(x, y, length, alongX, m_frame.scaleFact);
    dc.LineTo(end.x, end.y);
    return GetCurrentPosition();
}

CPoint CMoruDrawTool::DrawTick2(POINT point, int length, int alongX)
{
    return DrawTick2(point.x, point.y, length, alongX);
}
