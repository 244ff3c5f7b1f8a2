#include "support/numeric/AxisScaling.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();
const double kTiny = std::numeric_limits<double>::denorm_min();

// Same double bit for bit; NaN matches NaN.
bool Same(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || std::memcmp(&a, &b, sizeof a) == 0;
}

// A table entry times a correctly rounded power of ten may differ in the
// last bit from the decimal literal: within 4 ulps; non-finite exactly.
void ExpectNiceNear(double expected, double actual, const char* what, double input)
{
    if (std::isfinite(expected))
        EXPECT_DOUBLE_EQ(expected, actual) << what << "(" << input << ")";
    else
        EXPECT_TRUE(Same(expected, actual)) << what << "(" << input << "): expected " << expected << ", got " << actual;
}

// NiceAxis and NiceAxisCoarse as the rule counts, the reference for the
// library's direct form. The second pass's downward count gives up only when
// its 32-bit counter, run down through INT_MIN and wrapped, reads 1000.
void LiteralSnap(double& min, double step, bool secondPass)
{
    if (min >= 0) {
        for (int k = 0; k < 1000; ++k)
            if (k * step > min) {
                min = (k - 1) * step;
                return;
            }
        min = 0;
        return;
    }
    for (int k = 0; k != (secondPass ? 1000 : -1000); k = k == INT_MIN ? INT_MAX : k - 1)
        if (min >= k * step) {
            min = k * step;
            return;
        }
    min = 0;
}

// Returns whether the second pass ran.
bool LiteralAxis(int n, double& min, double& max, double& step, int keepMin, bool coarse)
{
    const double min0 = min, max0 = max;
    step = (coarse ? NiceStep : NiceCeil)(std::fabs(max0 - min0) / n);
    if (keepMin != 0) {
        max = min + n * step;
        return false;
    }
    LiteralSnap(min, step, false);
    max = n * step + min;
    if (!(max0 >= max))
        return false;
    step = NiceCeil(std::fabs(NiceCeil(max0) - NiceFloor(min0)) / n);
    LiteralSnap(min, step, true);
    max = n * step + min;
    return true;
}

TEST(AxisScaling, NiceNumbersFollowTheirTables)
{
    struct Case {
        double (*function)(double);
        const char* name;
        double input, expected;
    } table[] = {
        {DecadeUnit, "DecadeUnit", 0.1, 0.01},        // mantissa 10 at the powers of a tenth
        {DecadeUnit, "DecadeUnit", 1e-300, 1e-301},   // far down, still correctly rounded
        {DecadeUnit, "DecadeUnit", 0, 0},             // 10^-infinity
        {DecadeUnit, "DecadeUnit", -1, kNaN},         // no log of a negative
        {NiceCeil, "NiceCeil", 0.37, 0.4},            // next entry above 3.7
        {NiceCeil, "NiceCeil", 1, 1.5},               // on an entry: strictly above
        {NiceCeil, "NiceCeil", 10, 15},               // mantissa 1 at unit 10
        {NiceCeil, "NiceCeil", 0.1, 0.1},             // mantissa 10 stays 10
        {NiceCeil, "NiceCeil", -3.7, -2.5},           // one unit toward zero first
        {NiceCeil, "NiceCeil", -2, -0.1},             // t = 1 is not above 1: 0.1
        {NiceCeil, "NiceCeil", -9.5, -8},             // t = 8.5
        {NiceCeil, "NiceCeil", -10, -1},              // mantissa 1 at unit 10
        {NiceCeil, "NiceCeil", kNaN, kNaN},           // no sign: NaN back
        {NiceFloor, "NiceFloor", 1, 0.5},             // on an entry: strictly below
        {NiceFloor, "NiceFloor", 10, 5},              // mantissa 1 at unit 10
        {NiceFloor, "NiceFloor", 0.05, 0.045},        // 4.5 units of 0.01
        {NiceFloor, "NiceFloor", -3.7, -4},           // away from zero, no shift
        {NiceFloor, "NiceFloor", -0.1, -0.1},         // mantissa 10: nothing above it
        {NiceStep, "NiceStep", 0.3, 0.5},             // 1-2-5
        {NiceStep, "NiceStep", 10, 20},               // on an entry: strictly above
        {NiceStep, "NiceStep", 0.1, 0.1},             // mantissa 10: 10 units, not above
        {NiceTickStep, "NiceTickStep", 1.2, 0.1},     // mantissas up to 1.5 drop to a tenth
        {NiceTickStep, "NiceTickStep", 1.6, 1.5},     //  and just above 1.5 do not
        {NiceTickStep, "NiceTickStep", 6, 5},         // largest entry
        {NiceTickStep, "NiceTickStep", 0.1, 0.05},    // mantissa 10 at unit 0.01
    };
    for (const Case& c : table)
        ExpectNiceNear(c.expected, c.function(c.input), c.name, c.input);
    EXPECT_EQ(10.0, 0.1 / DecadeUnit(0.1)) << "the mantissa of 0.1 is exactly 10";
}

