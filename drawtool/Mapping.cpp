#include "drawtool/Mapping.h"

#include <climits>
#include <emmintrin.h>

namespace {

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

} // namespace

// Two points a step: long lists spend most of their time here. If any
// coordinate comes out as INT_MIN (out of range, NaN, or truly INT_MIN), the
// whole list is mapped again by MapPoint itself.
void MapPoints(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
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
