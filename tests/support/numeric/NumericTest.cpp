#include "support/numeric/Numeric.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <iomanip>
#include <random>
#include <sstream>

using Values = std::vector<double>;
const double kNaN = std::nan(""), kInf = HUGE_VAL, kPi = std::acos(-1.0);

static Values V(double x) { return {x}; }
static Values V(Values v) { return v; }
static Values V(const RECT& r) { return {1.0 * r.left, 1.0 * r.top, 1.0 * r.right, 1.0 * r.bottom}; }
static Values V(const Ellipsoid& e) { return {e.semiMajorAxis, e.inverseFlattening}; }
struct Entry { Values actual, expected; const char* what; double tolerance = 0; };
// A table entry: an expression and the first values it must give, exactly or within a tolerance.
#define E(actual, ...) Entry{V(actual), {__VA_ARGS__}, #actual}
#define WITHIN(tolerance, actual, ...) Entry{V(actual), {__VA_ARGS__}, #actual, tolerance}
#define EXACT(actual, ...) Entry{V(actual), {__VA_ARGS__}, #actual, -1}

// Each value within the entry's or the table's tolerance, or relatively within 1e-15 (a few ulps: a table entry
// times a power of ten may be off in the last bit), or bit for bit for EXACT; NaN matches NaN. The message names
// each value that fails.
static testing::AssertionResult Same(const char*, const char*, const std::vector<Entry>& entries, double tolerance)
{
    std::ostringstream failures;
    for (const Entry& x : entries)
        for (std::size_t i = 0; i < x.expected.size(); ++i)
            if (const double e = x.expected[i], a = x.actual.at(i); !(e == a || (std::isnan(e) && std::isnan(a))
                    || (x.tolerance >= 0 && std::fabs(e - a) <= std::max({tolerance, x.tolerance, 1e-15 * std::fabs(e)}))))
                failures << "\n" << x.what << " [" << i << "]: expected " << std::setprecision(17) << e << ", got " << a;
    return failures.str().empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << failures.str();
}
#define EXPECT_TABLE(tolerance, ...) EXPECT_PRED_FORMAT2(Same, (std::vector<Entry>{__VA_ARGS__}), tolerance)

// NiceAxis and NiceAxisCoarse as the rule counts; the second pass's downward count gives up only when its 32-bit
// counter, run down through INT_MIN and wrapped, reads 1000. Returns whether the second pass ran.
static bool LiteralAxis(int n, double& min, double& max, double& step, int keepMin, bool coarse)
{
    const auto snap = [&](bool secondPass) {
        for (int k = 0; min >= 0 && k < 1000; ++k)
            if (k * step > min) return void(min = (k - 1) * step);
        for (int k = 0; min < 0 && k != (secondPass ? 1000 : -1000); k = k == INT_MIN ? INT_MAX : k - 1)
            if (min >= k * step) return void(min = k * step);
        min = 0;
    };
    const double min0 = min, max0 = max;
    step = (coarse ? NiceStep : NiceCeil)(std::fabs(max0 - min0) / n);
    if (keepMin != 0) return max = min + n * step, false;
    if (snap(false), !(max0 >= (max = n * step + min))) return false;
    step = NiceCeil(std::fabs(NiceCeil(max0) - NiceFloor(min0)) / n);
    return snap(true), max = n * step + min, true;
}

