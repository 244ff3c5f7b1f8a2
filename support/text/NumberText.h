// Real numbers as text: the library's one double-to-text rule (FormatDouble),
// a compact exponent notation and counts of the decimals a value shows.
// Every "%f"-style step is correctly rounded (see NumberFormat.h), so the
// results do not depend on the C runtime.
#pragma once

#include "framework/AfxString.h"

/// The library's real-number text, fixed notation, never an exponent:
/// 1. printed with digits - 1 decimals ("%.7f" for digits 8); digits <= 0
///    means 6 decimals ("%f");
/// 2. trailing "0"s, then a trailing ".", removed (when the text has a point
///    and more than one character);
/// 3. "-0" becomes "0";
/// 4. unless noPointSuffix, ".0" is appended to text without a point.
/// With digits 8: 1.5 -> "1.5", 2 -> "2.0", 0.000000049 -> "0.0",
/// -0.00000001 -> "0.0", 1e20 -> "100000000000000000000.0".
/// The digit count is the number of decimals plus one, not a count of
/// significant digits; the offset by one is intended.
/// NaN and infinities pass through the same steps: "nan.0", "inf.0",
/// "-inf.0" ("nan", "inf", "-inf" with noPointSuffix). At most
/// kMaxExactDecimals decimals are printed, which changes no result because
/// the further digits would all be trimmed zeros.
CString FormatDouble(double value, int digits, bool noPointSuffix);

/// Compact exponent text from "%e" (six decimals, correctly rounded):
/// trailing zeros and point of the mantissa and leading zeros of the exponent
/// removed, the exponent left out when it is zero.
/// 1500 -> "1.5e+3", 1 -> "1", 0 -> "0", -0.00000025 -> "-2.5e-7",
/// 123456789 -> "1.234568e+8", 1e100 -> "1e+100", -0.0 -> "-0".
/// NaN and infinities give "".
CString FormatExp(double value);

/// Number of characters after the decimal point in the value's display text:
/// with digits < 1 the "%f" text with trailing zeros removed (2.0 -> 0,
/// 1.25 -> 2), otherwise FormatDouble(value, digits + 1, false) (digits 3:
/// 2.0 -> 1, 1.23456 -> 3). NaN and infinities give 0 with digits < 1 and 1
/// otherwise (their text is "nan.0", "inf.0").
int DecimalsShown(double value, int digits);

/// 1-based position of the first non-zero decimal of the "%.6f" text:
/// 0.00123 -> 3, 1.5 -> 1, 0.0456 -> 2. A value without a non-zero decimal
/// at six places (2.0, 0.0000001) gives 1, not 0; NaN and infinities give 0.
int FirstSignificantDecimal(double value);
