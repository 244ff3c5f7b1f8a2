// Plane helpers in a y-up frame: rotation of a point, direction of a vector,
// crossing of a ray with a segment, point in a circular sector, nearest of a
// set of points. Coordinates in any one unit; angles in degrees except where
// radians are stated.
#pragma once

#include <vector>

/// (rx, ry) := (x, y) turned about the origin by angle degrees,
/// counter-clockwise for positive angles in a y-up frame.
void RotatePoint(double x, double y, double& rx, double& ry, double angle);

/// The direction the vector (x, y) comes from, in degrees clockwise from
/// north (y up), in [0, 360): 270 for (1, 0), 90 for (-1, 0), 225 for (1, 1)
/// and 180 for a vector pointing north, as wind directions are given.
/// For x == 0 it returns the direction the vector points to instead:
/// (0, 5) -> 0, (0, -5) -> 180, (0, 0) -> 0 (intended). A NaN x gives NaN;
/// x == 0 with a NaN y gives 0.
double DirectionAngle(double x, double y);

/// 1 if (px, py) lies in the sector of the circle about (cx, cy) with the
/// given radius between the directions start and end (degrees, as
/// DirectionAngle gives them, running from start up to end; an end below
/// start is taken 360 higher), else 0. inclusive != 0 counts the boundary
/// and the centre as inside; inclusive 0 excludes them. A start of 360 or
/// more is reduced modulo 360 while the end is reduced modulo k * 360 with
/// k = trunc(start / 360) (intended). NaN inputs make the comparisons they
/// reach false: a NaN radius excludes nothing by distance, and a NaN angle
/// gives 0.
int PointInSector(double cx, double cy, double radius, double start, double end, double px, double py,
                  int inclusive);

/// Index of the point (xs[i], ys[i]) nearest to (x, y); on ties the first.
/// -1 when the sizes differ or the vectors are empty. Points at a NaN
/// distance are passed over; if all are, the result is 0.
int NearestPoint(double x, double y, const std::vector<double>& xs, const std::vector<double>& ys);

/// Where the ray from (x0, y0) in direction theta (radians, counter-
/// clockwise from the x axis) meets the line through A (ax, ay) and
/// B (bx, by). flag 0: the crossing lies on the segment AB (ends included)
/// and in front of the origin; flag 1: it lies off the segment or not in
/// front (ix, iy still hold it); flag -1: AB is parallel to the ray and
/// ix, iy are left unchanged. NaN in any input gives flag 1 and a NaN point.
void RaySegmentIntersection(double x0, double y0, double theta, double ax, double ay, double bx, double by,
                            double& ix, double& iy, int& flag);
