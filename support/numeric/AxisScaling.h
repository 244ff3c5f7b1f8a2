// Nice numbers for chart axes: ranges, step widths, division counts and the
// position of a value on a logarithmic axis. Plain doubles, no units of their
// own: every result is in the unit of the values passed in.
//
// The nice-number rules work on the decade unit u of |x| and the mantissa
// m = |x| / u, with the decade exponent trunc(log10(|x|)) taken in doubles
// from the runtime's log10 (the powers of ten themselves are correctly
// rounded). The rule is kept exactly, so m lies in [1, 10) except at two
// kinds of place, where the tables below apply to m as it is:
// - At the powers 0.1, 0.01, ... m is exactly 10 (see DecadeUnit).
// - Within a few ulps of a power of ten 10^k, where log10 already rounds to
//   k, the unit is a decade off: just below 10^k (k >= 1) m is just below 1,
//   just above 10^k (k <= -1) m is just above 10. Results can then lie on
//   the other side of the input: NiceCeil and NiceStep of a value a few ulps
//   above 1e-5 return 10 times the unit 1e-6, which is the double next below
//   1e-5 and so below the input, and NiceFloor of its negation the same
//   value negated, above it; just below 100, NiceFloor drops to 50 and
//   NiceTickStep to 10. Every function that takes a mantissa (NiceDivisions and the
//   others too) sees the same m.
#pragma once

/// The decade unit of x > 0: 10^e, correctly rounded as a correctly rounded
/// pow(10, e) gives it, with e = trunc(log10(x)), less 1 when x < 1.
/// So [1, 10) -> 1, (0.1, 1) -> 0.1, and exactly 0.1 -> 0.01 (the
/// mantissa 0.1 / 0.01 is then 10; intended, the nice-number tables rely on
/// it). Within a few ulps of a power of ten the unit may be a decade off
/// (see above: a few ulps above 1e-5 gives 1e-6, a few below 100 gives 100).
/// Outside the domain: 0 -> 0, +infinity -> +infinity, negative or
/// NaN -> NaN; below about 1e-323 the unit underflows to 0.
double DecadeUnit(double x);

/// The next nice number above v. For v > 0 the mantissa goes to the first of
/// 1, 1.5, 2, 2.5, 3, 4, 5, 6, 7, 8, 9, 10 strictly above it (3.7 -> 4,
/// 2 -> 2.5, 1 -> 1.5, 0.1 -> 0.1 because its mantissa is already 10).
/// For v < 0 the result moves toward zero by at least one unit (-3.7 -> -2.5,
/// -2 -> -0.1, -10 -> -1); that one-unit shift is intended.
/// 0 -> 0; NaN -> NaN; +-infinity -> +-infinity.
double NiceCeil(double v);

/// The next nice number below v. For v > 0 the mantissa goes to the first of
/// 9, 8, 7, 6, 5, 4.5, 4, 3.5, 3, 2.5, 2, 1.5, 1, 0.5, 0.1 strictly below it
/// (3.7 -> 3.5, 2 -> 1.5); for v < 0 away from zero to the first of 0.5, 1,
/// 1.5, ... 4.5, 5, 6, 7, 8, 9, 10 strictly above the mantissa
/// (-3.7 -> -4). 0 -> 0; NaN -> NaN; +-infinity -> +-infinity.
double NiceFloor(double v);

/// The 1-2-5-10 step strictly above x > 0: mantissa < 1 -> 1, < 2 -> 2,
/// < 5 -> 5, else 10, times the unit (0.3 -> 0.5, 7 -> 10, 10 -> 20).
/// 0 -> 0; negative or NaN -> NaN; +infinity -> +infinity.
double NiceStep(double x);

/// A tick step at most x > 0: the first of 5, 3, 2.5, 2, 1.5 strictly below
/// the mantissa, else 0.1, times the unit (6 -> 5, 1.6 -> 1.5, 1.2 -> 0.1:
/// the drop to a tenth for mantissas up to 1.5 is intended).
/// 0 -> 0; negative or NaN -> NaN; +infinity -> +infinity.
double NiceTickStep(double x);

/// Widens [min, max] to multiples of a 1-2-5 step chosen from the span
/// max - min (with a decade exponent lowered by one when log10(span) <= 0,
/// so a span of exactly 1 gets step 0.1). Returns the step; min becomes the
/// largest multiple not above it, max the smallest multiple not below it.
/// (3, 47) -> step 5, [0, 50]. Multiples are counted in 32-bit ints; beyond
/// that range the count is INT_MIN, as the processor's truncation gives it,
/// and the limits are meaningless. A zero span gives step 0 and limits 0; a
/// negative or NaN span gives NaN for all three.
double NiceRange(double& min, double& max);

/// Chooses an axis of n >= 1 equal divisions: step := NiceCeil(|max - min| / n).
/// keepMin != 0: min stays as given and max := min + n * step.
/// Otherwise min is snapped down to a multiple of step found among the first
/// 1000 (k * step for k = 0..999 up from zero, or 0, -1, ..., -999 down),
/// falling back to 0, and max := n * step + min. If that max does not reach
/// beyond the max passed in, a second pass takes step := NiceCeil(
/// |NiceCeil(max) - NiceFloor(min)| / n) from the values passed in, snaps min
/// again (downward without the 1000 limit: every k down to INT_MIN, then,
/// as a 32-bit counter wraps, INT_MAX down to 1001, before falling back to
/// 0) and sets max := n * step + min. The result is computed directly, not by
/// counting, so every input returns at once.
/// n < 1 is outside the domain: n = 0 gives an infinite or NaN step and
/// non-finite limits; n < 0 gives a negative step. A zero span gives step 0
/// and min 0 on the first pass.
void NiceAxis(int n, double& min, double& max, double& step, int keepMin);

/// NiceAxis with the first step taken by NiceStep (1-2-5-10) instead of
/// NiceCeil; the second pass is the same as NiceAxis's. n < 0 gives a NaN
/// step (NiceStep of a negative value).
void NiceAxisCoarse(int n, double& min, double& max, double& step, int keepMin);

/// Number of divisions for an axis of the given span (any sign) and their
/// width in step (negative for a negative span). With r the mantissa of
/// |span|: r <= 1 -> 5 divisions of a fifth of the unit; r < 4 -> half units;
/// r < 10 -> double units; else whole units; the count covers the span,
/// rounded up with RoundToInt (one more when r has a fraction).
/// Span 0 -> 0 divisions, step 0; NaN -> 0, step NaN; +-infinity -> 0,
/// step +-infinity.
int NiceDivisions(double span, double& step);

/// Number of divisions for a span > 0 and their width in step: r <= 1 -> 5
/// divisions of a fifth of the unit; r < 4 -> half units; else whole units.
/// Not for zero, negative, NaN or infinite spans: their mantissa is NaN and
/// they give INT_MIN (the processor's truncation of NaN) with the unit as
/// step (0, NaN or +infinity).
int NiceDivisionsPositive(double span, double& step);

/// Logarithmic position of x on an axis from x1 to x2 (both > 0), expressed
/// in the same linear units: x1 -> x1, x2 -> x2, in between by log10.
/// x == 0 -> 0. x1 == x2 and non-positive x1 or x (other than x == 0) give
/// NaN; other inputs outside the domain give what the arithmetic yields.
double LogAxisPosition(double x1, double x2, double x);
