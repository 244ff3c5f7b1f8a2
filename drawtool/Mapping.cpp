#include "drawtool/Mapping.h"

#include <emmintrin.h>

namespace {

/// Per-axis mapping of one point held as (x, y) in the two lanes, with
/// RoundToInt's rule applied lane by lane, exact by construction for every
/// sum (no lane is left for a scalar fallback):
/// - NaN, the infinities and 0 < |sum| <= 2^-54 give 0;
/// - sums are held to [-2^31, 2^31 - 1], so that beyond the 32-bit range the
///   ends come out (a held sum is whole);
/// - the truncation of a sum in that range is exact, and so is its
///   conversion back: a sum that differs from it has a fraction, which goes
///   one integer further from zero (cannot overflow: a held end is whole);
/// - 1 - 2^-53 in magnitude gives 2, as the rule's shifted value rounds up.
/// Only the product and the sum round, in the processor's rounding mode as
/// MapPoint's do; truncation, comparisons and integer steps do not round.
struct LaneMapper {
    __m128d scale, offset;
    const __m128d signBit = _mm_set1_pd(-0.0);
    const __m128d one = _mm_set1_pd(1.0);
    const __m128d highest = _mm_set1_pd(2147483647.0), lowest = _mm_set1_pd(-2147483648.0);
    const __m128d tiny = _mm_set1_pd(0x1p-54), infinity = _mm_set1_pd(HUGE_VAL);
    const __m128d belowOne = _mm_set1_pd(0x1.fffffffffffffp-1);

    explicit LaneMapper(const CoordinateFrame& frame)
        : scale(_mm_set_pd(frame.scaleFactY, frame.scaleFactX)), offset(_mm_set_pd(frame.offsetY, frame.offsetX))
    {
    }
    /// (x, y) mapped into the low half of the result.
    __m128i Map(__m128i point) const
    {
        const __m128d sum = _mm_add_pd(_mm_mul_pd(_mm_cvtepi32_pd(point), scale), offset);
        const __m128d magnitude = _mm_andnot_pd(signBit, sum);
        // NaN fails both comparisons' order test and lands in `zero` too.
        const __m128d zero = _mm_or_pd(_mm_cmple_pd(magnitude, tiny), _mm_cmpnlt_pd(magnitude, infinity));
        const __m128d held = _mm_andnot_pd(zero, _mm_max_pd(_mm_min_pd(sum, highest), lowest));
        const __m128i whole = _mm_cvttpd_epi32(held);
        const __m128d awayFromZero = _mm_or_pd(_mm_and_pd(held, signBit), one);  // +-1.0
        const __m128d fractional = _mm_cmpneq_pd(_mm_cvtepi32_pd(whole), held);
        const __m128d pastOne = _mm_cmpeq_pd(_mm_andnot_pd(signBit, held), belowOne);
        const __m128d step = _mm_add_pd(_mm_and_pd(fractional, awayFromZero), _mm_and_pd(pastOne, awayFromZero));
        return _mm_add_epi32(whole, _mm_cvttpd_epi32(step));
    }
};

} // namespace

// Two points a step: long lists spend most of their time here.
void MapPoints(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
{
    const LaneMapper lanes(frame);
    int i = 0;
    for (; i + 1 < count; i += 2) {
        const __m128i two = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        const __m128i mapped = _mm_unpacklo_epi64(lanes.Map(two), lanes.Map(_mm_unpackhi_epi64(two, two)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), mapped);
    }
    if (i < count) {
        const __m128i last = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(from + i));
        _mm_storel_epi64(reinterpret_cast<__m128i*>(to + i), lanes.Map(last));
    }
}
