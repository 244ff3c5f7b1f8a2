#include "support/numeric/Rounding.h"

#include <climits>
#include <cmath>
#include <cstdint>
#include <emmintrin.h>

int RoundToInt(double x)
{
    // The shift is written x + 0.5 rather than 1.0 * 0.5 + x: multiplying by
    // +-1 is exact and addition commutes, so the double is the same.
    if (x != std::trunc(x))                 // true for NaN, as fmod's NaN remainder
        x += x < 0.0 ? -0.5 : 0.5;
    if (!(std::fabs(x) < 4294967296.0)) {   // NaN, infinities and huge text
        if (std::isnan(x) || std::isinf(x))
            return 0;
        return x < 0.0 ? INT_MIN : INT_MAX;
    }
    // cvtsd2si rounds in the current rounding mode: to nearest, ties to even,
    // exactly as "%.0f" rounds the shifted value.
    const long long rounded = _mm_cvtsd_si64(_mm_set_sd(x));
    if (rounded > INT_MAX)
        return INT_MAX;
    if (rounded < INT_MIN)
        return INT_MIN;
    return static_cast<int>(rounded);
}

int RoundHalfAway(double x)
{
    const double shifted = x >= 0.0 ? x + 0.5 : x - 0.5;
    if (!(shifted > -2147483649.0 && shifted < 2147483648.0))
        return INT_MIN;
    return static_cast<int>(shifted);
}
