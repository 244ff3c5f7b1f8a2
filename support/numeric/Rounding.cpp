#include "support/numeric/Rounding.h"

#include "support/numeric/IntegerConversion.h"

int RoundToIntOutsideCommonRange(double x)
{
    const double magnitude = std::fabs(x);
    if (magnitude < 1.0) {
        // At most 2^-54 from zero, x + 0.5 is exactly one half, printed (ties
        // to even) as 0; at 1 - 2^-53 it rounds up to 1.5, printed as 2.
        if (magnitude <= 0x1p-54)
            return 0;
        const int step = magnitude == 0x1.fffffffffffffp-1 ? 2 : 1;
        return x < 0.0 ? -step : step;
    }
    // Texts without digits (NaN, infinities) read as 0; texts beyond the
    // 32-bit range saturate, as the Windows C runtime's atoi does.
    if (x != x || magnitude == HUGE_VAL)
        return 0;
    if (x >= 2147483647.0)
        return INT_MAX;
    if (x <= -2147483648.0)
        return INT_MIN;
    return x == -2147483647.0 ? -2147483647 : INT_MIN;  // (-2^31, -2^31 + 1): away from zero
}

int RoundHalfAway(double x)
{
    return TruncateToInt(x >= 0.0 ? x + 0.5 : x - 0.5);
}
