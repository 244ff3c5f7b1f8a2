// Expected texts are the exact binary values rounded half to even; "msvcrt:"
// notes where that runtime's printf would differ.
#include "support/text/AngleText.h"
#include "support/text/IntegerText.h"
#include "support/text/NumberFormat.h"
#include "support/text/NumberText.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

static const double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();

// Each case is (value, digits or decimals, expected result).
template <class T, class F>
static void Check(const char* name, F f, std::initializer_list<std::tuple<double, int, T>> cases)
{
    for (const auto& [value, digits, expected] : cases)
        EXPECT_EQ(f(value, digits), expected) << name << "(" << value << ", " << digits << ")";
}

TEST(NumberText, CorrectlyRoundedText)
{
    Check<const char*>("FormatDouble", [](double v, int d) { return FormatDouble(v, d, false).str(); },
        {{1.5, 8, "1.5"}, {2.0, 8, "2.0"}, {0.000000049, 8, "0.0"}, {-0.00000001, 8, "0.0"}, {-0.0, 8, "0.0"},
         {1e-8, 8, "0.0"}, {1e20, 8, "100000000000000000000.0"}, {123456.123456789, 8, "123456.1234568"},
         {9.99999996, 8, "10.0"}, {-9.99999996, 8, "-10.0"}, {0.125, 3, "0.12"} /* msvcrt: 0.13 */,
         {2.5, 1, "2.0"} /* msvcrt: 3.0 */, {-0.5, 1, "0.0"}, {5.0, 1, "5.0"}, {10.0, 1, "10.0"}, {1.5, 0, "1.5"},
         {1.25e-7, -4, "0.0"}, {1e23, 1, "99999999999999991611392.0"}, {0.1, 30, "0.10000000000000000555111512313"},
         {0.1, INT_MAX, "0.1000000000000000055511151231257827021181583404541015625"},
         {2251799813685248.5, 1, "2251799813685248.0"} /* msvcrt: ...249.0 */,
         {kNaN, 8, "nan.0"}, {kInf, 8, "inf.0"}, {-kInf, 8, "-inf.0"}});
    EXPECT_EQ(FormatDouble(2.0, 8, true).str(), "2");
    EXPECT_EQ(FormatDouble(-kInf, 8, true).str(), "-inf");
    Check<const char*>("FormatFixed", [](double v, int d) { return FormatFixed(v, d).str(); },
        {{-2.5, 0, "-2"}, {3.5, 0, "4"}, {1.005, 2, "1.00"}, {-0.0, 2, "-0.00"}, {1.5, -1, "1.500000"}, {kNaN, 3, "nan"}});
    Check<const char*>("FormatScientific", [](double v, int d) { return FormatScientific(v, d).str(); },
        {{1500.0, 6, "1.500000e+03"} /* msvcrt: e+003 */, {12345685.0, 6, "1.234568e+07"} /* msvcrt: ...69 */,
         {12345675.0, 6, "1.234568e+07"}, {9999999.5, 6, "1.000000e+07"}, {1e100, 6, "1.000000e+100"},
         {2.5, 0, "2e+00"}, {5e-324, 6, "4.940656e-324"}, {-kInf, 6, "-inf"}});
    Check<const char*>("FormatExp", [](double v, int) { return FormatExp(v).str(); },
        {{1500.0, 0, "1.5e+3"}, {1.0, 0, "1"}, {0.0, 0, "0"}, {-0.0, 0, "-0"}, {-0.00000025, 0, "-2.5e-7"},
         {123456789.0, 0, "1.234568e+8"}, {1e100, 0, "1e+100"}, {1e-300, 0, "1e-300"},
         {12345685.0, 0, "1.234568e+7"} /* msvcrt: ...69 */, {9999999.5, 0, "1e+7"}, {kInf, 0, ""}, {kNaN, 0, ""}});
    Check<int>("DecimalsShown", DecimalsShown,
        {{2.0, 0, 0}, {1.25, 0, 2}, {0.1, -5, 1}, {1e-7, 0, 0}, {2.0, 3, 1}, {1.23456, 3, 3}, {0.0005, 3, 3},
         {100.0, 2, 1}, {0.1, INT_MAX, 55}, {kNaN, 0, 0}, {kNaN, 3, 1}});
    Check<int>("FirstSignificantDecimal", [](double v, int) { return FirstSignificantDecimal(v); },
        {{0.00123, 0, 3}, {1.5, 0, 1}, {0.0456, 0, 2}, {-0.05, 0, 2}, {0.0000015, 0, 6}, {2.0, 0, 1},
         {0.0000005, 0, 1}, {0.9999999, 0, 1}, {kNaN, 0, 0}, {kInf, 0, 0}});
}

