#include "support/text/NumberText.h"

#include <climits>

#include "support/text/NumberFormat.h"

CString FormatDouble(double value, int digits, bool noPointSuffix)
{
    CString text = FormatFixed(value, digits > 0 ? digits - 1 : 6);
    if (text.GetLength() > 1 && text.Find('.') >= 0) {
        text.TrimRight("0");
        text.TrimRight(".");
    }
    if (text.CompareNoCase("-0") == 0)
        text = "0";
    if (!noPointSuffix && text.Find('.') < 0)
        text += ".0";
    return text;
}

CString FormatExp(double value)
{
    const CString text = FormatScientific(value, 6);
    const int at = text.Find('e');
    if (at <= 0)
        return CString();
    CString mantissa = text.Left(at);
    const CString sign = text.Mid(at, 2);
    CString exponent = text.Mid(at + 2);
    mantissa.TrimRight("0");
    mantissa.TrimRight(".");
    exponent.TrimLeft("0");
    if (exponent.IsEmpty())
        return mantissa;
    return mantissa + sign + exponent;
}

int DecimalsShown(double value, int digits)
{
    CString text;
    if (digits < 1) {
        text = FormatFixed(value, 6);
        text.TrimRight("0");
    } else {
        text = FormatDouble(value, digits < INT_MAX ? digits + 1 : INT_MAX, false);
    }
    const int point = text.Find('.');
    return point < 0 ? 0 : text.GetLength() - point - 1;
}

int FirstSignificantDecimal(double value)
{
    CString text = FormatFixed(value, 6);
    text.TrimRight();
    text.TrimRight("0");
    const int point = text.Find('.');
    if (text.IsEmpty() || point < 0)
        return 0;
    CString fraction = text.Mid(point + 1);
    const int lengthBefore = fraction.GetLength();
    fraction.TrimLeft("0");
    return lengthBefore - fraction.GetLength() + 1;
}
