// Conversions and sums on 32-bit ints that behave as the processor's
// instructions do, so that out-of-range input gives a defined value instead
// of undefined behaviour. Shared by the drawing tool and the support routines.
#pragma once

#include <climits>
#include <cstdint>

/// Truncation toward zero into a 32-bit int, as cvttsd2si does: NaN and
/// values whose truncation lies outside [INT_MIN, INT_MAX] give INT_MIN.
inline int TruncateToInt(double x)
{
    if (!(x > -2147483649.0 && x < 2147483648.0))
        return INT_MIN;
    return static_cast<int>(x);
}

/// A 64-bit value held at the ends of the 32-bit range.
inline int SaturateToInt(long long value)
{
    return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

/// 32-bit sum, difference and negation that wrap around as the processor's
/// instructions do (-INT_MIN stays INT_MIN).
inline int WrappingAdd(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

inline int WrappingSubtract(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

inline int WrappingNegate(int value) { return WrappingSubtract(0, value); }
