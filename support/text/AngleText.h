// Decimal degrees split into degrees, minutes and seconds, and back to
// minutes or seconds. The split goes through printed text, so its rounding
// is that of "%.8f" and "%.4f" (correctly rounded, see NumberFormat.h).
#pragma once

/// Splits decimal degrees:
/// - degrees: the integer part of the "%.8f" text (truncated toward zero,
///   saturated to the 32-bit range), as a double;
/// - minutes: the whole minutes of the eight printed decimals (read without
///   the sign) times 60, printed with four decimals and truncated;
/// - seconds: (value - degrees - minutes / 60) * 3600, set to 0 below 1e-10,
///   then rounded to 7 decimals through FormatDouble's text.
/// 35.5 -> 35, 30, 0; 139.7625 -> 139, 45, 45; 0.000001 -> 0, 0, 0.0036.
/// Two results are intended as they are: a negative value gets negative
/// degrees but positive minutes and clipped seconds (-12.5 -> -12, 30, 0),
/// and a fraction that prints as 60 minutes stays 60 (12.99999999 -> 12, 60,
/// 0). Non-finite values give degrees 0, minutes 0 and seconds NaN for NaN,
/// +infinity for +infinity and 0 for -infinity.
void DegreesToDms(double value, double& degrees, double& minutes, double& seconds);

/// Decimal degrees to total minutes through DegreesToDms:
/// degrees * 60 + minutes + seconds / 60.
double DmsToMinutes(double value);

/// Decimal degrees to total seconds through DegreesToDms:
/// degrees * 3600 + minutes * 60 + seconds.
double DmsToSeconds(double value);

/// dms points to three doubles (degrees, minutes, seconds); minutes receives
/// dms[0] * 60 + dms[1] + dms[2] / 60, with no text round trip. A null dms
/// gives minutes 0.
void DmsArrayToMinutes(const double* dms, double& minutes);
