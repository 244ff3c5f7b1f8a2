#include "support/text/NumberFormat.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <string>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

struct TextCase {
    double value;
    int decimals;
    const char* text;
};

} // namespace

// Expected texts are the exact binary values rounded half to even, as a
// correctly rounding printf gives them. Where msvcrt.dll's printf differs,
// its text is noted.
TEST(NumberFormat, FixedTextIsCorrectlyRounded)
{
    const TextCase cases[] = {
        {2.5, 0, "2"},                                     // tie to even (msvcrt: 3)
        {3.5, 0, "4"},                                     // tie to even, upward
        {-2.5, 0, "-2"},                                   // (msvcrt: -3)
        {0.5, 0, "0"},                                     // (msvcrt: 1)
        {0.125, 2, "0.12"},                                // exact tie (msvcrt: 0.13)
        {0.375, 2, "0.38"},
        {2251799813685248.5, 0, "2251799813685248"},       // 2^51 + 0.5 (msvcrt: ...249)
        {1.005, 2, "1.00"},                                // held as 1.00499999999999989...
        {0.1, 24, "0.100000000000000005551115"},           // exact binary digits, no zero padding
        {1e23, 0, "99999999999999991611392"},              // the double nearest 1e23
        {1e20, 6, "100000000000000000000.000000"},
        {9.99999996, 7, "10.0000000"},                     // carry into the integer part
        {-0.0, 2, "-0.00"},
        {-0.001, 2, "-0.00"},
        {5e-324, 6, "0.000000"},
        {1.5, -1, "1.500000"},                             // negative count: six decimals
        {kInf, 3, "inf"},
        {-kInf, 3, "-inf"},
        {kNaN, 3, "nan"},
    };
    for (const TextCase& c : cases) {
        const CString text = FormatFixed(c.value, c.decimals);
        EXPECT_EQ(text.str(), c.text) << "value " << c.value << " with " << c.decimals << " decimals";
    }

    // Counts above the exact limit stop at 1074 decimals: the smallest
    // subnormal's whole expansion.
    const CString tiny = FormatFixed(5e-324, INT_MAX);
    EXPECT_EQ(tiny.GetLength(), 2 + kMaxExactDecimals) << "length of 5e-324 with INT_MAX decimals";
    EXPECT_EQ(tiny.Right(12).str(), "533447265625") << "last digits of 5e-324's exact value";
}

TEST(NumberFormat, ScientificTextIsCorrectlyRounded)
{
    const TextCase cases[] = {
        {1500.0, 6, "1.500000e+03"},                       // two exponent digits (msvcrt: e+003)
        {12345685.0, 6, "1.234568e+07"},                   // tie to even (msvcrt: 1.234569e+007)
        {12345675.0, 6, "1.234568e+07"},                   // tie to even, upward
        {9999999.5, 6, "1.000000e+07"},                    // carry into the exponent
        {1e100, 6, "1.000000e+100"},
        {0.0, 6, "0.000000e+00"},
        {-2.5e-7, 6, "-2.500000e-07"},
        {5e-324, 6, "4.940656e-324"},
        {2.5, 0, "2e+00"},                                 // no point without decimals
        {kInf, 6, "inf"},
        {kNaN, 6, "nan"},
    };
    for (const TextCase& c : cases) {
        const CString text = FormatScientific(c.value, c.decimals);
        EXPECT_EQ(text.str(), c.text) << "value " << c.value << " with " << c.decimals << " decimals";
    }
}

TEST(NumberFormat, ParseIntReadsAsAtoi)
{
    struct Case {
        const char* text;
        int value;
    };
    const Case cases[] = {
        {"42", 42},
        {" \t\n42abc", 42},                 // leading white space, trailing text
        {"-17", -17},
        {"+5", 5},
        {"-0", 0},
        {"2147483647", INT_MAX},
        {"-2147483648", INT_MIN},
        {"2147483648", INT_MAX},            // saturates
        {"-99999999999999999999", INT_MIN},
        {"abc", 0},
        {"- 5", 0},
        {"--5", 0},
        {"", 0},
        {nullptr, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseInt(c.text), c.value) << "text \"" << (c.text ? c.text : "<null>") << "\"";
}

TEST(NumberFormat, ParseDoubleReadsAsAtof)
{
    struct Case {
        const char* text;
        double value;
    };
    const Case cases[] = {
        {"0.12345678", 0.12345678},
        {"  2.5x", 2.5},
        {"+3", 3.0},
        {"-.5", -0.5},
        {"5.", 5.0},
        {"1e3", 1000.0},
        {"1e", 1.0},                                       // incomplete exponent ignored
        {"9007199254740993", 9007199254740992.0},          // 2^53 + 1: tie to even
        {"1e999", kInf},                                   // too large
        {"-1e999", -kInf},
        {"1e-999", 0.0},                                   // too small
        {"inf", kInf},
        {"-Infinity", -kInf},
        {"0x1p3", 0.0},                                    // hexadecimal: only the "0"
        {"abc", 0.0},
        {"--1", 0.0},
        {"", 0.0},
        {nullptr, 0.0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(ParseDouble(c.text), c.value) << "text \"" << (c.text ? c.text : "<null>") << "\"";
    EXPECT_TRUE(std::isnan(ParseDouble("nan"))) << "\"nan\" gave " << ParseDouble("nan");
    EXPECT_TRUE(std::signbit(ParseDouble("-0.0"))) << "\"-0.0\" keeps its sign";
}
