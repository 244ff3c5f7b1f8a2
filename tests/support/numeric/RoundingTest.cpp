#include "support/numeric/Rounding.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <vector>

const double kNaN = std::nan(""), kInf = HUGE_VAL;

// The rounding rule written out literally: shift a non-integer by one half
// away from zero, print with "%.0f", read the text back; texts outside the
// 32-bit range saturate (the library's documented choice).
static int LiteralRoundToInt(double x)
{
    if (std::fmod(x, 1.0) != 0.0)
        x = (x < 0.0 ? -1.0 : 1.0) * 0.5 + x;
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", x);
    const long long value = std::strtoll(text, nullptr, 10);
    return value > INT_MAX ? INT_MAX : value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

// The fast path against the literal rule on inputs built to be hard, in every processor rounding mode.
// Regression: a host that had switched the processor to truncation got 2 for 2.1.
TEST(Rounding, RoundToIntMatchesTheTextRuleInEveryRoundingMode)
{
    std::vector<double> hard = {std::ldexp(1.0, -54), std::ldexp(1.0, -60), std::numeric_limits<double>::denorm_min(),
                                std::ldexp(1.0, 51) + 0.5, 0.49999999999999994, 2.1, 3.3000000000000003, kNaN, kInf};
    // Whole numbers, halves and quarters around them, from 0 to beyond the 32-bit range, and their neighbours.
    for (double anchor : {0.0, 1.0, 1e6, 2147483647.0, 2147483648.0, 1e15, 1e300})
        for (double v : {anchor, anchor + 0.5, anchor - 0.5, anchor + 0.25, anchor - 0.75})
            hard.insert(hard.end(), {v, std::nextafter(v, kInf), std::nextafter(v, -kInf)});
    for (unsigned mode : {_RC_CHOP, _RC_UP, _RC_DOWN, _RC_NEAR})
        for (double x : hard)
            for (double value : {x, -x}) {
                _controlfp(mode, _MCW_RC);
                const int got = RoundToInt(value);
                _controlfp(_RC_NEAR, _MCW_RC);
                EXPECT_EQ(LiteralRoundToInt(value), got) << "x = " << std::hexfloat << value << ", mode " << mode;
            }
}

TEST(Rounding, RoundHalfAwayRoundsToNearestWithHalvesAwayFromZero)
{
    const struct { double x; int expected; } cases[] = {
        {2.5, 3}, {2.4, 2}, {-2.5, -3}, {-2.4, -2}, {-0.0, 0}, {5.7735, 6}, {2147483647.4, INT_MAX},
        {-2147483648.4, INT_MIN}, {2147483647.5, INT_MIN}, {kNaN, INT_MIN},  // the conversion's out-of-range value
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, RoundHalfAway(c.x)) << "x = " << c.x;
}
