// The library's two rounding rules from double to 32-bit signed integer.
// Every mapped drawing coordinate goes through one of them.
#pragma once

#include <climits>
#include <cmath>
#include <emmintrin.h>

/// Rounds every value with a fractional part away from zero: 2.1 -> 3,
/// 2.5 -> 3, -0.1 -> -1; whole values pass unchanged (2.0 -> 2, -0.0 -> 0).
///
/// Defined as a text round trip: a non-integer x is first shifted by 0.5 away
/// from zero (x + 0.5 or x - 0.5 in double arithmetic), then printed with
/// "%.0f" (round to nearest, ties to even, as a correctly rounding printf
/// does) and read back with atoi. This function gives exactly that result
/// without the text, and pins down the cases the text rule leaves open:
/// - 0 < |x| <= 2^-54: the shifted value is exactly +-0.5, a tie that rounds
///   to even, so the result is 0.
/// - NaN and +-infinity print without digits: the result is 0.
/// - Finite values whose text lies outside the 32-bit range saturate to
///   INT_MAX or INT_MIN, as the Windows C runtime's atoi does on overflow.
/// Inline: every mapped coordinate of every drawing call passes through it.
inline int RoundToInt(double x)
{
    // Outside the 32-bit range the text saturates (or, for NaN and the
    // infinities, has no digits); comparisons with NaN are false.
    if (!(x > -2147483648.0 && x < 2147483648.0)) {
        if (x != x || x == HUGE_VAL || x == -HUGE_VAL)
            return 0;
        return x < 0.0 ? INT_MIN : INT_MAX;
    }
    // Within the range a truncating conversion is exact, so it tells whole
    // values from fractional ones without fmod. The shift x +- 0.5 equals
    // s * 0.5 + x: multiplying by +-1 is exact and addition commutes. It is
    // branch-free because the sign of a coordinate is unpredictable.
    const double whole = static_cast<double>(static_cast<long long>(x));
    x += whole != x ? std::copysign(0.5, x) : 0.0;
    // cvtsd2si rounds in the current rounding mode: to nearest, ties to even,
    // exactly as "%.0f" rounds the shifted value.
    const long long rounded = _mm_cvtsd_si64(_mm_set_sd(x));
    return rounded > INT_MAX ? INT_MAX : static_cast<int>(rounded);
}

/// Rounds to nearest with halves away from zero: trunc(x + 0.5) for x >= 0,
/// trunc(x - 0.5) otherwise (2.5 -> 3, 2.4 -> 2, -2.5 -> -3). NaN and results
/// outside the 32-bit range give INT_MIN (-2147483648), the value of the
/// processor's truncating conversion for them.
int RoundHalfAway(double x);
