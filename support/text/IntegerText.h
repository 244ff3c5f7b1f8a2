// Integers read from text: a hexadecimal reader with its own digit weights
// and the split of a date written as one integer.
#pragma once

/// Reads hexadecimal digits ("0"-"9", "A"-"F", "a"-"f") and sums them with
/// weights of 16 times their distance from the end; the last digit counts
/// plainly. The weights are not powers of 16, and that is intended: "FF" ->
/// 255 and "7f" -> 127 as expected, but "100" -> 32 and "1000" -> 48.
/// Any other character makes the result 0 ("G1" -> 0, "1 " -> 0), as do ""
/// and a null text. The sum wraps modulo 2^32 into a 32-bit int.
int HexToInt(const char* text);

/// Splits a date number of the form YYYY, YYYYMM or YYYYMMDD. The number is
/// printed with "%d" (a minus sign counts as a character); with 4, 6 or 8
/// characters, day is the last two (8 only), month the two before them (6
/// and 8), year the four before those, each read as atoi reads them, and 1
/// is returned. Otherwise year, month and day are 0 and 0 is returned.
/// 20260305 -> 2026, 3, 5; 202603 -> 2026, 3, 0; 2026 -> 2026, 0, 0.
/// Month and day are not checked (20261399 -> 2026, 13, 99), and negative
/// numbers of an accepted length are split as text (-20260 -> -202, 60, 0).
int SplitDateNumber(int number, int& year, int& month, int& day);
