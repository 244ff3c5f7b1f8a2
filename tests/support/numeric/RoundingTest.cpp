#include "support/numeric/Rounding.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

namespace {

const double kNaN = std::nan("");
const double kInf = HUGE_VAL;

// The rounding rule written out literally: shift a non-integer by one half
// away from zero, print with "%.0f", read the text back; texts outside the
// 32-bit range saturate (the library's documented choice).
int LiteralRoundToInt(double x)
{
    if (std::fmod(x, 1.0) != 0.0)
        x = (x < 0.0 ? -1.0 : 1.0) * 0.5 + x;
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", x);
    const long long value = std::strtoll(text, nullptr, 10);
    return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

} // namespace

TEST(Rounding, RoundToIntPushesFractionsAwayFromZeroInEveryRoundingMode)
{
    const struct { double x; int expected; } cases[] = {
        {2.1, 3}, {2.5, 3}, {0.1, 1}, {-2.1, -3}, {-0.1, -1}, {3.3000000000000003, 4}, {1e9 + 0.1, 1000000001},
        {2.0, 2}, {-7.0, -7}, {-0.0, 0},                       // whole values pass unchanged
        {std::ldexp(1.0, -60), 0}, {-std::ldexp(1.0, -60), 0},   // shifted to exactly 1/2: ties to even
        {0x1.fffffffffffffp-1, 2},                              // shifted to 1.5 by the addition's rounding
        {kNaN, 0}, {kInf, 0}, {-kInf, 0},                      // texts without digits
        {2147483647.5, INT_MAX}, {1e300, INT_MAX}, {-2147483648.5, INT_MIN}, {-1e300, INT_MIN},  // saturate
    };
    // Regression: a host that had switched the processor to truncation got 2
    // for 2.1; the result must not depend on the mode.
    for (unsigned mode : {_RC_CHOP, _RC_UP, _RC_DOWN, _RC_NEAR}) {
        _controlfp(mode, _MCW_RC);
        for (const auto& c : cases)
            EXPECT_EQ(c.expected, RoundToInt(c.x)) << "x = " << c.x << " in rounding mode " << mode;
    }
}

// The fast path against the literal rule on the inputs built to be hard.
TEST(Rounding, RoundToIntMatchesTheTextRule)
{
    std::vector<double> hard = {std::ldexp(1.0, -54), std::ldexp(1.0, -53), std::numeric_limits<double>::denorm_min(),
                                std::ldexp(1.0, 51) + 0.5, std::ldexp(1.0, 51) - 0.25, 0.49999999999999994, kNaN, kInf};
    // Whole numbers, halves and quarters around them, from 0 to beyond the 32-bit range, and their neighbours.
    for (double anchor : {0.0, 1.0, 3.0, 1e6, 2147483646.0, 2147483647.0, 2147483648.0, 4294967296.0, 1e15, 1e20})
        for (double v : {anchor, anchor + 0.5, anchor - 0.5, anchor + 0.25, anchor - 0.75})
            hard.insert(hard.end(), {v, std::nextafter(v, kInf), std::nextafter(v, -kInf)});
    // Every power of two up to 2^33 and the four doubles either side of it.
    for (int m = 0; m <= 33; ++m)
        for (double below = std::ldexp(1.0, m), above = below, k = 0; k <= 4;
             ++k, below = std::nextafter(below, 0.0), above = std::nextafter(above, kInf))
            hard.insert(hard.end(), {below, above});
    for (double x : hard)
        for (double value : {x, -x})
            EXPECT_EQ(LiteralRoundToInt(value), RoundToInt(value)) << "x = " << std::hexfloat << value;
}

TEST(Rounding, RoundHalfAwayRoundsToNearestWithHalvesAwayFromZero)
{
    const struct { double x; int expected; } cases[] = {
        {2.5, 3}, {2.4, 2}, {-2.5, -3}, {-2.4, -2}, {-0.0, 0}, {0.5, 1}, {-0.5, -1}, {5.7735, 6},
        {2147483647.4, INT_MAX}, {-2147483648.4, INT_MIN},
        {2147483647.5, INT_MIN}, {1e300, INT_MIN}, {kInf, INT_MIN}, {kNaN, INT_MIN},  // the conversion's out-of-range value
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, RoundHalfAway(c.x)) << "x = " << c.x;
}