TEST(AxisScalingAndStepRounding, DecadeRuleNiceNumbersAxesAndStepGridsAndTheCountingRule)
{
    const auto range = [](double min, double max) { Values v{-1, min, max}; v[0] = NiceRange(v[1], v[2]); return v; };
    const auto parts = [](double span) { Values v(4, -1.0); // count, step of NiceDivisions, then of ...Positive
        return v[0] = NiceDivisions(span, v[1]), v[2] = NiceDivisionsPositive(span, v[3]), v; };
    const auto axis = [](int n, double lo, double hi, int keepMin = 0, bool coarse = false) {
        Values v{lo, hi, -1};
        return (coarse ? NiceAxisCoarse : NiceAxis)(n, v[0], v[1], v[2], keepMin), v;
    };
    // The decade rule is trunc of log10 in doubles (kept): log10 rounds these to -5 and 2, so the mantissa is just
    // above 10 or just below 1 and the results cross the input; 10 times the unit 1e-6 is the double below 1e-5.
    const double above = std::nextafter(1e-5, 1.0), below = std::nextafter(100.0, 0.0), tenUnits = 9.9999999999999991e-06;
    EXPECT_TABLE(0,
        EXACT(DecadeUnit(above), 1e-6), EXACT(NiceCeil(above), tenUnits), EXACT(NiceStep(above), tenUnits),
        EXACT(NiceFloor(-above), -tenUnits), EXACT(DecadeUnit(below), 100), EXACT(NiceFloor(below), 50),
        EXACT(NiceTickStep(below), 10), EXACT(NiceCeil(below), 100),
        // 0.1 has the mantissa 10; 0 is 10^-infinity. Nice numbers strictly above (below) the mantissa; negatives
        // first move one unit toward zero (-2: nothing is below 1). Mantissas up to 1.5 tick a tenth of the unit.
        E(DecadeUnit(1000), 1000), E(DecadeUnit(0.1), 0.01), E(DecadeUnit(0), 0), E(DecadeUnit(-1), kNaN),
        E(NiceCeil(10), 15), E(NiceCeil(0.1), 0.1), E(NiceCeil(-3.7), -2.5), E(NiceCeil(-2), -0.1), E(NiceFloor(10), 5),
        E(NiceFloor(0.1), 0.09), E(NiceFloor(-1), -1.5), E(NiceFloor(-0.1), -0.1), E(NiceStep(7), 10), E(NiceStep(10), 20),
        E(NiceStep(kInf), kInf), E(NiceTickStep(1.5), 0.1), E(NiceTickStep(1.6), 1.5), E(NiceTickStep(0.1), 0.05),
        E(NiceTickStep(0), 0),
        // Step, min, max; a span of 1 gets the exponent -1 and the mantissa 10.
        E(range(0, 1), 0.1, 0, 1), E(range(3, 47), 5, 0, 50), E(range(-47, -3), 5, -50, 0), E(range(5, 5), 0, 0, 0),
        // 3.5: 2 * 3.5 + 1, 2 * trunc(4) + 1; 7.5: RoundToInt(4.75), trunc(8) + 1; 0.1: mantissa 10, whole units.
        E(range(7, -3), kNaN, kNaN, kNaN), E(parts(10), 5, 2, 5, 2), E(parts(3.5), 8, 0.5, 9, 0.5), E(parts(4), 2, 2, 4, 1),
        E(parts(7.5), 5, 2, 9, 1), E(parts(0.1), 10, 0.01, 10, 0.01), E(parts(-25), 6, -5, INT_MIN, kNaN),
        E(parts(0), 0, 0, INT_MIN, 0), E(parts(above), 12, 1e-6), // a mantissa just above 10: r + 1, rounded up
        E(LogAxisPosition(1, 100, 10), 50.5), E(LogAxisPosition(1, 100, 0), 0),
        // Grid points not above, not below; downward (upward 0) swaps the modes; a NaN value's count is INT_MIN.
        E(LogAxisPosition(5, 5, 3), kNaN), E(RoundToStep(0, 7, 5, 1, 0), 5), E(RoundToStep(0, 7, 5, 1, 1), 10),
        // Quotients with fractions of one half and more (1.6, -1.5, 1.96) in each of the four modes.
        E(RoundToStep(0, 9.8, 5, 1, 0), 5), E(RoundToStep(0, 8, 5, 1, 0), 5), E(RoundToStep(0, 8, 5, 1, 1), 10),
        E(RoundToStep(0, 8, 5, 0, 0), 10),
        E(RoundToStep(0, 8, 5, 0, 1), 5), E(RoundToStep(0, -7.5, 5, 1, 0), -10), E(RoundToStep(0, -7.5, 5, 1, 1), -5),
        E(RoundToStep(0, -8, 5, 0, 0), -5), E(RoundToStep(0, 7.5, 5, 1, 0), 5),
        E(RoundToStep(2, 8, -5, 1, 1), 12), E(RoundToStep(3, 7, 0, 1, 0), 3), E(RoundToStepFromZero(-7, 5, 1, 0), -10),
        E(RoundToStep(1, kNaN, 5, 1, 0), 1 + INT_MIN * 5.0), E(SignedTrunc(-2.5, 0.5), -3), E(SignedTrunc(2.4, -0.5), 2),
        // -1.005 is -1.00499999...; a huge precision prints the exact text.
        E(SignedTrunc(-3e9, 0), INT_MIN), E(SignedTrunc(kNaN, 0), INT_MIN), E(RoundToDigits(-1.005, 3), -1),
        E(RoundToDigits(-1e308, 2000), -1e308), EXACT(RoundToDigits(1.23456789, 0), 1.23456789),
        // NiceAxis: min, max, step. 2.9..10: 2..10 does not pass 10: second pass, step 4. 5000..5001: min beyond 1000
        // steps: 0, then (6000 - 4500) / 3. 998.5..999.45: stops at the last k counted, 999; then (1000 - 900) / 1.
        E(axis(5, 0, 10), 0, 12.5, 2.5), E(axis(4, 2.9, 10), 0, 16, 4), E(axis(3, 5000, 5001), 0, 1800, 600),
        E(axis(1, 998.5, 999.45), 900, 1050, 150), E(axis(0, 0, 10), kNaN, kNaN, kInf),
        // Counting down below zero: -47..12 snaps to -60 with step 20, then (15 - -50) / 3 gives 25 from -60 on.
        // Coarse: NiceStep(9.14) is 10, then NiceCeil(55 / 5). keepMin keeps -3.7 and adds n steps.
        E(axis(3, -47, 12), -75, 0, 25), E(axis(5, -3.7, 42, 0, true), -15, 60, 15),
        E(axis(4, -3.7, 42, 1), -3.7, 56.3, 15), E(axis(2, -1234.5, 999, 1, true), -1234.5, 2765.5, 2000),
        // The longest count: a second-pass step of 0 (nice numbers of denormals underflow) with min < 0 runs
        // through all 2^32 counter values, for seconds; the direct form returns at once.
        E(axis(5, kNaN, 10), 0, kNaN, kNaN), E(axis(1, -2 * 4.9e-324, 4.9e-324), 0, 0, 0));

    // Direct against counting forms (1e-15 tells k steps from k + 1 even at 2^31 steps), by i % 3: zero span,
    // tiny span, any limits; magnitudes 1e-12 to 1e12; n from -2 to 30, 500 to 3000 and a few huge n; coarse for odd
    // i, keepMin for every seventh.
    std::mt19937_64 random(20240605);
    std::uniform_real_distribution<double> unit(-1, 1);
    int secondPasses = 0;
    for (int i = 0; i < 100000; ++i) {
        const double scale = std::pow(10.0, static_cast<int>(random() % 25) - 12), a = unit(random) * scale;
        const double b = unit(random) * scale, max = i % 3 == 0 ? a : i % 3 == 1 ? a + std::fabs(a) * 1e-13 * b / scale : b;
        const int n = i % 16 == 3 ? INT_MAX - i : i % 4 == 1 ? 500 + i % 2500 : static_cast<int>(random() % 33) - 2;
        Values e{a, max, 0}, g = e; // counted, direct: min, max, step
        secondPasses += LiteralAxis(n, e[0], e[1], e[2], i % 7 == 0, i % 2);
        (i % 2 ? NiceAxisCoarse : NiceAxis)(n, g[0], g[1], g[2], i % 7 == 0);
        ASSERT_TRUE(Same("", "", {Entry{g, e, "direct form"}}, 0)) << "sample " << i << ": n " << n << ", min " << a;
    }
    EXPECT_GT(secondPasses, 10000) << "the sample must exercise the second pass";

}

