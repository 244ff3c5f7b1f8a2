#include "support/numeric/Fitting.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <vector>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();

void ExpectRect(const RECT& expected, const RECT& actual)
{
    EXPECT_TRUE(EqualRect(&expected, &actual))
        << "expected (" << expected.left << ", " << expected.top << ", " << expected.right << ", " << expected.bottom
        << "), got (" << actual.left << ", " << actual.top << ", " << actual.right << ", " << actual.bottom << ")";
}

TEST(Fitting, FitLineReturnsZeroAndReportsThroughItsOutputs)
{
    // Sums of a few samples: within 1e-12 of the exact least-squares line.
    struct Case {
        std::vector<double> xs, ys;
        double slope, intercept;
    } table[] = {
        {{0, 1, 2}, {1, 3, 5}, 2, 1},                     // exact line
        {{1, 2, 3, 4}, {2.1, 3.9, 6.2, 7.8}, 1.94, 0.15}, // noisy samples
        {{0, 1, 2}, {1, 3, 5, 7}, 0, 0},                  // sizes differ
        {{2, 2, 2}, {1, 3, 5}, 0, 0},                     // all x equal
    };
    for (const Case& c : table) {
        double slope = -1, intercept = -1;
        EXPECT_EQ(0, FitLine(c.xs, c.ys, slope, intercept));
        EXPECT_NEAR(c.slope, slope, 1e-12) << "with " << c.xs.size() << " x";
        EXPECT_NEAR(c.intercept, intercept, 1e-12) << "with " << c.xs.size() << " x";
    }
    double slope = 0, intercept = 0;
    FitLine({0, 1, kNaN}, {1, 3, 5}, slope, intercept);
    EXPECT_TRUE(std::isnan(slope) && std::isnan(intercept)) << slope << ", " << intercept;
}

TEST(Fitting, FitSizeToBoxKeepsTheLimitingSide)
{
    struct Case {
        double aspectW, aspectH, boxW, boxH;
        RECT expected;
    } table[] = {
        {4, 3, 800, 800, {0, 0, 800, 600}},          // wider: width limits
        {3, 4, 800, 800, {0, 0, 600, 800}},          // taller: height limits
        {1, 1, 640, 480, {0, 0, 480, 480}},          // square in a wide box
        {16, 9, 1000, 1000, {0, 0, 1000, 562}},      // 562.5 truncated
        {4, 0, 800.9, 600, {0, 0, 800, 600}},        // aspectH 0: the whole box, truncated
        {4, 3, 800, kNaN, {0, 0, INT_MIN, INT_MIN}}, // NaN: the conversion's INT_MIN
    };
    for (const Case& c : table)
        ExpectRect(c.expected, FitSizeToBox(c.aspectW, c.aspectH, c.boxW, c.boxH));
}

TEST(Fitting, FitRectToRectKeepsTheBoxTopLeft)
{
    const int kMin = INT_MIN, kMax = INT_MAX;
    struct Case {
        RECT shape, box, expected;
    } table[] = {
        {{0, 0, 100, 50}, {10, 20, 110, 220}, {10, 20, 110, 70}},   // wide shape in a tall box
        {{0, 0, 100, 100}, {0, 0, 300, 200}, {0, 0, 200, 200}},     // square in a wide box
        {{0, 5, 100, 5}, {10, 20, 110, 220}, {10, 20, 110, 220}},   // flat shape: the box
        {{0, 0, 100, 50}, {110, 220, 10, 20}, {110, 220, 10, 170}}, // reversed box, not normalised
        {{0, 0, 1, 1}, {kMin, kMin, kMax, kMax}, {kMin, kMin, kMax, kMax}}, // sizes wrap to -1
    };
    for (const Case& c : table)
        ExpectRect(c.expected, FitRectToRect(c.shape, c.box));
}

} // namespace
