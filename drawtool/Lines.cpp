// Lines and paths: every point is mapped per axis (the "2" calls: uniformly)
// and handed to the DC in one call. Point lists go through one private heap
// copy per call, released on every path by its owner.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <algorithm>
#include <climits>
#include <emmintrin.h>
#include <memory>
#include <new>

namespace {

/// GDI gets long polylines in runs of at most this many points plus the
/// first point of the next run, so that consecutive runs meet.
constexpr int kRunLength = 15000;

/// A zeroed heap block of `count` points, or null when it cannot be had.
std::unique_ptr<POINT[]> AllocatePoints(int count)
{
    return std::unique_ptr<POINT[]>(new (std::nothrow) POINT[static_cast<size_t>(count)]());
}

/// Per-axis mapping of one point held as (x, y) in the two lanes, exactly as
/// MapPoint does it: the product, then the offset; a fractional sum is
/// pushed half a unit away from zero and rounded to nearest even (the
/// current rounding mode, as RoundToInt's cvtsd2si). Adding and subtracting
/// 1.5 * 2^52 rounds a sum below 2^51 in magnitude to an integer, which
/// tells whole sums from the rest. A sum that does not round into the
/// 32-bit range (or is NaN) converts to INT_MIN, the processor's marker,
/// and the caller then maps its list by MapPoint.
struct LaneMapper {
    __m128d scale, offset;
    const __m128d signBit = _mm_set1_pd(-0.0);
    const __m128d half = _mm_set1_pd(0.5);
    const __m128d magic = _mm_set1_pd(6755399441055744.0);  // 1.5 * 2^52

    explicit LaneMapper(const CoordinateFrame& frame)
        : scale(_mm_set_pd(frame.scaleFactY, frame.scaleFactX)), offset(_mm_set_pd(frame.offsetY, frame.offsetX))
    {
    }
    /// (x, y) mapped into the low half of the result.
    __m128i Map(__m128i point) const
    {
        const __m128d sum = _mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(point), scale), offset);
        const __m128d nearest = _mm_sub_pd(_mm_add_pd(sum, magic), magic);
        const __m128d awayFromZero = _mm_or_pd(_mm_and_pd(sum, signBit), half);
        const __m128d shifted = _mm_add_pd(sum, _mm_and_pd(_mm_cmpneq_pd(nearest, sum), awayFromZero));
        return _mm_cvtpd_epi32(shifted);
    }
};

/// Maps `count` points with exactly MapPoint's results, two points a step:
/// long lists spend most of their time here. If any coordinate comes out as
/// INT_MIN (out of range, NaN, or truly INT_MIN), the whole list is mapped
/// again by MapPoint itself.
void MapInto(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
{
    const LaneMapper lanes(frame);
    const __m128i marker = _mm_set1_epi32(INT_MIN);
    __m128i flagged = _mm_setzero_si128();
    int i = 0;
    for (; i + 1 < count; i += 2) {
        const __m128i two = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        const __m128i mapped = _mm_unpacklo_epi64(lanes.Map(two), lanes.Map(_mm_unpackhi_epi64(two, two)));
        flagged = _mm_or_si128(flagged, _mm_cmpeq_epi32(mapped, marker));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), mapped);
    }
    if (_mm_movemask_epi8(flagged) != 0)
        i = 0;
    for (; i < count; ++i)
        to[i] = MapPoint(frame, from[i]);
}

/// The point-array pattern: below two points (or without points) nothing is
/// drawn; otherwise the mapped copy goes to `draw` and its answer comes back.
template <class Draw>
int DrawMapped(const CoordinateFrame& frame, const POINT* points, int count, Draw draw)
{
    if (count < 2 || !points)
        return 0;
    const std::unique_ptr<POINT[]> copy = AllocatePoints(count);
    if (!copy)
        return 0;
    MapInto(frame, points, count, copy.get());
    return draw(copy.get());
}

} // namespace

CPoint CMoruDrawTool::MoveTo(int x, int y) { return DeviceOf(m_dc).MoveTo(MapX(m_frame, x), MapY(m_frame, y)); }
CPoint CMoruDrawTool::MoveTo(POINT point) { return MoveTo(point.x, point.y); }
CPoint CMoruDrawTool::MoveTo2(int x, int y) { return DeviceOf(m_dc).MoveTo(MapX2(m_frame, x), MapY2(m_frame, y)); }
CPoint CMoruDrawTool::MoveTo2(POINT point) { return MoveTo2(point.x, point.y); }
int CMoruDrawTool::LineTo(int x, int y) { return DeviceOf(m_dc).LineTo(MapX(m_frame, x), MapY(m_frame, y)); }
int CMoruDrawTool::LineTo(POINT point) { return LineTo(point.x, point.y); }
int CMoruDrawTool::LineTo2(int x, int y) { return DeviceOf(m_dc).LineTo(MapX2(m_frame, x), MapY2(m_frame, y)); }
int CMoruDrawTool::LineTo2(POINT point) { return LineTo2(point.x, point.y); }

int CMoruDrawTool::Polyline(POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    if (count <= kRunLength)
        return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.Polyline(copy, count); });
    if (!points)
        return 0;

    // Runs = count / 15000 rounded up. One block serves every run.
    const double quotient = count / static_cast<double>(kRunLength);
    int runs = static_cast<int>(quotient);
    if (quotient > runs)
        ++runs;
    const std::unique_ptr<POINT[]> run = AllocatePoints(kRunLength + 1);
    if (!run)
        return 0;
    int result = 0;
    for (int r = 0; r < runs; ++r) {
        const int first = r * kRunLength;
        int filled = std::min(kRunLength, count - first);
        MapInto(m_frame, points + first, filled, run.get());
        if (r < runs - 1)
            run[filled++] = MapPoint(m_frame, points[first + kRunLength]);
        // Earlier runs' answers are dropped on purpose: the last run decides.
        result = dc.Polyline(run.get(), filled);
    }
    return result;
}

int CMoruDrawTool::PolylineTo(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolylineTo(copy, count); });
}

int CMoruDrawTool::Polygon(POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.Polygon(copy, count); });
}

int CMoruDrawTool::PolyBezier(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyBezier(copy, count); });
}

int CMoruDrawTool::PolyBezierTo(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyBezierTo(copy, count); });
}

int CMoruDrawTool::PolyDraw(const POINT* points, const BYTE* types, int count)
{
    if (!types)
        return 0;
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyDraw(copy, types, count); });
}

int CMoruDrawTool::PolyPolyline(const POINT* points, const DWORD* polyCounts, int count)
{
    // The copy holds `count` points (count is the number of polylines, kept
    // so on purpose); lists that would make GDI read past it are refused.
    if (count < 2 || !polyCounts)
        return 0;
    unsigned long long total = 0;
    for (int i = 0; i < count; ++i)
        total += polyCounts[i];
    if (total > static_cast<unsigned long long>(count))
        return 0;
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count,
                      [&](const POINT* copy) { return dc.PolyPolyline(copy, polyCounts, count); });
}