TEST(AxisScaling, NiceRangeWidensToMultiplesOfItsStep)
{
    struct Case {
        double min, max, step, newMin, newMax;
    } table[] = {
        {0, 1, 0.1, 0, 1},              // span 1: exponent -1, mantissa 10
        {3, 47, 5, 0, 50},              // r = 4.4: half units
        {-47, -3, 5, -50, 0},           // negative limits round outward
        {5, 5, 0, 0, 0},                // zero span: step 0
        {7, -3, kNaN, kNaN, kNaN},      // negative span
    };
    for (const Case& c : table) {
        double min = c.min, max = c.max;
        ExpectNiceNear(c.step, NiceRange(min, max), "NiceRange step", c.min);
        ExpectNiceNear(c.newMin, min, "NiceRange min", c.min);
        ExpectNiceNear(c.newMax, max, "NiceRange max", c.min);
    }
}

TEST(AxisScaling, NiceAxisSnapsMinAndWidensOnASecondPass)
{
    struct Case {
        int n;
        double min, max;
        int keepMin;
        double newMin, newMax, step;
    } table[] = {
        {5, 0, 10, 0, 0, 12.5, 2.5},      // NiceCeil(2); 10 < 12.5: one pass
        {5, 0.3, 10, 1, 0.3, 10.3, 2},    // keepMin: min not snapped
        {4, 2.9, 10, 0, 0, 16, 4},        // 2..10 does not pass 10: second step 4
        {4, -7, 7, 0, -8, 8, 4},          // snapped down below zero
        {3, 5000, 5001, 0, 0, 1800, 600}, // min beyond 1000 steps: 0, then (6000 - 4500) / 3
    };
    for (const Case& c : table) {
        double min = c.min, max = c.max, step = -1;
        NiceAxis(c.n, min, max, step, c.keepMin);
        ExpectNiceNear(c.newMin, min, "NiceAxis min", c.min);
        ExpectNiceNear(c.newMax, max, "NiceAxis max", c.min);
        ExpectNiceNear(c.step, step, "NiceAxis step", c.min);
    }
}

// The direct forms against the counting forms, bit for bit, over random
// axes: magnitudes 1e-12 to 1e12, either sign, reversed, zero and tiny spans,
// limits on exact multiples, n from -2 to 30 and a few huge n (n < 1 is
// outside the domain but must still agree). About a fifth take the second pass.
TEST(AxisScaling, NiceAxisMatchesTheCountingRuleOnRandomAxes)
{
    std::mt19937_64 random(20240605);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    std::uniform_int_distribution<int> exponent(-12, 12), kind(0, 5), divisions(-2, 30), quarter(-20, 20);
    const int hugeDivisions[] = {1000, 65536, INT_MAX};
    const int samples = 200000;
    int secondPasses = 0;
    for (int i = 0; i < samples; ++i) {
        const double scale = std::pow(10.0, exponent(random));
        double min = unit(random) * scale, max = unit(random) * scale;
        switch (kind(random)) {
        case 0: max = min; break;                                         // zero span
        case 1: max = min + std::fabs(min) * 1e-13 * unit(random); break; // tiny span
        case 2: min = quarter(random) * scale / 4, max = quarter(random) * scale / 4; break; // on multiples
        case 3: min = std::fabs(min), max = min + std::fabs(max); break;  // positive
        case 4: max = -std::fabs(max), min = max - std::fabs(min); break; // negative
        }
        const int n = i % 16 == 3 ? hugeDivisions[i % 3] : divisions(random);
        const int keepMin = i % 10 == 0;
        const bool coarse = i % 2 == 1;
        double expMin = min, expMax = max, expStep = 0, gotMin = min, gotMax = max, gotStep = 0;
        secondPasses += LiteralAxis(n, expMin, expMax, expStep, keepMin, coarse);
        (coarse ? NiceAxisCoarse : NiceAxis)(n, gotMin, gotMax, gotStep, keepMin);
        ASSERT_TRUE(Same(expMin, gotMin) && Same(expMax, gotMax) && Same(expStep, gotStep))
            << (coarse ? "NiceAxisCoarse(" : "NiceAxis(") << n << ", " << std::hexfloat << min << ", " << max
            << ", " << keepMin << "): counted " << expMin << " " << expMax << " " << expStep << ", direct "
            << gotMin << " " << gotMax << " " << gotStep;
    }
    EXPECT_GT(secondPasses, samples / 10) << "the sample must exercise the second pass";
}

