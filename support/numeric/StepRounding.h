// Snapping values to a grid of steps, and rounding to a number of digits.
// Plain doubles in the caller's units.
#pragma once

/// Snaps value to the grid origin + i * |step|. With upward != 0,
/// ceilingMode 0 gives the largest grid point not above value and
/// ceilingMode != 0 the smallest not below it; with upward 0 the two modes
/// swap (0 rounds up, != 0 rounds down). A value already on the grid (exact
/// fmod remainder 0) is returned unchanged: (0, 7, 5, 1, 0) -> 5,
/// (0, 7, 5, 1, 1) -> 10, (0, -7, 5, 1, 0) -> -10, (0, 7, 5, 0, 0) -> 10.
/// The count of steps is a 32-bit int. For step 0 the result is origin. For
/// a NaN or infinite value or origin, or a quotient (value - origin) / step
/// outside the 32-bit range, the count is RoundToInt's (0 or saturated) or
/// the truncation's INT_MIN, moved by one with 32-bit wrap-around, and the
/// result is the grid point of that count (NaN if origin is NaN), not a
/// point near value.
double RoundToStep(double origin, double value, double step, int upward, int ceilingMode);

/// RoundToStep with the grid origin at 0.
double RoundToStepFromZero(double value, double step, int upward, int ceilingMode);

/// sign(v) * trunc(|v| + |bias|) as a 32-bit int, with sign(v) = -1 for
/// v < 0, else +1. Bias 0 truncates toward zero; bias 0.5 rounds halves away
/// from zero. NaN, infinities and results outside the 32-bit range give
/// INT_MIN, as the processor's truncating conversion does.
int SignedTrunc(double v, double bias);

/// v printed with digits - 1 decimals ("%.2f" for digits 3) and read back:
/// (2.345678, 3) -> 2.35. digits counts decimals plus one, as the library's
/// number formatter does. digits < 1, NaN and infinities return v unchanged.
/// Precisions beyond 1100 decimals print every double exactly and are read
/// back as v.
double RoundToDigits(double v, int digits);
