// printf-style number text and atoi/atof-style reading, with the same
// results whatever C runtime the module is linked with.
//
// The text conversions are correctly rounded: the decimal digits are those
// of the double's exact binary value, rounded to nearest with ties to even,
// as the C standard's "%.Nf" and "%.Ne" ask. (Older runtimes such as
// msvcrt.dll round ties away from zero and print three exponent digits.)
// NaN and infinities print as "nan", "-nan", "inf" and "-inf".
#pragma once

#include "framework/AfxString.h"

/// Most decimals ever produced: every finite double's exact value has at
/// most 1074 digits after the point, so further ones could only be zeros.
constexpr int kMaxExactDecimals = 1074;

/// The value as "%.Nf" prints it with N = decimals: fixed notation, no
/// exponent (1e20 gives "100000000000000000000.000000" with 6 decimals).
/// A negative count means 6, as printf's omitted precision; counts above
/// kMaxExactDecimals give kMaxExactDecimals decimals.
CString FormatFixed(double value, int decimals);

/// The value as "%.Ne" prints it with N = decimals: one digit, the point
/// (left out when N is 0), N digits, "e", the exponent's sign and at least
/// two exponent digits (1500 with 6 decimals gives "1.500000e+03"). Negative
/// counts and counts above kMaxExactDecimals are treated as in FormatFixed.
CString FormatScientific(double value, int decimals);

/// Reads a decimal integer as atoi does: leading white space, an optional
/// sign, then digits up to the first other character. Text without digits
/// and a null text give 0; values beyond the 32-bit range give INT_MAX or
/// INT_MIN (the Windows runtime's saturation).
int ParseInt(const char* text);

/// Reads a decimal number as atof does: leading white space, an optional
/// sign, digits with an optional point and exponent, or "inf", "infinity",
/// "nan" (any case). The nearest double to the text is returned (ties to
/// even); text that does not start a number and a null text give 0; values
/// too large give +-HUGE_VAL, values too small +-0. Hexadecimal floating
/// text ("0x1p3") is not read beyond its leading "0".
double ParseDouble(const char* text);
