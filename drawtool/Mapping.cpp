#include "drawtool/Mapping.h"

#include <emmintrin.h>

namespace {

/// Per-axis mapping of one point held as (x, y) in the two lanes, with
/// RoundToInt's rule: the product, then the offset; a whole sum passes, a
/// fractional one goes to the next integer away from zero. Whatever the
/// processor's rounding mode: adding and removing 1.5 * 2^52 returns the sum
/// exactly only when it is whole, and adding +-1 to a fractional sum cannot
/// carry its truncation past the next integer. Results the rule may treat
/// differently come out as -1, 1 (fractional sums below 1 in magnitude) or
/// INT_MIN (NaN, sums beyond the 32-bit range); the caller maps those
/// points by MapPoint instead.
struct LaneMapper {
    __m128d scale, offset;
    const __m128d signBit = _mm_set1_pd(-0.0);
    const __m128d one = _mm_set1_pd(1.0);
    const __m128d magic = _mm_set1_pd(6755399441055744.0);  // 1.5 * 2^52

    explicit LaneMapper(const CoordinateFrame& frame)
        : scale(_mm_set_pd(frame.scaleFactY, frame.scaleFactX)), offset(_mm_set_pd(frame.offsetY, frame.offsetX))
    {
    }
    /// (x, y) mapped into the low half of the result.
    __m128i Map(__m128i point) const
    {
        const __m128d sum = _mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(point), scale), offset);
        const __m128d fractional = _mm_cmpneq_pd(_mm_sub_pd(_mm_add_pd(sum, magic), magic), sum);
        const __m128d away = _mm_and_pd(fractional, _mm_or_pd(_mm_and_pd(sum, signBit), one));
        return _mm_cvttpd_epi32(_mm_add_pd(sum, away));
    }
};

} // namespace

// Two points a step: long lists spend most of their time here. A pair with
// a result the lanes cannot vouch for is mapped again by MapPoint itself.
void MapPoints(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
{
    const LaneMapper lanes(frame);
    const __m128i lowest = _mm_set1_epi32(INT_MIN), plusOne = _mm_set1_epi32(1), minusOne = _mm_set1_epi32(-1);
    int i = 0;
    for (; i + 1 < count; i += 2) {
        const __m128i two = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        const __m128i mapped = _mm_unpacklo_epi64(lanes.Map(two), lanes.Map(_mm_unpackhi_epi64(two, two)));
        const __m128i doubtful = _mm_or_si128(_mm_cmpeq_epi32(mapped, lowest),
                                              _mm_or_si128(_mm_cmpeq_epi32(mapped, plusOne),
                                                           _mm_cmpeq_epi32(mapped, minusOne)));
        if (_mm_movemask_epi8(doubtful) == 0) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), mapped);
        } else {
            to[i] = MapPoint(frame, from[i]);
            to[i + 1] = MapPoint(frame, from[i + 1]);
        }
    }
    for (; i < count; ++i)
        to[i] = MapPoint(frame, from[i]);
}
