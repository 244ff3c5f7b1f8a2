// Geographic positions on reference ellipsoids: arc lengths of a minute,
// local metric offsets to and from latitude/longitude, and the distance
// between two positions. Latitudes are positive north, longitudes positive
// east, both in arc minutes unless a function takes degree-minute-second
// triples; lengths are in metres.
#pragma once

/// A reference ellipsoid: semi-major axis in metres and inverse flattening.
struct Ellipsoid {
    double semiMajorAxis;
    double inverseFlattening;
};

/// The six reference ellipsoids, selected by index 0 to 5.
inline constexpr unsigned int EllipsoidCount = 6;
inline constexpr Ellipsoid EllipsoidTable[EllipsoidCount] = {
    {6378136.0, 298.257},
    {6377397.155, 299.152813},
    {6378137.0, 298.257222},
    {6378137.0, 298.257223},
    {6378137.0, 298.257222101},
    {6378137.0, 298.257222101},
};

/// Lengths in metres of one arc minute along the parallel (perLonMinute)
/// and along the meridian (perLatMinute) at the given latitude (arc
/// minutes), on ellipsoid index 0 to 5. Index 0 uses the fixed squared
/// eccentricity 0.00669447 instead of the one its flattening gives
/// (intended). On the equator with index 4: 1855.32 m and 1842.90 m.
/// An index outside 0 to 5 sets both outputs to 0. A NaN latitude gives NaN.
void ArcLengthsPerMinute(double latitude, double& perLonMinute, double& perLatMinute, int index);

/// The position (lon, lat, arc minutes) of a point dx, dy metres from the
/// reference position (lon0, lat0, arc minutes), using the arc lengths at
/// lat0 for the whole offset. The offset is first turned counter-clockwise
/// (from east toward north) by angle - 270 degrees: at angle 270 dx points
/// east and dy north. An index above 5 sets lon and lat to 0.
void OffsetToLatLon(double dx, double dy, double lon0, double lat0, double& lon, double& lat, double angle,
                    unsigned int index);

/// The offset dx, dy in metres of (lon, lat) from (lon0, lat0) (arc
/// minutes), from the arc lengths at lat0, turned counter-clockwise by
/// angle - 270 degrees: the same sense as OffsetToLatLon, not the opposite
/// (intended). So the pair are inverses only at angles 270 and 90; at other
/// angles a round trip turns the offset by 2 * (angle - 270) degrees.
/// An index above 5 sets dx and dy to 0.
void LatLonToOffset(double lon0, double lat0, double lon, double lat, double& dx, double& dy, double angle,
                    unsigned int index);

/// Distance in metres between two positions by Hubeny's formula (meridian
/// and prime-vertical radii at the mean latitude): within about a millimetre
/// of the geodesic at 10 km and well under a metre at 100 km at mid
/// latitudes. Each argument points to a degree, minute, second triple
/// (three doubles). Longitudes are not wrapped: a pair across the 180
/// degree meridian measures the long way. An index above 5 or a null
/// pointer gives 0.
double GeodesicDistance(const double* lon1, const double* lat1, const double* lon2, const double* lat2,
                        unsigned int index);
