// Conversions and sums on 32-bit ints that behave as the processor's
// instructions do, so that out-of-range input gives a defined value instead
// of undefined behaviour. Internal to the numeric routines.
#pragma once

#include <climits>
#include <cstdint>

namespace numeric_detail {

/// Truncation toward zero into a 32-bit int, as cvttsd2si does: NaN and
/// values whose truncation lies outside [INT_MIN, INT_MAX] give INT_MIN.
inline int TruncateToInt(double x)
{
    if (!(x > -2147483649.0 && x < 2147483648.0))
        return INT_MIN;
    return static_cast<int>(x);
}

/// 32-bit sum and difference that wrap around as the processor's add does.
inline int WrappingAdd(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

inline int WrappingSubtract(int a, int b)
{
    return static_cast<int>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

} // namespace numeric_detail
