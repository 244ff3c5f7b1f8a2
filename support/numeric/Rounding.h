// The library's two rounding rules from double to 32-bit signed integer.
// Every mapped drawing coordinate goes through one of them.
#pragma once

#include <climits>
#include <cmath>

/// Rounds every value with a fractional part away from zero: 2.1 -> 3,
/// 2.5 -> 3, -0.1 -> -1; whole values pass unchanged (2.0 -> 2, -0.0 -> 0).
///
/// Defined as a text round trip: a non-integer x is first shifted by 0.5 away
/// from zero (x + 0.5 or x - 0.5 in double arithmetic, rounded to nearest),
/// then printed with "%.0f" (round to nearest, ties to even, as a correctly
/// rounding printf does) and read back with atoi. This function gives
/// exactly that result without the text, whatever rounding mode the
/// processor is in, and pins down the cases the text rule leaves open:
/// - 0 < |x| <= 2^-54: the shifted value is exactly +-0.5, a tie that rounds
///   to even, so the result is 0.
/// - NaN and +-infinity print without digits: the result is 0.
/// - Finite values whose text lies outside the 32-bit range saturate to
///   INT_MAX or INT_MIN, as the Windows C runtime's atoi does on overflow.
///
/// The result does not depend on the processor's rounding mode, which a host
/// may have changed. Inline: every mapped coordinate passes through it.
int RoundToIntOutsideCommonRange(double x);
inline int RoundToInt(double x)
{
    // 1 <= |x| < 2^31 - 1 (false for NaN): truncation and its conversion back
    // are exact, and a fraction pushes to the next integer away from zero.
    const double magnitude = std::fabs(x);
    if (magnitude >= 1.0 && magnitude < 2147483647.0) {
        const long long whole = static_cast<long long>(x);
        const long long awayFromZero = (whole >> 63) | 1;
        return static_cast<int>(whole + (static_cast<double>(whole) != x ? awayFromZero : 0));
    }
    return RoundToIntOutsideCommonRange(x);
}

/// Rounds to nearest with halves away from zero: trunc(x + 0.5) for x >= 0,
/// trunc(x - 0.5) otherwise (2.5 -> 3, 2.4 -> 2, -2.5 -> -3). NaN and results
/// outside the 32-bit range give INT_MIN (-2147483648), the value of the
/// processor's truncating conversion for them.
int RoundHalfAway(double x);
