// Expected texts are the exact binary values rounded half to even; "msvcrt:"
// notes where that runtime's printf would differ.
#include "support/text/Text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <tuple>

static const double kInf = std::numeric_limits<double>::infinity(), kNaN = std::numeric_limits<double>::quiet_NaN();

// Each case is (input, second argument, expected result); a failure names the function and both arguments.
template <class In, class T, class F>
static void Check(const char* name, F f, std::initializer_list<std::tuple<In, int, T>> cases)
{
    for (const auto& [value, digits, expected] : cases)
        EXPECT_EQ(f(value, digits), expected) << name << "(" << value << ", " << digits << ")";
}

TEST(NumberText, FormatsGiveTheExactBinaryValueRoundedHalfToEven)
{
    // FormatDouble's digits as given, negative for -digits without the point suffix.
    Check<double, const char*>("FormatDouble", [](double v, int d) { return FormatDouble(v, std::abs(d), d < 0).str(); },
        {{2.0, 8, "2.0"}, {-0.0, 8, "0.0"}, {1e-8, 8, "0.0"}, {1e20, 8, "100000000000000000000.0"}, {1.5, 0, "1.5"},
         {9.99999996, 8, "10.0"} /* carried */, {-9.99999996, -8, "-10"}, {0.125, 3, "0.12"} /* msvcrt: 0.13 */,
         {2.5, 1, "2.0"} /* msvcrt: 3.0 */, {10.0, 1, "10.0"},
         {0.1, INT_MAX, "0.1000000000000000055511151231257827021181583404541015625"},
         {2251799813685248.5, 1, "2251799813685248.0"} /* msvcrt: ...249.0 */, {kNaN, 8, "nan.0"}, {-kInf, 8, "-inf.0"}});
    Check<double, std::string>("FormatFixed and FormatScientific", [](double v, int d) {
        return FormatFixed(v, d).str() + " " + FormatScientific(v, d).str();
    }, {{-2.5, 0, "-2 -2e+00"}, {1.005, 2, "1.00 1.00e+00"}, {-0.0, 2, "-0.00 -0.00e+00"}, {1.5, -1, "1.500000 1.500000e+00"},
        {1500.0, 6, "1500.000000 1.500000e+03"} /* msvcrt: e+003 */, {9999999.5, 2, "9999999.50 1.00e+07"}});
    Check<double, const char*>("FormatExp", [](double v, int) { return FormatExp(v).str(); },
        {{1500.0, 0, "1.5e+3"}, {-0.0, 0, "-0"}, {-0.00000025, 0, "-2.5e-7"}, {1e100, 0, "1e+100"},
         {12345685.0, 0, "1.234568e+7"} /* msvcrt: ...69 */, {9999999.5, 0, "1e+7"}, {kInf, 0, ""}});
    Check<double, int>("DecimalsShown", DecimalsShown, {{2.0, 0, 0}, {1.25, 0, 2}, {2.0, 3, 1}, {1.23456, 3, 3}, {1.25, 1, 1},
        {0.1, INT_MAX, 55}, {kNaN, 0, 0}, {kNaN, 3, 1}});
    Check<double, int>("FirstSignificantDecimal", [](double v, int) { return FirstSignificantDecimal(v); },
        {{0.00123, 0, 3}, {-0.05, 0, 2}, {0.0000015, 0, 6}, {2.0, 0, 1}, {0.9999999, 0, 1}, {kNaN, 0, 0}});
}

// Text read as numbers; DegreesToDms splits through "%.8f" text.
TEST(NumberText, ReadersTakeTheLeadingNumberAndSplittersKeepTheSignOnTheFirstPart)
{
    Check<const char*, int>("ParseInt", [](const char* t, int) { return ParseInt(t); }, {{" \t-17x", 0, -17}, {"\n\v\f\r8", 0, 8},
        {"2147483648", 0, INT_MAX}, {"-99999999999999999999", 0, INT_MIN}, {"- 5", 0, 0}, {nullptr, 0, 0}});
    Check<const char*, double>("ParseDouble", [](const char* t, int) { return ParseDouble(t); }, {{"  -.5x", 0, -0.5},
        {"1e", 0, 1.0}, {"1e999", 0, kInf}, {"-1e-999", 0, 0.0}, {"0x1p3", 0, 0.0}, {"--1", 0, 0.0}, {nullptr, 0, 0.0}});
    // Digits weigh 16 times their distance from the end: "100" is 32, not 256.
    Check<const char*, int>("HexToInt", [](const char* t, int) { return HexToInt(t); }, {{"FF", 0, 255}, {"7f", 0, 127},
        {"0A", 0, 10}, {"100", 0, 32}, {"ABC", 0, 508}, {"0x1F", 0, 0}, {"1 ", 0, 0}, {"", 0, 0}, {nullptr, 0, 0}});
    const auto texts = [](std::initializer_list<double> values) {   // %.17g shows every bit and NaN
        std::string text;
        char number[32];
        for (double value : values)
            text += std::string(text.empty() ? "" : " ") + (std::snprintf(number, 32, "%.17g", value), number);
        return text;
    };
    Check<int, std::string>("SplitDateNumber (result, year, month, day)", [&](int number, int) {
        int year = -1, month = -1, day = -1;
        return texts({1.0 * SplitDateNumber(number, year, month, day), 1.0 * year, 1.0 * month, 1.0 * day});
    }, {{20260305, 0, "1 2026 3 5"}, {202603, 0, "1 2026 3 0"}, {2026, 0, "1 2026 0 0"}, {20261399, 0, "1 2026 13 99"},
        {-20260, 0, "1 -202 60 0"}, {-123, 0, "1 -123 0 0"}, {123, 0, "0 0 0 0"}, {1234567890, 0, "0 0 0 0"}});
    // Sign on the degrees; 60 minutes kept.
    Check<double, std::string>("DegreesToDms (degrees, minutes, seconds), DmsToMinutes, DmsToSeconds", [&](double v, int) {
        double degrees = -1, minutes = -1, seconds = -1;
        DegreesToDms(v, degrees, minutes, seconds);
        return texts({degrees, minutes, seconds, DmsToMinutes(v), DmsToSeconds(v)});
    }, {{139.7625, 0, "139 45 45 8385.75 503145"}, {-kInf, 0, "0 0 0 0 0"},
        {45.508333333, 0, "45 30 29.9999988 2730.4999999800002 163829.99999879999"},
        {-12.5, 0, "-12 30 0 -690 -41400"}, {-0.5, 0, "0 30 0 30 1800"}, {12.99999999, 0, "12 60 0 780 46800"},
        {1e20, 0, "2147483647 0 3.5999999999226904e+23 6e+21 3.5999999999999998e+23"}, {kNaN, 0, "0 0 nan nan nan"}});
    const double parts[] = {-12.0, 30.0, 30.0};   // added as given
    Check<const double*, double>("DmsArrayToMinutes", [](const double* p, int) { double m = -1; DmsArrayToMinutes(p, m); return m; },
        {{parts, 0, -689.5}, {nullptr, 0, 0.0}});
}
