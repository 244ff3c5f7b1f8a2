#include "support/numeric/Geodesy.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

const double kPi = std::acos(-1.0);

TEST(Geodesy, ArcLengthsOnTheEquatorFollowTheAxisAndEccentricity)
{
    // sin(phi) = 0: the closed forms below, to 1e-9 m (a few ulps of 1855 m).
    const double f = 1 / 298.257222101;
    double perLon = 0, perLat = 0;
    ArcLengthsPerMinute(0, perLon, perLat, 4);
    EXPECT_NEAR(6378137.0 * kPi / 10800, perLon, 1e-9);                   // about 1855.3 m
    EXPECT_NEAR((1 - (2 * f - f * f)) * 6378137.0 * kPi / 10800, perLat, 1e-9); // about 1842.9 m
    // Index 0 takes the fixed 0.00669447, 1.6e-4 m away from its flattening's.
    ArcLengthsPerMinute(0, perLon, perLat, 0);
    EXPECT_NEAR((1 - 0.00669447) * 6378136.0 * kPi / 10800, perLat, 1e-9);
    ArcLengthsPerMinute(0, perLon, perLat, 6);
    EXPECT_TRUE(perLon == 0 && perLat == 0) << "index 6: " << perLon << ", " << perLat;
}

TEST(Geodesy, OffsetsTurnByTheAngleFrom270)
{
    const double lon0 = 139 * 60.0, lat0 = 35 * 60.0; // arc minutes
    double perLon = 0, perLat = 0, lon = 0, lat = 0;
    ArcLengthsPerMinute(lat0, perLon, perLat, 4);
    OffsetToLatLon(0, perLat, lon0, lat0, lon, lat, 270, 4); // one minute north
    EXPECT_NEAR(lat0 + 1, lat, 1e-9);
    EXPECT_EQ(lon0, lon);
    OffsetToLatLon(0, perLat, lon0, lat0, lon, lat, 0, 4); // turned: west
    EXPECT_NEAR(lat0, lat, 1e-9);
    EXPECT_NEAR(lon0 - perLat / perLon, lon, 1e-9);

    // Round trips of (3000, -4000) m: 270 and 90 come back; other angles
    // turn the offset by 2 * (angle - 270). A micrometre covers the rounding.
    struct Case {
        double angle, dx, dy;
    } table[] = {
        {270, 3000, -4000},                                           // no turn
        {90, 3000, -4000},                                            // a whole turn
        {0, -3000, 4000},                                             // a half turn
        {300, 1500 + 4000 * std::sqrt(0.75), 3000 * std::sqrt(0.75) - 2000}, // 60 degrees
    };
    for (const Case& c : table) {
        double dx = 0, dy = 0;
        OffsetToLatLon(3000, -4000, lon0, lat0, lon, lat, c.angle, 4);
        LatLonToOffset(lon0, lat0, lon, lat, dx, dy, c.angle, 4);
        EXPECT_NEAR(c.dx, dx, 1e-6) << "angle " << c.angle;
        EXPECT_NEAR(c.dy, dy, 1e-6) << "angle " << c.angle;
    }
    double dx = 1, dy = 1;
    OffsetToLatLon(3000, -4000, lon0, lat0, lon, lat, 270, 6);
    LatLonToOffset(lon0, lat0, lon0 + 1, lat0 + 1, dx, dy, 270, 6);
    EXPECT_TRUE(lon == 0 && lat == 0 && dx == 0 && dy == 0) << "index 6";
}

TEST(Geodesy, GeodesicDistanceStaysWithinHubenysErrorOfTheGeodesic)
{
    // References on GRS80 (index 4) from the exact geodesic integrals
    // (auxiliary sphere, distance and longitude integrals by quadrature at 40
    // digits, azimuth solved by Newton's method), agreeing with Vincenty's
    // inverse formula to 1e-6 m. Hubeny's error grows with the cube of the
    // distance and with latitude: about 1 mm at 10 km (tolerance 2 mm); at
    // 100 km under a metre up to about 35 degrees (tolerance 1 m; 1.3 m at 45).
    struct Case {
        double lon1[3], lat1[3], lon2[3], lat2[3];
        double reference, tolerance;
    } table[] = {
        {{139, 45, 0}, {35, 40, 0}, {139, 50, 0}, {35, 44, 0}, 10563.88880542455, 0.002},       // Hubeny +0.93 mm
        {{10, 0, 0}, {45, 0, 0}, {10, 7, 36}, {45, 0, 0}, 9987.264761737094, 0.002},            // parallel: +1.02 mm
        {{-58, -22, 0}, {-34, -36, 0}, {-58, -26, 0}, {-34, -32, 0}, 9597.962857402278, 0.002}, // south-west: +0.60 mm
        {{139, 0, 0}, {35, 0, 0}, {140, 0, 0}, {35, 30, 0}, 106582.1839670253, 1.0},            // +0.94 m
        {{135, 0, 0}, {35, 0, 0}, {136, 6, 0}, {35, 0, 0}, 100416.4792366689, 1.0},             // parallel: +0.51 m
        {{2, 20, 0}, {48, 50, 0}, {2, 20, 0}, {49, 44, 0}, 100093.6985027545, 1.0},             // meridian: +2.9 mm
    };
    for (const Case& c : table) {
        const double d = GeodesicDistance(c.lon1, c.lat1, c.lon2, c.lat2, 4);
        EXPECT_NEAR(c.reference, d, c.tolerance) << "from (" << c.lon1[0] << ", " << c.lat1[0] << ")";
        EXPECT_EQ(d, GeodesicDistance(c.lon2, c.lat2, c.lon1, c.lat1, 4)) << "swapped";
        EXPECT_EQ(0.0, GeodesicDistance(c.lon1, c.lat1, c.lon1, c.lat1, 4)) << "same position";
    }
    const Case& c = table[0];
    EXPECT_EQ(0.0, GeodesicDistance(c.lon1, c.lat1, c.lon2, c.lat2, 6)) << "index 6";
    EXPECT_EQ(0.0, GeodesicDistance(nullptr, c.lat1, c.lon2, c.lat2, 4)) << "null triple";
}

} // namespace
