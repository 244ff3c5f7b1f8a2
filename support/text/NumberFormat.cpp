#include "support/text/NumberFormat.h"

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <string>

namespace {

bool IsCSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

int ClampDecimals(int decimals)
{
    if (decimals < 0)
        return 6;
    return std::min(decimals, kMaxExactDecimals);
}

CString ToChars(double value, std::chars_format form, int decimals)
{
    // Room for 309 integer digits (or an exponent), sign, point and decimals.
    std::string text(static_cast<size_t>(decimals) + 340, '\0');
    const std::to_chars_result result =
        std::to_chars(text.data(), text.data() + text.size(), value, form, decimals);
    text.resize(result.ec == std::errc() ? static_cast<size_t>(result.ptr - text.data()) : 0);
    return CString(text);
}

} // namespace

CString FormatFixed(double value, int decimals)
{
    return ToChars(value, std::chars_format::fixed, ClampDecimals(decimals));
}

CString FormatScientific(double value, int decimals)
{
    return ToChars(value, std::chars_format::scientific, ClampDecimals(decimals));
}

int ParseInt(const char* text)
{
    if (!text)
        return 0;
    while (IsCSpace(*text))
        ++text;
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    // Past 2^31 + 1 the value saturates either way; the cap keeps it small.
    long long magnitude = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        magnitude = std::min(magnitude * 10 + (*text - '0'), 2147483649LL);
    return static_cast<int>(std::clamp<long long>(negative ? -magnitude : magnitude, INT_MIN, INT_MAX));
}

double ParseDouble(const char* text)
{
    if (!text)
        return 0.0;
    while (IsCSpace(*text))
        ++text;
    bool negative = false;
    if (*text == '-' || *text == '+') {
        negative = *text == '-';
        ++text;
    }
    if (*text == '-' || *text == '+')   // a second sign is no number
        return 0.0;
    const char* end = text;
    while (*end)
        ++end;
    double value = 0.0;
    const std::from_chars_result result = std::from_chars(text, end, value, std::chars_format::general);
    if (result.ec == std::errc::invalid_argument)
        return 0.0;
    if (result.ec == std::errc::result_out_of_range) {
        // Only the direction is left to decide: overflow or underflow.
        const double approximate = std::strtod(text, nullptr);
        value = std::fabs(approximate) >= 1.0 ? HUGE_VAL : 0.0;
    }
    return negative ? -value : value;
}
