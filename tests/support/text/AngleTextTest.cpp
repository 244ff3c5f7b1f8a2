#include "support/text/AngleText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

// Equal doubles, with NaN equal to NaN.
bool SameDouble(double a, double b)
{
    return (std::isnan(a) && std::isnan(b)) || a == b;
}

} // namespace

TEST(AngleText, DegreesToDmsSplitsThroughText)
{
    struct Case {
        double value;
        double degrees, minutes, seconds;
    };
    const Case cases[] = {
        {35.5, 35, 30, 0},
        {139.7625, 139, 45, 45},                   // 44.99999999995907 s rounded at 7 decimals
        {0.000001, 0, 0, 0.0036},
        {10.25, 10, 15, 0},
        {51.477928, 51, 28, 40.5408},
        {45.508333333, 45, 30, 29.9999988},
        {0.0, 0, 0, 0},
        {-12.5, -12, 30, 0},                       // sign only on degrees; seconds clipped
        {-0.5, 0, 30, 0},                          // "-0" reads as 0 degrees
        {-0.000001, 0, 0, 0},
        {12.99999999, 12, 60, 0},                  // 59.9999994 prints as "60.0000"
        {1e20, 2147483647, 0, 3.5999999999226904e+23},  // degrees saturate at INT_MAX
        {kNaN, 0, 0, kNaN},
        {kInf, 0, 0, kInf},
        {-kInf, 0, 0, 0},
    };
    for (const Case& c : cases) {
        double degrees = -1, minutes = -1, seconds = -1;
        DegreesToDms(c.value, degrees, minutes, seconds);
        EXPECT_TRUE(SameDouble(degrees, c.degrees) && SameDouble(minutes, c.minutes) && SameDouble(seconds, c.seconds))
            << "DegreesToDms(" << c.value << ") expected " << c.degrees << ", " << c.minutes << ", " << c.seconds
            << ", got " << degrees << ", " << minutes << ", " << seconds;
    }
}

TEST(AngleText, TotalsFollowTheSplit)
{
    struct Case {
        double value;
        double minutes, seconds;
    };
    const Case cases[] = {
        {139.7625, 8385.75, 503145.0},
        {35.5, 2130.0, 127800.0},
        {0.000001, 0.00006, 0.0036},
        {-12.5, -690.0, -41400.0},                 // -12 degrees plus 30 minutes
        {12.99999999, 780.0, 46800.0},             // 12 degrees 60 minutes
    };
    for (const Case& c : cases) {
        EXPECT_DOUBLE_EQ(DmsToMinutes(c.value), c.minutes) << "DmsToMinutes(" << c.value << ")";
        EXPECT_DOUBLE_EQ(DmsToSeconds(c.value), c.seconds) << "DmsToSeconds(" << c.value << ")";
    }

    const double dms[3] = {1.0, 30.0, 30.0};
    double minutes = -1;
    DmsArrayToMinutes(dms, minutes);
    EXPECT_EQ(minutes, 90.5) << "1 degree 30 minutes 30 seconds";
    const double negative[3] = {-12.0, 30.0, 0.0};
    DmsArrayToMinutes(negative, minutes);
    EXPECT_EQ(minutes, -690.0) << "parts added as given";
    DmsArrayToMinutes(nullptr, minutes);
    EXPECT_EQ(minutes, 0.0) << "a null array";
}
