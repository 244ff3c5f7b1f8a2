#include "support/text/NumberText.h"

#include <gtest/gtest.h>

#include <climits>
#include <limits>

namespace {

const double kInf = std::numeric_limits<double>::infinity();
const double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(NumberText, FormatDoubleTrimsAndSuffixes)
{
    struct Case {
        double value;
        int digits;
        bool noPointSuffix;
        const char* text;
    };
    const Case cases[] = {
        {1.5, 8, false, "1.5"},
        {2.0, 8, false, "2.0"},
        {0.000000049, 8, false, "0.0"},                    // rounds to zero, trimmed, suffixed
        {-0.00000001, 8, false, "0.0"},                    // "-0.0000000" trims to "-0"
        {-0.0, 8, false, "0.0"},
        {123456.123456789, 8, false, "123456.1234568"},
        {1e20, 8, false, "100000000000000000000.0"},
        {1e-8, 8, false, "0.0"},
        {9.99999996, 8, false, "10.0"},                    // decimals carry into the integer part
        {-9.99999996, 8, false, "-10.0"},
        {0.125, 3, false, "0.12"},                         // tie to even (msvcrt: 0.13)
        {0.375, 3, false, "0.38"},
        {2.5, 1, false, "2.0"},                            // "%.0f": tie to even (msvcrt: 3.0)
        {-0.5, 1, false, "0.0"},                           // "%.0f" gives "-0"
        {5.0, 1, false, "5.0"},                            // one character: not trimmed
        {10.0, 1, false, "10.0"},                          // no point, so zeros stay
        {1.5, 0, false, "1.5"},                            // digits <= 0: "%f"
        {1.25e-7, -4, false, "0.0"},
        {2.0, 8, true, "2"},                               // no ".0" suffix
        {0.1, 30, false, "0.10000000000000000555111512313"},
        {0.1, INT_MAX, false, "0.1000000000000000055511151231257827021181583404541015625"},
        {kNaN, 8, false, "nan.0"},
        {kInf, 8, false, "inf.0"},
        {-kInf, 8, false, "-inf.0"},
        {kNaN, 8, true, "nan"},
    };
    for (const Case& c : cases) {
        const CString text = FormatDouble(c.value, c.digits, c.noPointSuffix);
        EXPECT_EQ(text.str(), c.text) << "FormatDouble(" << c.value << ", " << c.digits << ", " << c.noPointSuffix
                                      << ")";
    }
}

TEST(NumberText, FormatExpIsCompact)
{
    struct Case {
        double value;
        const char* text;
    };
    const Case cases[] = {
        {1500.0, "1.5e+3"},
        {1.0, "1"},
        {0.0, "0"},
        {-0.0, "-0"},
        {-1.0, "-1"},
        {-0.00000025, "-2.5e-7"},
        {123456789.0, "1.234568e+8"},
        {0.1, "1e-1"},
        {1e100, "1e+100"},
        {1e-300, "1e-300"},
        {12345685.0, "1.234568e+7"},                       // tie to even (msvcrt: 1.234569e+7)
        {9999999.5, "1e+7"},                               // mantissa carries into the exponent
        {5e-324, "4.940656e-324"},
        {kInf, ""},
        {-kInf, ""},
        {kNaN, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FormatExp(c.value).str(), c.text) << "FormatExp(" << c.value << ")";
}

TEST(NumberText, DecimalsShownCountsDisplayedDecimals)
{
    struct Case {
        double value;
        int digits;
        int decimals;
    };
    const Case cases[] = {
        {2.0, 0, 0},                // "2."
        {1.25, 0, 2},
        {0.1, -5, 1},               // "0.1"
        {1e-7, 0, 0},               // "0." at six decimals
        {0.0000015, 0, 6},          // "0.000002"
        {2.0, 3, 1},                // "2.0"
        {1.23456, 3, 3},            // "1.235"
        {0.0005, 3, 3},             // "0.001": held just above the tie
        {0.00049999, 3, 1},         // "0.0"
        {100.0, 2, 1},              // "100.0"
        {0.1, INT_MAX, 55},         // the whole exact expansion
        {kNaN, 0, 0},               // "nan"
        {kNaN, 3, 1},               // "nan.0"
    };
    for (const Case& c : cases)
        EXPECT_EQ(DecimalsShown(c.value, c.digits), c.decimals) << "DecimalsShown(" << c.value << ", " << c.digits << ")";
}

TEST(NumberText, FirstSignificantDecimalAtSixPlaces)
{
    struct Case {
        double value;
        int position;
    };
    const Case cases[] = {
        {0.00123, 3},
        {1.5, 1},
        {0.0456, 2},
        {-0.05, 2},
        {123.000001, 6},
        {0.0000015, 6},             // "0.000002"
        {2.0, 1},                   // no non-zero decimal: 1, not 0
        {0.0000001, 1},
        {0.0000005, 1},             // held below the tie: "0.000000"
        {0.9999999, 1},             // "1.000000": carried into the integer part
        {kNaN, 0},                  // no point at all
        {kInf, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FirstSignificantDecimal(c.value), c.position) << "FirstSignificantDecimal(" << c.value << ")";
}