TEST(GeodesyFittingAndPlaneGeometry, WorkedExamplesBoundariesAndTheEllipsoidTableToItsLastDigits)
{
    // Arc minutes (139 and 35 degrees); on the equator a and (1 - e^2) a per radian; index 0 keeps its fixed e^2
    // 0.00669447.
    const double lon0 = 8340, lat0 = 2100, f = 1 / 298.257222101, a0 = 6378136 * kPi / 10800, a4 = 6378137 * kPi / 10800;
    const auto arcs = [](double lat, int i) { Values v(2, -1.0); ArcLengthsPerMinute(lat, v[0], v[1], i); return v; };
    const auto trip = [&](double dx, double dy, double angle, unsigned i) { // there and back: dx, dy, lon, lat
        Values v(4, -1.0); OffsetToLatLon(dx, dy, lon0, lat0, v[2], v[3], angle, i);
        return LatLonToOffset(lon0, lat0, v[2], v[3], v[0], v[1], angle, i), v; };
    const auto distance = [](Values lon1, Values lat1, Values lon2, Values lat2, unsigned index = 4) {
        return GeodesicDistance(lon1.data(), lat1.data(), lon2.data(), lat2.data(), index); };
    const auto line = [](Values xs, Values ys) { Values v{-1, -1, -1}; v[0] = FitLine(xs, ys, v[1], v[2]); return v; };
    const auto rotate = [](double x, double y, double a) { Values v(2); RotatePoint(x, y, v[0], v[1], a); return v; };
    const auto ray = [](double x0, double y0, double theta, double ax, double ay, double bx, double by) { // flag, point
        Values v{7, 42, 42}; int flag = 7;
        return RaySegmentIntersection(x0, y0, theta, ax, ay, bx, by, v[1], v[2], flag), v[0] = flag, v; };
    const RECT wide = {0, 0, 100, 50}, tall = {10, 20, 110, 220}, huge = {INT_MIN, INT_MIN, INT_MAX, INT_MAX};
    const Values xs = {0, 2, 0}, ys = {0, 0, 2};
    // Within 1e-6 (metres, arc minutes, degrees, pixels): far above the rounding of sin, cos and the arc lengths.
    EXPECT_TABLE(1e-6,
        E(arcs(0, 4), a4, (1 - 2 * f + f * f) * a4), E(arcs(0, 0), a0, (1 - 0.00669447) * a0), E(arcs(0, 6), 0, 0),
        // Off the equator, from N cos(phi) and M of the ellipsoid (45 degrees: the meridian minute is 1852.2 m).
        E(arcs(2700, 4), 1314.1139182437669, 1852.196290220835), E(arcs(2100, 1), 1521.287990278379, 1848.8140403656207),
        E(trip(0, arcs(lat0, 4)[1], 270, 4), 0, arcs(lat0, 4)[1], lon0, lat0 + 1), // a minute north
        // Back at 270; elsewhere turned by 2 * (angle - 270).
        E(trip(3000, -4000, 270, 4), 3000, -4000),
        E(trip(3000, -4000, 300, 4), 1500 + 4000 * std::sqrt(0.75), 3000 * std::sqrt(0.75) - 2000),
        // References on GRS80 (index 4) from the exact geodesic integrals (auxiliary sphere, distance and longitude
        // integrals by quadrature at 40 digits, azimuth by Newton's method), agreeing with Vincenty's inverse formula
        // to 1e-6 m. Hubeny's error grows with the cube of the distance and with latitude: about 1 mm at 10 km (here
        // +0.93, +0.60 south-west; tolerance 2 mm), under a metre at 100 km up to about 35 degrees (here +0.94 m,
        // +2.9 mm along a meridian; tolerance 1 m).
        WITHIN(0.002, distance({139, 45, 0}, {35, 40, 0}, {139, 50, 0}, {35, 44, 0}), 10563.88880542455),
        WITHIN(1.0, distance({139, 0, 0}, {35, 0, 0}, {140, 0, 0}, {35, 30, 0}), 106582.1839670253),
        E(EllipsoidTable[0], 6378136.0, 298.257), E(EllipsoidTable[1], 6377397.155, 299.152813),
        E(EllipsoidTable[2], 6378137.0, 298.257222), E(EllipsoidTable[3], 6378137.0, 298.257223),
        E(EllipsoidTable[4], 6378137.0, 298.257222101), E(EllipsoidTable[5], 6378137.0, 298.257222101),
        E(trip(3000, -4000, 270, 6), 0, 0, 0, 0), E(distance({0, 0, 0}, {0, 0, 0}, {1, 0, 0}, {1, 0, 0}, 6), 0),
        E(GeodesicDistance(nullptr, xs.data(), xs.data(), ys.data(), 4), 0),
        E(GeodesicDistance(xs.data(), ys.data(), xs.data(), nullptr, 4), 0),
        // FitLine's result, slope, intercept; a flat shape gives the box; a reversed box is not normalised; sizes
        // wrap to -1.
        E(line({1, 2, 3, 4}, {2.1, 3.9, 6.2, 7.8}), 0, 1.94, 0.15), E(line({0, 1}, {1, 3, 5}), 0, 0, 0),
        E(line({2, 2, 2}, {1, 3, 5}), 0, 0, 0), E(FitSizeToBox(16, 9, 1000, 1000), 0, 0, 1000, 562),
        E(FitSizeToBox(4, 3, 8.9, 0), 0, 0, 8, 0), E(FitSizeToBox(4, 0, 8.9, 6), 0, 0, 8, 6),
        E(FitRectToRect(wide, tall), 10, 20, 110, 70), E(FitRectToRect({0, 5, 1, 5}, tall), 10, 20, 110, 220),
        E(FitRectToRect({0, 0, 1, 1}, huge), INT_MIN, INT_MIN, INT_MAX, INT_MAX),
        E(FitRectToRect(wide, {110, 220, 10, 20}), 110, 220, 10, 170),
        // A box of height 0; a size limited by the box's height.
        E(FitRectToRect(wide, {10, 20, 110, 20}), 10, 20, 110, 20), E(FitSizeToBox(3, 4, 800, 800), 0, 0, 600, 800),
        // Where the vector comes from, clockwise from north; on the y axis where it points to (intended).
        E(DirectionAngle(1, 0), 270), E(DirectionAngle(-1, -1), 45), E(DirectionAngle(0, 5), 0), E(DirectionAngle(0, -5), 180),
        E(DirectionAngle(0, 0), 0),
        // Radius 10 about (0, 0). An end below start is taken 360 higher; start 800 is taken as 80 with the end 1100
        // modulo 2 * 360 (380); (0.87, -4.92) and (1.71, 4.70) lie in the directions 350 and 200.
        E(PointInSector(0, 0, 10, 90, 180, -5, 0, 1), 1), E(PointInSector(0, 0, 10, 90, 180, -5, 0, 0), 0),
        E(PointInSector(0, 0, 10, 90, 180, 0, 20, 1), 0), E(PointInSector(0, 0, 10, 90, 180, 0, 0, 1), 1),
        // Due south of a centre off the origin; one turn: 40 to 90, the point at 63.
        E(PointInSector(0, 20, 10, 90, 180, 0, 15, 1), 1), E(PointInSector(0, 0, 10, 400, 450, -1, -0.5, 1), 1),
        E(PointInSector(0, 0, 10, 300, 30, 7, -8, 1), 0),   // at 319 degrees but 10.6 away
        E(PointInSector(0, 0, 10, 300, 30, 0.87, -4.92, 1), 1), E(PointInSector(0, 0, 10, 800, 1100, 1.71, 4.70, 1), 1),
        // Ties go to the first; NaN distances are passed over. Ray flag 0: on the segment and ahead; 1: behind or
        // off it; -1: parallel, the point untouched.
        E(NearestPoint(1, 1, xs, ys), 0), E(NearestPoint(1, 1, xs, {0, 0}), -1), E(NearestPoint(1, 1, {}, {}), -1),
        E(NearestPoint(0, 0, {kNaN, 3}, {0, 0}), 1), E(ray(0, 0, 0, 2, -1, 2, 1), 0, 2, 0), E(rotate(1, 2, 90), -2, 1),
        E(ray(0, 0, 0, -2, -1, -2, 1), 1, -2, 0), E(ray(1, 1, kPi / 2, 0, 3, 2, 3), 0, 1, 3),
        E(ray(0, 0, 0, 1, 1, 3, 1), -1, 42, 42), E(ray(0, 0, 0, 2, 1, 2, 3), 1, 2, 0),
        E(ray(1, 0, 0, 3, -1, 4, 1), 0, 3.5, 0));
}
