#include "support/numeric/PlaneGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace {

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kPi = std::acos(-1.0);
// Through sin, cos and atan2 of unit-sized values: a few ulps, so 1e-12.
const double kTolerance = 1e-12;

TEST(PlaneGeometry, RotatePointTurnsCounterClockwise)
{
    double rx = 0, ry = 0;
    RotatePoint(1, 0, rx, ry, 90);
    EXPECT_NEAR(0.0, rx, kTolerance);
    EXPECT_EQ(1.0, ry);
}

TEST(PlaneGeometry, DirectionAngleIsWhereTheVectorComesFromExceptOnTheYAxis)
{
    struct Case {
        double x, y, expected;
    } table[] = {
        {1, 0, 270},                   // pointing east: from the west
        {1, 1, 225},                   // pointing north-east
        {1e-9, 1, 180 + 180e-9 / kPi}, // just east of north: just above 180
        {0, 5, 0},                     // y axis: where it points to (intended)
        {0, -5, 180},                  //  likewise
        {0, kNaN, 0},                  // x == 0 decides before y is looked at
    };
    for (const Case& c : table)
        EXPECT_NEAR(c.expected, DirectionAngle(c.x, c.y), kTolerance) << "(" << c.x << ", " << c.y << ")";
}

TEST(PlaneGeometry, PointInSectorChecksDistanceThenDirection)
{
    // Centre (0, 0), radius 10.
    struct Case {
        double start, end, px, py;
        int inclusive, expected;
    } table[] = {
        {90, 180, -5, 0, 1, 1},        // on the start direction: inside when inclusive
        {90, 180, -5, 0, 0, 0},        //  and outside when exclusive
        {90, 180, -5, 5, 0, 1},        // direction 135
        {90, 180, 0, 20, 1, 0},        // too far
        {90, 180, -10, 0, 0, 0},       // on the arc, exclusive
        {90, 180, 0, 0, 1, 1},         // the centre, inclusive
        {300, 30, 0.87, -4.92, 1, 1},  // end below start goes to 390: direction 350
        {800, 1100, 1.71, 4.70, 1, 1}, // start 80, end 1100 mod 720 = 380: direction 200
        {kNaN, 180, -5, 0, 1, 0},      // NaN angle
    };
    for (const Case& c : table)
        EXPECT_EQ(c.expected, PointInSector(0, 0, 10, c.start, c.end, c.px, c.py, c.inclusive))
            << "start " << c.start << " end " << c.end << " point (" << c.px << ", " << c.py << ") inclusive "
            << c.inclusive;
}

TEST(PlaneGeometry, NearestPointPrefersTheFirstOnTies)
{
    const std::vector<double> xs = {0, 2, 0}, ys = {0, 0, 2};
    EXPECT_EQ(0, NearestPoint(1, 1, xs, ys)); // all three at sqrt(2)
    EXPECT_EQ(2, NearestPoint(0.1, 3, xs, ys));
    EXPECT_EQ(-1, NearestPoint(1, 1, xs, {0, 0}));
    EXPECT_EQ(-1, NearestPoint(1, 1, {}, {}));
    EXPECT_EQ(1, NearestPoint(0, 0, {kNaN, 3}, {0, 0})); // NaN distances are passed over
}

TEST(PlaneGeometry, RaySegmentIntersectionFlagsWhereTheCrossingLies)
{
    struct Case {
        double x0, y0, theta, ax, ay, bx, by;
        int flag;
        double ix, iy;
    } table[] = {
        {0, 0, 0, 2, -1, 2, 1, 0, 2, 0},      // ahead, on the segment
        {0, 0, 0, -2, -1, -2, 1, 1, -2, 0},   // behind the origin
        {0, 0, 0, 2, 1, 2, 3, 1, 2, 0},       // ahead, off the segment
        {1, 1, kPi / 2, 0, 3, 2, 3, 0, 1, 3}, // theta in radians
        {0, 0, 0, 1, 1, 3, 1, -1, 42, 42},    // parallel: point untouched
        {0, 0, kNaN, 2, -1, 2, 1, 1, kNaN, kNaN}, // NaN: flag 1, NaN point
    };
    for (const Case& c : table) {
        double ix = 42, iy = 42;
        int flag = 7;
        RaySegmentIntersection(c.x0, c.y0, c.theta, c.ax, c.ay, c.bx, c.by, ix, iy, flag);
        EXPECT_EQ(c.flag, flag) << "A (" << c.ax << ", " << c.ay << ") B (" << c.bx << ", " << c.by << ")";
        EXPECT_TRUE(std::isnan(c.ix) ? std::isnan(ix) && std::isnan(iy)
                                     : std::fabs(c.ix - ix) < kTolerance && std::fabs(c.iy - iy) < kTolerance)
            << "expected (" << c.ix << ", " << c.iy << "), got (" << ix << ", " << iy << ")";
    }
}

} // namespace
