#include "support/numeric/StepRounding.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(StepRounding, RoundToStepPicksTheGridSideByModeAndDirection)
{
    // Whole multiples of whole steps: exact.
    struct Case {
        double origin, value, step;
        int upward, ceilingMode;
        double expected;
    } table[] = {
        {0, 7, 5, 1, 0, 5},                    // upward, mode 0: grid point not above
        {0, 7, 5, 1, 1, 10},                   // upward, mode 1: grid point not below
        {0, -7, 5, 1, 0, -10},                 // the same below the origin
        {0, -7, 5, 1, 1, -5},                  //  and its ceiling
        {0, 10, 5, 1, 0, 10},                  // on the grid: unchanged
        {0, 7, 5, 0, 0, 10},                   // downward: mode 0 rounds up
        {0, 7, 5, 0, 1, 5},                    //  and mode 1 down
        {2, 8, -5, 1, 1, 12},                  // grid 2 + 5i; a negative step counts as 5
        {3, 7, 0, 1, 0, 3},                    // step 0: the origin
        {1, kNaN, 5, 1, 1, 1},                 // NaN value: RoundToInt's count 0
        {1, kNaN, 5, 1, 0, 1 + INT_MIN * 5.0}, // NaN value: truncation's INT_MIN
    };
    for (const auto& c : table)
        EXPECT_EQ(c.expected, RoundToStep(c.origin, c.value, c.step, c.upward, c.ceilingMode))
            << "RoundToStep(" << c.origin << ", " << c.value << ", " << c.step << ", " << c.upward << ", "
            << c.ceilingMode << ")";
    EXPECT_EQ(5.0, RoundToStepFromZero(7, 5, 1, 0));
}

TEST(StepRounding, SignedTruncAddsTheBiasAwayFromZero)
{
    struct Case {
        double v, bias;
        int expected;
    } table[] = {
        {-2.7, 0, -2},               // truncation toward zero
        {-2.5, 0.5, -3},             // halves away from zero
        {2.4, -0.5, 2},              // the bias's sign is dropped
        {2147483647.9, 0, INT_MAX},  // largest in range
        {-3e9, 0, INT_MIN},          // out of range: the conversion's INT_MIN
        {kNaN, 0, INT_MIN},          // NaN likewise
    };
    for (const auto& c : table)
        EXPECT_EQ(c.expected, SignedTrunc(c.v, c.bias)) << "SignedTrunc(" << c.v << ", " << c.bias << ")";
}

TEST(StepRounding, RoundToDigitsKeepsDigitsMinusOneDecimals)
{
    // Read back by a correctly rounding atof: exact doubles.
    struct Case {
        double v;
        int digits;
        double expected;
    } table[] = {
        {2.345678, 3, 2.35},           // "%.2f"
        {-1.005, 3, -1.0},             // -1.00499999... prints "-1.00"
        {2.345678, 0, 2.345678},       // digits < 1: unchanged
        {0.1, INT_MAX, 0.1},           // huge precision: the exact text, same value
        {-1e308, 2000, -1e308},        // the longest text
    };
    for (const auto& c : table)
        EXPECT_EQ(c.expected, RoundToDigits(c.v, c.digits)) << "RoundToDigits(" << c.v << ", " << c.digits << ")";
    EXPECT_TRUE(std::isnan(RoundToDigits(kNaN, 3)));
}

} // namespace
