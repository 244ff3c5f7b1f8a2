#include "support/numeric/Rounding.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

namespace {

// The rounding rule written out literally: shift a non-integer by one half
// away from zero, print it with "%.0f", read the text back. Texts outside
// the 32-bit range saturate (the library's documented choice for them).
int LiteralRoundToInt(double x)
{
    const double s = x < 0.0 ? -1.0 : 1.0;
    if (std::fmod(x, 1.0) != 0.0)
        x = s * 0.5 + x;
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", x);
    const long long value = std::strtoll(text, nullptr, 10);
    if (value > INT_MAX)
        return INT_MAX;
    if (value < INT_MIN)
        return INT_MIN;
    return static_cast<int>(value);
}

void ExpectSameAsLiteral(double x)
{
    EXPECT_EQ(LiteralRoundToInt(x), RoundToInt(x)) << "for x = " << std::hexfloat << x << std::defaultfloat
                                                   << " (" << x << ")";
}

std::vector<double> BoundaryValues()
{
    std::vector<double> values = {0.0, -0.0, 2.0 * std::ldexp(1.0, -54), std::ldexp(1.0, -54),
                                  -std::ldexp(1.0, -54), std::ldexp(1.0, -53), std::ldexp(1.0, -55),
                                  std::numeric_limits<double>::denorm_min(), -std::numeric_limits<double>::denorm_min(),
                                  std::numeric_limits<double>::max(), -std::numeric_limits<double>::max(),
                                  std::ldexp(1.0, 51) + 0.5, std::ldexp(1.0, 52) - 0.5, std::ldexp(1.0, 51) - 0.25,
                                  0.49999999999999994, -0.49999999999999994};
    const double anchors[] = {0, 1, 2, 3, 7, 100, 1e6, 2147483646, 2147483647, 2147483648.0, 4294967295.0,
                              4294967296.0, 1e10, 1e15, 1e20};
    for (double anchor : anchors)
        for (double sign : {1.0, -1.0}) {
            const double whole = sign * anchor;
            for (double v : {whole, whole + 0.5, whole - 0.5, whole + 0.25, whole - 0.75}) {
                values.push_back(v);
                values.push_back(std::nextafter(v, HUGE_VAL));
                values.push_back(std::nextafter(v, -HUGE_VAL));
            }
        }
    return values;
}

} // namespace

TEST(Rounding, RoundToIntPushesFractionsAwayFromZero)
{
    const struct { double x; int expected; } cases[] = {
        {2.1, 3},   {2.5, 3},   {2.9, 3},   {0.1, 1},  // positive fractions go up
        {-2.1, -3}, {-0.1, -1}, {-2.5, -3},            // negative fractions go down
        {2.0, 2},   {-7.0, -7}, {-0.0, 0},  {0.0, 0},  // whole values pass unchanged
        {3.3000000000000003, 4},                       // 3 * 1.1: a hair above 3
        {4.75, 5},  {4.5, 5},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, RoundToInt(c.x)) << "x = " << c.x;
}

TEST(Rounding, RoundToIntDocumentedChoicesForOpenCases)
{
    // Below 2^-54 the shifted value is exactly one half: ties go to even, 0.
    EXPECT_EQ(0, RoundToInt(std::ldexp(1.0, -60)));
    EXPECT_EQ(0, RoundToInt(-std::ldexp(1.0, -60)));
    EXPECT_EQ(0, RoundToInt(std::numeric_limits<double>::denorm_min()));
    EXPECT_EQ(1, RoundToInt(std::ldexp(1.0, -52)));
    // Texts without digits read as 0.
    EXPECT_EQ(0, RoundToInt(std::nan("")));
    EXPECT_EQ(0, RoundToInt(HUGE_VAL));
    EXPECT_EQ(0, RoundToInt(-HUGE_VAL));
    // Texts beyond the 32-bit range saturate.
    EXPECT_EQ(INT_MAX, RoundToInt(2147483647.5));
    EXPECT_EQ(INT_MAX, RoundToInt(1e300));
    EXPECT_EQ(INT_MIN, RoundToInt(-2147483648.5));
    EXPECT_EQ(INT_MIN, RoundToInt(-1e300));
    EXPECT_EQ(INT_MIN, RoundToInt(-2147483648.0));
}

TEST(Rounding, RoundToIntMatchesTheTextRuleAtBoundaries)
{
    for (double x : BoundaryValues())
        ExpectSameAsLiteral(x);
    ExpectSameAsLiteral(std::nan(""));
    ExpectSameAsLiteral(HUGE_VAL);
    ExpectSameAsLiteral(-HUGE_VAL);
}

TEST(Rounding, RoundToIntMatchesTheTextRuleOnRandomDoubles)
{
    // Two million values: uniform over the 32-bit range, and random bit
    // patterns whose magnitudes span 2^-60 to 2^33, which hit fraction
    // bits of every weight.
    std::mt19937_64 random(20261121);
    std::uniform_real_distribution<double> uniform(-2147483648.0 * 1.01, 2147483648.0 * 1.01);
    std::uniform_int_distribution<int> exponent(-60, 33);
    std::uniform_int_distribution<long long> mantissa(0, (1LL << 53) - 1);
    int mismatches = 0;
    for (int i = 0; i < 1000000 && mismatches < 10; ++i) {
        const double a = uniform(random);
        const double b = std::ldexp(static_cast<double>(mantissa(random)) / 9007199254740992.0 + 0.5, exponent(random)) *
                         (i % 2 ? -1.0 : 1.0);
        for (double x : {a, b})
            if (LiteralRoundToInt(x) != RoundToInt(x)) {
                ++mismatches;
                ExpectSameAsLiteral(x);
            }
    }
    EXPECT_EQ(0, mismatches);
}

TEST(Rounding, RoundHalfAwayRoundsToNearestWithHalvesAwayFromZero)
{
    const struct { double x; int expected; } cases[] = {
        {2.5, 3},   {2.4, 2},   {-2.5, -3}, {-2.4, -2},
        {0.0, 0},   {-0.0, 0},  {0.5, 1},   {-0.5, -1},
        {5.7735, 6}, {-5.7735, -6},
        {2147483647.4, 2147483647}, {-2147483648.4, INT_MIN},
        // Out of range and NaN: the truncating conversion's INT_MIN.
        {2147483647.5, INT_MIN}, {1e300, INT_MIN}, {HUGE_VAL, INT_MIN}, {-HUGE_VAL, INT_MIN},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, RoundHalfAway(c.x)) << "x = " << c.x;
    EXPECT_EQ(INT_MIN, RoundHalfAway(std::nan("")));
}
