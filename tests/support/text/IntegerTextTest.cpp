#include "support/text/IntegerText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

TEST(IntegerText, HexToIntWeighsDigitsByDistanceFromTheEnd)
{
    struct Case {
        const char* text;
        int value;
    };
    const Case cases[] = {
        {"FF", 255},                // two digits: the true value
        {"7f", 127},
        {"0A", 10},
        {"f", 15},
        {"100", 32},                // 1 * 2 * 16, not 256
        {"1000", 48},               // 1 * 3 * 16
        {"ABC", 508},               // 10*2*16 + 11*16 + 12
        {"G1", 0},                  // a non-digit anywhere gives 0
        {"1G", 0},
        {"1 ", 0},
        {"-1", 0},
        {"0x1F", 0},
        {"", 0},
        {nullptr, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(HexToInt(c.text), c.value) << "HexToInt(\"" << (c.text ? c.text : "<null>") << "\")";

    // A long text wraps modulo 2^32: sum of 15 * 16 * k for k < n, plus 15.
    const size_t n = 100000;
    uint32_t expected = 15;
    for (size_t k = 1; k < n; ++k)
        expected += static_cast<uint32_t>(15 * 16 * k);
    EXPECT_EQ(HexToInt(std::string(n, 'F').c_str()), static_cast<int>(expected)) << n << " digits F";
}

TEST(IntegerText, SplitDateNumberTakesFourSixOrEightCharacters)
{
    struct Case {
        int number;
        int result, year, month, day;
    };
    const Case cases[] = {
        {20260305, 1, 2026, 3, 5},
        {202603, 1, 2026, 3, 0},
        {2026, 1, 2026, 0, 0},
        {1000, 1, 1000, 0, 0},
        {99999999, 1, 9999, 99, 99},
        {20261399, 1, 2026, 13, 99},        // month and day not checked
        {-20260, 1, -202, 60, 0},           // six characters with the sign
        {-123, 1, -123, 0, 0},              // four characters with the sign
        {123, 0, 0, 0, 0},                  // 3 digits
        {12345, 0, 0, 0, 0},                // 5 digits
        {1234567890, 0, 0, 0, 0},           // 10 digits
        {-202603, 0, 0, 0, 0},              // 7 characters
        {-2147483647 - 1, 0, 0, 0, 0},      // 11 characters
        {0, 0, 0, 0, 0},
    };
    for (const Case& c : cases) {
        int year = -1, month = -1, day = -1;
        const int result = SplitDateNumber(c.number, year, month, day);
        EXPECT_TRUE(result == c.result && year == c.year && month == c.month && day == c.day)
            << "SplitDateNumber(" << c.number << ") expected " << c.result << ": " << c.year << ", " << c.month << ", "
            << c.day << "; got " << result << ": " << year << ", " << month << ", " << day;
    }
}