// The longest counts return at once. Below, the second pass gets step 0 (the
// nice numbers of denormal limits underflow) with min < 0, where the count
// runs through all 2^32 counter values: seconds, so the counting form is not
// run here (it gives the same 0, 0, 0).
TEST(AxisScaling, NiceAxisWorstCasesReturnDefinedValues)
{
    double min = -2 * kTiny, max = kTiny, step = -1;
    NiceAxis(1, min, max, step, 0);
    EXPECT_TRUE(Same(0.0, min) && Same(0.0, max) && Same(0.0, step)) << min << " " << max << " " << step;
    const double limits[] = {kNaN, kInf, -kInf, 0, -1e308, 1e308, -kTiny};
    for (int n : {INT_MIN, -1, 0, 1, INT_MAX})
        for (double a : limits)
            for (double b : limits) {
                double lo = a, hi = b, s = 0;
                NiceAxis(n, lo, hi, s, 0);
                lo = a, hi = b;
                NiceAxisCoarse(n, lo, hi, s, 0);
            }
}

TEST(AxisScaling, DivisionCountsCoverTheSpan)
{
    struct Case {
        double span;
        int count;
        double step;
        int positiveCount; // NiceDivisionsPositive, checked for span > 0
        double positiveStep;
    } table[] = {
        {1, 5, 0.2, 5, 0.2},       // mantissa 1: fifths
        {3.5, 8, 0.5, 9, 0.5},     // half units; a fraction adds one
        {7.5, 5, 2, 9, 1},         // RoundToInt(4.75) = 5 double units; trunc(8) + 1 units
        {25, 6, 5, 7, 5},          // 2 * 2.5 + 1 = 6; 2 * trunc(3) + 1 = 7
        {0.1, 10, 0.01, 10, 0.01}, // mantissa 10 at unit 0.01: whole units
        {-25, 6, -5, 0, 0},        // negative: step negated
        {0, 0, 0, INT_MIN, 0},     // zero: NaN mantissa, no divisions / INT_MIN
    };
    for (const Case& c : table) {
        double step = 0;
        EXPECT_EQ(c.count, NiceDivisions(c.span, step)) << "NiceDivisions(" << c.span << ")";
        ExpectNiceNear(c.step, step, "NiceDivisions step", c.span);
        if (c.span < 0)
            continue;
        EXPECT_EQ(c.positiveCount, NiceDivisionsPositive(c.span, step)) << "NiceDivisionsPositive(" << c.span << ")";
        ExpectNiceNear(c.positiveStep, step, "NiceDivisionsPositive step", c.span);
    }
}

TEST(AxisScaling, LogAxisPositionKeepsTheEndsAndSpacesByLog)
{
    // Through log10 of round numbers: within 1e-12 of the exact values.
    EXPECT_NEAR(100.0, LogAxisPosition(1, 100, 100), 1e-12);
    EXPECT_NEAR(50.5, LogAxisPosition(1, 100, 10), 1e-12); // the middle decade
    EXPECT_EQ(0.0, LogAxisPosition(1, 100, 0));
}

} // namespace
