#include "support/numeric/PlaneGeometry.h"

#include "support/numeric/IntegerConversion.h"

#include <cmath>
#include <cstddef>


void RotatePoint(double x, double y, double& rx, double& ry, double angle)
{
    const double t = angle * (std::acos(-1.0) / 180);
    const double c = std::cos(t);
    const double s = std::sin(t);
    rx = c * x - s * y;
    ry = s * x + c * y;
}

double DirectionAngle(double x, double y)
{
    // On the y axis the result is the way the vector points, unlike the
    // formula below (which would give 180 for (0, 1)): intended.
    if (x == 0.0)
        return y < 0.0 ? 180.0 : 0.0;
    return std::fmod(270 - std::atan2(y, x) * 180 / std::acos(-1.0), 360);
}

int PointInSector(double cx, double cy, double radius, double start, double end, double px, double py,
                  int inclusive)
{
    if (px == cx && py == cy)
        return inclusive != 0 ? 1 : 0;
    const double d = std::sqrt((py - cy) * (py - cy) + (px - cx) * (px - cx));
    if (inclusive != 0 ? d > radius : d >= radius)
        return 0;
    const double a = std::fmod(DirectionAngle(px - cx, py - cy), 360);
    double e = start > end ? end + 360 : end;
    const int k = TruncateToInt(start / 360);
    if (k > 0) {
        start = std::fmod(start, 360);
        e = std::fmod(e, k * 360.0); // modulo k turns, not one: intended
    }
    if (inclusive != 0)
        return start <= a && a <= e ? 1 : 0;
    return start < a && a < e ? 1 : 0;
}

int NearestPoint(double x, double y, const std::vector<double>& xs, const std::vector<double>& ys)
{
    if (xs.size() != ys.size() || xs.empty())
        return -1;
    std::size_t nearest = 0;
    double nearestDistance = std::sqrt((xs[0] - x) * (xs[0] - x) + (ys[0] - y) * (ys[0] - y));
    for (std::size_t i = 1; i < xs.size(); ++i) {
        const double d = std::sqrt((xs[i] - x) * (xs[i] - x) + (ys[i] - y) * (ys[i] - y));
        if (d < nearestDistance || (std::isnan(nearestDistance) && !std::isnan(d))) {
            nearest = i;
            nearestDistance = d;
        }
    }
    return static_cast<int>(nearest);
}

void RaySegmentIntersection(double x0, double y0, double theta, double ax, double ay, double bx, double by,
                            double& ix, double& iy, int& flag)
{
    flag = -1;
    const double s = std::sin(theta);
    const double c = std::cos(theta);
    // A and B relative to the ray origin, in along-ray (u) and across-ray
    // (w) coordinates.
    const double ax0 = ax - x0;
    const double ay0 = ay - y0;
    const double bx0 = bx - x0;
    const double by0 = by - y0;
    const double uA = ax0 * c + ay0 * s;
    const double wA = ay0 * c - ax0 * s;
    const double uB = bx0 * c + by0 * s;
    const double wB = by0 * c - bx0 * s;
    if (wA == wB)
        return;
    const double t = uA - (uB - uA) * wA / (wB - wA); // distance along the ray
    ix = t * c + x0;
    iy = t * s + y0;
    flag = wA * wB <= 0 && t > 0 ? 0 : 1;
}
