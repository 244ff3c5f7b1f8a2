// Fortran namelist input written to a caller-opened text file.
//
// Each operation writes one or more complete lines through
// CStdioFile::WriteString, so a file opened in text mode gets CR LF line
// ends. A well-formed group is written by WriteNamelistGroup, any entries,
// comments and blank lines, then WriteNamelistEnd; the order is not checked
// and nothing is kept between calls.
//
// Texts are 8-bit and written exactly as given: no case change, no checks,
// no escaping. A quote inside a quoted value is written as it is ('it's'),
// and a "\n" inside a name, value or comment becomes a line end in the file
// (the entry then spans two lines); callers that need either must prepare
// the text themselves. A null text counts as "".
//
// Write errors are not caught: CStdioFile::WriteString throws CFileException*
// (a full disk, a file opened for reading) and the exception passes to the
// caller, with the lines before it already handed to the file.
#pragma once

#include <type_traits>
#include <vector>

#include "framework/AfxFile.h"
#include "framework/AfxString.h"

/// The trailing-comment suffix: the text trimmed of white space, stripped of
/// all leading "!", trimmed again, then "\t! " + text; empty when nothing is
/// left. "  !! note " -> "\t! note"; "!", "   " and "" -> "".
CString MakeNamelistComment(const char* text);

/// "!" + text + "\n", the text as given (not trimmed, no blank after "!").
void WriteNamelistComment(CStdioFile& file, const char* text);

/// "\n".
void WriteNamelistBlankLine(CStdioFile& file);

/// "&" + group + comment suffix + "\n": "&INPUT\n", "&INPUT\t! run 1\n".
void WriteNamelistGroup(CStdioFile& file, const char* group, const char* comment);

/// "/\n", the group terminator.
void WriteNamelistEnd(CStdioFile& file);

/// "name = value," + comment suffix + "\n". With QuoteValues non-zero the
/// value is put in single quotes first; then white space at both ends of the
/// value text is trimmed (blanks inside the quotes stay: "'  abc '"). A value
/// text that is empty after trimming writes nothing at all, so a blank
/// unquoted value leaves the variable out of the group; a quoted empty value
/// is written as ''.
void WriteNamelistString(CStdioFile& file, const char* name, const char* value, const char* comment,
                         int QuoteValues);

/// "name = .true.," or "name = .false.," + comment suffix + "\n".
void WriteNamelistBool(CStdioFile& file, const char* name, bool value, const char* comment);

/// "name = -3," + comment suffix + "\n" (decimal, 32-bit signed).
void WriteNamelistInt(CStdioFile& file, const char* name, int value, const char* comment);

/// "name = " + FormatDouble(value, 8, false) + "," + comment suffix + "\n":
/// fixed notation with at most seven decimals (0.1 -> "0.1", 100 -> "100.0",
/// -0.0 -> "0.0"), never an exponent. NaN and the infinities are written
/// "NaN", "Infinity" and "-Infinity", as Fortran namelist input reads them.
void WriteNamelistDouble(CStdioFile& file, const char* name, double value, const char* comment);

/// A list entry spread over lines of ValuesPerLine values (values below 1
/// mean 5). Each element is written as " value," (or " 'value'," with
/// QuoteValues non-zero), untrimmed. The first line starts with "name =",
/// continuation lines with as many blanks as "name =" has bytes, and every
/// line ends with the comment suffix and "\n". Name "XP", values 1..7, 3 per
/// line, comment "nodes":
///     "XP = 1, 2, 3,\t! nodes\n"
///     "     4, 5, 6,\t! nodes\n"
///     "     7,\t! nodes\n"
/// With ValuesPerLine 1 only the first line gets the name: later lines start
/// directly with the element's blank, unindented; this irregular layout is
/// intended. An empty list writes nothing, not even the name.
void WriteNamelistArray(CStdioFile& file, const char* name, const std::vector<CString>& values,
                        const char* comment, int ValuesPerLine, int QuoteValues);

/// The same list entry with the values taken by value (the parameter is the
/// private copy): identical output. Ordinary calls, with a vector or a braced
/// list, choose the form above, since a by-value twin would make every call
/// ambiguous; this form is reached by naming it:
///     WriteNamelistArray<std::vector<CString>>(file, "XP", values, "", 3, 0);
template <class Values, class = std::enable_if_t<std::is_same_v<Values, std::vector<CString>>>>
void WriteNamelistArray(CStdioFile& file, const char* name, Values values, const char* comment, int ValuesPerLine,
                        int QuoteValues)
{
    const std::vector<CString>& copy = values;
    WriteNamelistArray(file, name, copy, comment, ValuesPerLine, QuoteValues);
}
