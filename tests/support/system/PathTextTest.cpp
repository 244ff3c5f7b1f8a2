// Paths fitted into limited space and checked for the characters a path may hold.
#include "SystemTestHelpers.h"

#include <mbctype.h>

#include <clocale>

TEST(PathText, CompactPathKeepsTheFileNameWithinTheBudget)
{
    const char* path = "C:\\path1\\path2\\sample.txt";   // 25 characters
    struct Case { unsigned max; const char* expected; };   // at most max - 1 characters, cut as Wine's shell cuts
    const Case cases[] = {
        {26, "C:\\path1\\path2\\sample.txt"},
        {25, "C:\\path1\\p...\\sample.txt"},
        {20, "C:\\pa...\\sample.txt"},
        {1, ""},
        {0, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, std::string(CompactPath(path, c.max))) << "budget " << c.max;
}

// PadToWidth fills with blanks and refuses a longer text; FitPathToWidth falls back to the short form.
TEST(PathText, PadToWidthFillsWithBlanksAndFitPathToWidthFallsBackToTheShortForm)
{
    struct Case { const char* text; int width; std::string expected; };   // expected: padded|conditions raised
    const Case cases[] = {
        {"abc", 5, "abc  |0"},
        {nullptr, 2, "  |0"},
        {"abcd", 3, "|1"},
        {"a", -1, "|1"},
    };
    for (const auto& c : cases) {
        CString padded;
        const int raised = ConditionsRaised([&] { padded = PadToWidth(c.text, c.width); });
        EXPECT_EQ(c.expected, std::string(padded) + "|" + std::to_string(raised)) << c.width;
    }

    const ScratchDir scratch("fit");
    scratch.Write("a very long file name.text");
    const std::string path = scratch / "a very long file name.text";
    char shortPath[MAX_PATH] = {};
    const int shortLength = static_cast<int>(GetShortPathNameA(path.c_str(), shortPath, MAX_PATH));
    ASSERT_LT(shortLength + 2, static_cast<int>(path.size())) << "the short form is shorter";
    EXPECT_EQ(std::string(shortPath) + "  ", std::string(FitPathToWidth(path.c_str(), shortLength + 2)));
    EXPECT_EQ(std::string(shortLength, ' '), std::string(FitPathToWidth(path.c_str(), shortLength))) << "no room";
    EXPECT_EQ("      ", std::string(FitPathToWidth("C:\\missing\\file.txt", 6))) << "missing file";
}

// Wild cards always and separators when asked are rejected; a double-byte character of the multibyte
// code page is accepted whatever its trail byte.
TEST(PathText, IsValidPathCharsRejectsWildCardsAndOptionallySeparators)
{
    struct Case { const char* path; int rejectSeparators, expected; };
    const Case cases[] = {
        {"C:\\dir\\f.txt", 0, 1},
        {"C:\\dir\\f.txt", 1, 0},
        {"a/b", 1, 0},
        {"f?.txt", 0, 0},
        {"a|b", 0, 0},
        {nullptr, 1, 1},
        {"\x95\x5c", 1, 0},   // in code page 1252 0x5C is a backslash
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, IsValidPathChars(c.path, c.rejectSeparators))
            << (c.path ? c.path : "(null)") << " rejecting separators " << c.rejectSeparators;

    // In code page 932 the same bytes are the character U+8868.
    const std::string previousLocale = std::setlocale(LC_ALL, nullptr);
    const int previousCodePage = _getmbcp();
    _setmbcp(932);   // Wine takes the code page from the locale set next; Windows from either
    std::setlocale(LC_ALL, ".932");
    ASSERT_EQ(932, _getmbcp()) << "multibyte code page";
    EXPECT_EQ(1, IsValidPathChars("a\x95\x5c" "b", 1)) << "trail byte 0x5C";
    EXPECT_EQ(0, IsValidPathChars("\x83\x7c*", 1)) << "wild card after a double-byte character";
    EXPECT_EQ(1, IsValidPathChars("a\x95", 1)) << "lead byte at the end";
    std::setlocale(LC_ALL, previousLocale.c_str());
    _setmbcp(previousCodePage);
}
