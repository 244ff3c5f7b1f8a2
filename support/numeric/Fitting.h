// Least-squares line through paired samples, and fitting a rectangle of a
// wanted aspect ratio into a box. Sizes and rectangles in the caller's
// units (pixels or virtual units); doubles become ints by truncation toward
// zero, NaN and values outside the 32-bit range becoming INT_MIN as with
// the processor's conversion.
#pragma once

#include "framework/AfxTypes.h"

#include <vector>

/// Fits y = slope * x + intercept to the pairs (xs[i], ys[i]) by least
/// squares. Always returns 0; slope and intercept are both 0 when the sizes
/// differ, the vectors are empty or all x are equal, so callers tell success
/// by the outputs. A NaN or infinite x gives NaN outputs; so does a NaN or
/// infinite y, unless all x are equal.
int FitLine(const std::vector<double>& xs, const std::vector<double>& ys, double& slope, double& intercept);

/// The largest rectangle with the proportions aspectW : aspectH that fits
/// in boxW x boxH, as (0, 0, width, height): (4, 3, 800, 800) ->
/// (0, 0, 800, 600). aspectH 0 or boxH 0 gives the whole box. Negative
/// sizes are not normalised; the arithmetic applies as it stands.
CRect FitSizeToBox(double aspectW, double aspectH, double boxW, double boxH);

/// The box, shrunk to the proportions of shape, keeping the box's top-left
/// corner (not centred): shape 100 x 50 in (10, 20, 110, 220) gives
/// (10, 20, 110, 70). A shape or box of height 0 returns the box. Widths and
/// heights are 32-bit differences (wrapping as the processor's do); reversed
/// rectangles are not normalised.
RECT FitRectToRect(const RECT& shape, const RECT& box);
