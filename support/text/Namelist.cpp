#include "support/text/Namelist.h"

#include <cmath>

#include "support/text/NumberText.h"

namespace {

// "name = value," + suffix + "\n", one line written with one call.
void WriteEntry(CStdioFile& file, const char* name, const CString& valueText, const char* comment)
{
    const CString line = CString(name) + " = " + valueText + "," + MakeNamelistComment(comment) + "\n";
    file.WriteString(line);
}

} // namespace

CString MakeNamelistComment(const char* text)
{
    CString body(text);
    body.Trim();
    body.TrimLeft("!");
    body.Trim();
    if (body.IsEmpty())
        return CString();
    return "\t! " + body;
}

void WriteNamelistComment(CStdioFile& file, const char* text)
{
    file.WriteString(CString("!") + text + "\n");
}

void WriteNamelistBlankLine(CStdioFile& file)
{
    file.WriteString("\n");
}

void WriteNamelistGroup(CStdioFile& file, const char* group, const char* comment)
{
    file.WriteString(CString("&") + group + MakeNamelistComment(comment) + "\n");
}

void WriteNamelistEnd(CStdioFile& file)
{
    file.WriteString("/\n");
}

void WriteNamelistString(CStdioFile& file, const char* name, const char* value, const char* comment,
                         int QuoteValues)
{
    CString valueText = QuoteValues ? "'" + CString(value) + "'" : CString(value);
    valueText.Trim();
    if (valueText.IsEmpty())
        return;
    WriteEntry(file, name, valueText, comment);
}

void WriteNamelistBool(CStdioFile& file, const char* name, bool value, const char* comment)
{
    WriteEntry(file, name, value ? ".true." : ".false.", comment);
}

void WriteNamelistInt(CStdioFile& file, const char* name, int value, const char* comment)
{
    CString valueText;
    valueText.Format("%d", value);
    WriteEntry(file, name, valueText, comment);
}

void WriteNamelistDouble(CStdioFile& file, const char* name, double value, const char* comment)
{
    // Non-finite values in the words a Fortran namelist reader accepts.
    const char* const nonFinite = std::isnan(value) ? "NaN" : value == HUGE_VAL ? "Infinity"
                                : value == -HUGE_VAL ? "-Infinity" : nullptr;
    WriteEntry(file, name, nonFinite ? CString(nonFinite) : FormatDouble(value, 8, false), comment);
}

void WriteNamelistArray(CStdioFile& file, const char* name, const std::vector<CString>& values,
                        const char* comment, int ValuesPerLine, int QuoteValues)
{
    CString prefix = CString(name) + " =";
    const int prefixLength = prefix.GetLength();
    const CString suffix = MakeNamelistComment(comment);
    if (ValuesPerLine < 1)
        ValuesPerLine = 5;
    if (values.empty())
        return;

    for (size_t i = 0; i < values.size(); ++i) {
        const char* value = values.at(i).GetString();
        const CString element = QuoteValues ? CString(" '") + value + "'," : CString(" ") + value + ",";
        const size_t r = (i + 1) % static_cast<size_t>(ValuesPerLine);
        if (r == 1 || i == 0)
            file.WriteString(prefix);
        file.WriteString(element);
        if (r == 0 || i == values.size() - 1) {
            file.WriteString(suffix);
            file.WriteString("\n");
        }
        // Continuation lines line up under the first value. With one value
        // per line r is never 1, so they get no prefix at all (intended).
        if (i == 0)
            prefix = CString(' ', prefixLength);
    }
}
