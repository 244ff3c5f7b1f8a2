// Paths fitted into limited space and checked for the characters a path may hold.
#include "SystemTestHelpers.h"

// CompactPath cuts as Wine's shell cuts to at most max - 1 characters; PadToWidth fills with blanks and
// refuses a longer text; FitPathToWidth falls back to the short form, else to blanks.
TEST(PathText, CompactPathKeepsTheNamePadToWidthFillsAndFitPathToWidthFallsBackToTheShortForm)
{
    char shortPath[MAX_PATH] = {};
    const int shortLength = static_cast<int>(GetShortPathNameA(_pgmptr, shortPath, MAX_PATH));
    const auto pad = [](const char* text, int width) {
        Raised = 0;
        const CString padded = PadToWidth(text, width);
        return padded + std::to_string(Raised).c_str();
    };
    const struct { CString got; std::string expected; } cases[] = {
        {CompactPath("C:\\path1\\path2\\sample.txt", 20), "C:\\pa...\\sample.txt"},
        {CompactPath("C:\\path1\\path2\\sample.txt", 1), ""},
        {pad("abc", 5), "abc  0"},
        {pad("abcd", 3), "1"},
        {pad("a", -1), "1"},
        {FitPathToWidth(_pgmptr, shortLength + 2), std::string(shortPath) + "  "},   // this program's path
        {FitPathToWidth(_pgmptr, shortLength), std::string(shortLength, ' ')},       // no room
        {FitPathToWidth("C:\\missing\\file.txt", 6), "      "},
        {FitPathToWidth("abcd", 4), "abcd"},   // fits exactly: kept as it is
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].expected, std::string(cases[i].got)) << "row " << i;
}

// Wild cards always and separators when asked are rejected.
TEST(PathText, IsValidPathCharsRejectsWildCardsAndOptionallySeparators)
{
    EXPECT_EQ(1, IsValidPathChars("C:\\dir\\f.txt", 0));
    EXPECT_EQ(0, IsValidPathChars("C:\\dir\\f.txt", 1));
    EXPECT_EQ(0, IsValidPathChars("f?.txt", 0));
    EXPECT_EQ(0, IsValidPathChars("\x95\x5c", 1)) << "in code page 1252 0x5C is a backslash";

}