// Text read as numbers; DegreesToDms splits through "%.8f" text.
TEST(NumberText, ReadingAndSplitting)
{
    const std::pair<const char*, int> ints[] = {{" \t-17x", -17}, {"2147483648", INT_MAX},
        {"-99999999999999999999", INT_MIN}, {"- 5", 0}, {nullptr, 0}};
    for (const auto& [text, value] : ints)
        EXPECT_EQ(ParseInt(text), value) << "ParseInt(\"" << text << "\")";
    const std::pair<const char*, double> doubles[] = {{"  -.5x", -0.5}, {"1e", 1.0}, {"9007199254740993", 9007199254740992.0},
        {"1e999", kInf}, {"-1e-999", 0.0}, {"-Infinity", -kInf}, {"0x1p3", 0.0}, {"--1", 0.0}, {nullptr, 0.0}};
    for (const auto& [text, value] : doubles)
        EXPECT_EQ(ParseDouble(text), value) << "ParseDouble(\"" << text << "\")";
    // Digits weigh 16 times their distance from the end: "100" is 32, not 256.
    const std::pair<const char*, int> hex[] = {{"FF", 255}, {"7f", 127}, {"0A", 10}, {"100", 32}, {"1000", 48},
        {"ABC", 508}, {"G1", 0}, {"1 ", 0}, {"-1", 0}, {"0x1F", 0}, {"", 0}, {nullptr, 0}};
    for (const auto& [text, value] : hex)
        EXPECT_EQ(HexToInt(text), value) << "HexToInt(\"" << text << "\")";
    const uint64_t n = 100000;   // wraps modulo 2^32: 15 + sum of 15 * 16 * k for k < n
    EXPECT_EQ(HexToInt(std::string(n, 'F').c_str()), static_cast<int>(static_cast<uint32_t>(120 * n * (n - 1) + 15)));

    struct Date { int number; std::vector<int> split; };   // split: result, year, month, day
    const Date dates[] = {{20260305, {1, 2026, 3, 5}}, {202603, {1, 2026, 3, 0}}, {2026, {1, 2026, 0, 0}},
        {20261399, {1, 2026, 13, 99}}, {-20260, {1, -202, 60, 0}}, {-123, {1, -123, 0, 0}}, {123, {0, 0, 0, 0}},
        {12345, {0, 0, 0, 0}}, {1234567890, {0, 0, 0, 0}}, {-202603, {0, 0, 0, 0}}, {INT_MIN, {0, 0, 0, 0}},
        {0, {0, 0, 0, 0}}};
    for (const Date& c : dates) {
        std::vector<int> got(4, -1);
        got[0] = SplitDateNumber(c.number, got[1], got[2], got[3]);
        EXPECT_EQ(got, c.split) << "SplitDateNumber(" << c.number << ")";
    }
    struct Case { double value, degrees, minutes, seconds; };
    const Case cases[] = {{35.5, 35, 30, 0}, {139.7625, 139, 45, 45}, {0.000001, 0, 0, 0.0036},
        {51.477928, 51, 28, 40.5408}, {45.508333333, 45, 30, 29.9999988}, {-12.5, -12, 30, 0} /* sign on degrees */,
        {-0.5, 0, 30, 0}, {12.99999999, 12, 60, 0} /* 60 minutes kept */, {1e20, INT_MAX, 0, 3.5999999999226904e+23},
        {kNaN, 0, 0, kNaN}, {kInf, 0, 0, kInf}, {-kInf, 0, 0, 0}};
    for (const Case& c : cases) {
        double degrees = -1, minutes = -1, seconds = -1;
        char expected[96], got[96];
        DegreesToDms(c.value, degrees, minutes, seconds);
        std::snprintf(expected, sizeof(expected), "%.17g, %.17g, %.17g", c.degrees, c.minutes, c.seconds);
        std::snprintf(got, sizeof(got), "%.17g, %.17g, %.17g", degrees, minutes, seconds);
        EXPECT_STREQ(got, expected) << "DegreesToDms(" << c.value << ")";
    }
    const double totals[][3] = {{139.7625, 8385.75, 503145.0}, {-12.5, -690.0, -41400.0}, {12.99999999, 780.0, 46800.0}};
    for (const auto& [value, minutes, seconds] : totals)
        EXPECT_EQ((std::vector<double>{DmsToMinutes(value), DmsToSeconds(value)}), (std::vector<double>{minutes, seconds}))
            << "DmsToMinutes and DmsToSeconds(" << value << ")";
    auto arrayMinutes = [](const double* dms) { double minutes = -1; DmsArrayToMinutes(dms, minutes); return minutes; };
    const double dms[] = {-12.0, 30.0, 30.0};
    EXPECT_EQ(arrayMinutes(dms), -689.5) << "DmsArrayToMinutes adds the parts as given";
    EXPECT_EQ(arrayMinutes(nullptr), 0.0) << "DmsArrayToMinutes(nullptr)";
}
