#include "support/text/IntegerText.h"

#include <cstdint>
#include <cstring>
#include <string>

#include "support/text/NumberFormat.h"

int HexToInt(const char* text)
{
    if (!text)
        return 0;
    const size_t length = std::strlen(text);
    uint32_t total = 0;
    for (size_t i = 0; i < length; ++i) {
        const char c = text[i];
        uint32_t digit;
        if (c >= '0' && c <= '9')
            digit = static_cast<uint32_t>(c - '0');
        else if (c >= 'A' && c <= 'F')
            digit = static_cast<uint32_t>(c - 'A' + 10);
        else if (c >= 'a' && c <= 'f')
            digit = static_cast<uint32_t>(c - 'a' + 10);
        else
            return 0;
        // Weighted by distance from the end, not by a power of 16 (intended).
        if (i < length - 1)
            digit = digit * static_cast<uint32_t>(length - i - 1) * 16u;
        total += digit;
    }
    return static_cast<int>(total);
}

int SplitDateNumber(int number, int& year, int& month, int& day)
{
    year = month = day = 0;
    const std::string text = std::to_string(number);
    const int length = static_cast<int>(text.size());
    if (((length - 4) & ~6) != 0 || length == 10)
        return 0;
    int end = length;
    if (length >= 8) {
        day = ParseInt(text.substr(static_cast<size_t>(end - 2), 2).c_str());
        end -= 2;
    }
    if (length >= 6) {
        month = ParseInt(text.substr(static_cast<size_t>(end - 2), 2).c_str());
        end -= 2;
    }
    year = ParseInt(text.substr(static_cast<size_t>(end - 4), 4).c_str());
    return 1;
}
