// Paths shown in a limited space (compacted to a character budget, padded to
// a fixed-width field) and checked for characters a path may hold.
//
// Text is 8-bit text in the process's ANSI code page; a null text counts as
// an empty one.
#pragma once

#include "AfxString.h"

/// path shortened to at most max - 1 characters (max counts a terminator) by
/// the shell's PathCompactPathEx: the middle of the path gives way to "...",
/// keeping the file name as long as it fits ("C:\path1\path2\sample.txt"
/// with max 20 gives "C:\pa...\sample.txt"; the exact cut is the shell's).
/// A path that already fits, and an empty path, are returned unchanged;
/// max 0 or 1 gives an empty text.
CString CompactPath(const char* text, unsigned max);

/// A text of exactly width characters: text left-aligned, blanks after it
/// ("abc" in 5 gives "abc  "); an empty text gives width blanks, a negative
/// width counts as 0. A text longer than the width does not fit: the result
/// is empty and the runtime's invalid-parameter condition is raised
/// (support/InvalidParameter.h).
CString PadToWidth(const char* text, int width);

/// PadToWidth of path, after replacing a path longer than width by its short
/// (8.3) form when that has fewer than width characters; otherwise (a
/// missing file, a short form still too long) by an empty text, so the
/// result is width blanks.
CString FitPathToWidth(const char* path, int width);

/// 1 when every character of path may stand in a path by the shell's
/// PathGetCharType, else 0. Control characters, '"', '<', '>' and '|' are
/// invalid; the wild cards '*' and '?' are rejected always; the separators
/// '\', '/' and ':' only when rejectSeparators is non-zero. A double-byte
/// character of the runtime's multibyte code page (_getmbcp) is accepted
/// unchecked, trail byte included. An empty text is valid.
int IsValidPathChars(const char* path, int rejectSeparators);
