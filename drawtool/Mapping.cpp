#include "drawtool/Mapping.h"

#include <immintrin.h>

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

void MapPointsTwoLanes(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
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

// Two points (four lanes) a step. For sums with 1 <= |sum| < 2^31 - 1, the
// common case, RoundToInt's rule is the magnitude rounded up with the sign
// kept: rounding up is exact and explicit (not the processor's mode), and
// the result is whole and in range, so truncating it changes nothing. A pair
// with any other sum takes the two-lane path, which handles every case.
// The product and the sum are separate operations (no fused multiply-add),
// rounding as MapPoint's do.
__attribute__((target("avx"))) void MapPointsFourLanes(const CoordinateFrame& frame, const POINT* from, int count,
                                                        POINT* to)
{
    const __m256d scale = _mm256_set_pd(frame.scaleFactY, frame.scaleFactX, frame.scaleFactY, frame.scaleFactX);
    const __m256d offset = _mm256_set_pd(frame.offsetY, frame.offsetX, frame.offsetY, frame.offsetX);
    const __m256d signBit = _mm256_set1_pd(-0.0), one = _mm256_set1_pd(1.0);
    const __m256d beyondCommon = _mm256_set1_pd(2147483647.0);
    int i = 0;
    for (; i + 1 < count; i += 2) {
        const __m128i two = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from + i));
        const __m256d sum = _mm256_add_pd(_mm256_mul_pd(_mm256_cvtepi32_pd(two), scale), offset);
        const __m256d magnitude = _mm256_andnot_pd(signBit, sum);
        // Ordered comparisons: a NaN lane is never common.
        const __m256d common = _mm256_and_pd(_mm256_cmp_pd(magnitude, one, _CMP_GE_OQ),
                                             _mm256_cmp_pd(magnitude, beyondCommon, _CMP_LT_OQ));
        if (_mm256_movemask_pd(common) != 0xF) {
            MapPointsTwoLanes(frame, from + i, 2, to + i);
            continue;
        }
        const __m256d up = _mm256_round_pd(magnitude, _MM_FROUND_TO_POS_INF | _MM_FROUND_NO_EXC);
        const __m256d rounded = _mm256_or_pd(up, _mm256_and_pd(sum, signBit));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), _mm256_cvttpd_epi32(rounded));
    }
    if (i < count)
        MapPointsTwoLanes(frame, from + i, 1, to + i);
}

// Chosen once: the four-lane form needs AVX from the processor and the
// system (which must save the wider registers); both give the same points.
void MapPoints(const CoordinateFrame& frame, const POINT* from, int count, POINT* to)
{
    static const bool fourLanes = __builtin_cpu_supports("avx");
    (fourLanes ? MapPointsFourLanes : MapPointsTwoLanes)(frame, from, count, to);
}
