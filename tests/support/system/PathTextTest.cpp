// Paths fitted into limited space and checked for the characters a path may hold.
#include "support/system/PathText.h"
#include "SystemTestHelpers.h"

#include <windows.h>

#include <mbctype.h>

#include <gtest/gtest.h>

#include <clocale>
#include <string>

TEST(PathText, CompactPathKeepsTheFileNameWithinTheBudget)
{
    const char* path = "C:\\path1\\path2\\sample.txt"; // 25 characters
    const struct {
        unsigned max;
        const char* expected; // at most max - 1 characters, cut where Wine's shell cuts
    } cases[] = {
        {26, "C:\\path1\\path2\\sample.txt"}, {25, "C:\\path1\\p...\\sample.txt"}, {20, "C:\\pa...\\sample.txt"},
        {12, "...\\samp..."}, {4, "..."}, {1, ""}, {0, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(std::string(CompactPath(path, c.max)), c.expected) << "budget " << c.max;
    const std::string longPath = "C:\\" + std::string(300, 'a') + "\\file.txt";
    EXPECT_EQ(CompactPath(longPath.c_str(), 30).GetLength(), 29) << "a path longer than MAX_PATH";
}

TEST(PathText, PadToWidthFillsWithBlanksAndRefusesLongerTexts)
{
    const struct { const char* text; int width; const char* expected; int raised; } cases[] = {
        {"abc", 5, "abc  ", 0}, {"abc", 3, "abc", 0}, {nullptr, 2, "  ", 0}, {"", 0, "", 0},
        {"abcd", 3, "", 1}, {"a", -1, "", 1},
    };
    for (const auto& c : cases) {
        InvalidParameterCounter counter;
        EXPECT_EQ(std::string(PadToWidth(c.text, c.width)), c.expected) << (c.text ? c.text : "(null)") << " in " << c.width;
        EXPECT_EQ(counter.Raised(), c.raised) << "conditions raised for " << (c.text ? c.text : "(null)") << " in " << c.width;
    }
}

TEST(PathText, FitPathToWidthFallsBackToTheShortForm)
{
    const ScratchDir scratch("fit");
    scratch.Write("a very long file name.text");
    const std::string path = scratch / "a very long file name.text";
    char shortPath[MAX_PATH] = {};
    const int shortLength = static_cast<int>(GetShortPathNameA(path.c_str(), shortPath, MAX_PATH));
    ASSERT_LT(shortLength + 2, static_cast<int>(path.size())) << "the short form is shorter";
    EXPECT_EQ(std::string(FitPathToWidth(path.c_str(), shortLength + 2)), std::string(shortPath) + "  ");
    EXPECT_EQ(std::string(FitPathToWidth(path.c_str(), shortLength)), std::string(shortLength, ' ')) << "no room";
    EXPECT_EQ(std::string(FitPathToWidth("C:\\missing\\file.txt", 6)), "      ") << "missing file";
    EXPECT_EQ(std::string(FitPathToWidth("C:\\f", 6)), "C:\\f  ") << "a path that fits";
    EXPECT_EQ(std::string(FitPathToWidth("C:\\f", 4)), "C:\\f") << "a path as long as the width";
}

TEST(PathText, IsValidPathCharsRejectsWildCardsAndOptionallySeparators)
{
    const struct { const char* path; int rejectSeparators, expected; } cases[] = {
        {"C:\\dir\\f.txt", 0, 1}, {"C:\\dir\\f.txt", 1, 0}, {"f name.txt", 1, 1}, {"a/b", 1, 0}, {"a:b", 1, 0},
        {"a:b", 0, 1}, {"*.txt", 0, 0}, {"f?.txt", 0, 0}, {"a|b", 0, 0}, {"a\tb", 0, 0}, {nullptr, 1, 1},
        {"\x95\x5c", 1, 0}, // in code page 1252 0x5C is a backslash
        {"\x83\x7c", 0, 0}, // and 0x7C a bar
    };
    for (const auto& c : cases)
        EXPECT_EQ(IsValidPathChars(c.path, c.rejectSeparators), c.expected)
            << (c.path ? c.path : "(null)") << " rejecting separators " << c.rejectSeparators;

    // In code page 932 the same bytes are the characters U+8868 and U+30DD.
    const std::string previousLocale = std::setlocale(LC_ALL, nullptr);
    const int previousCodePage = _getmbcp();
    _setmbcp(932); // Wine takes the code page from the locale set next; Windows from either
    std::setlocale(LC_ALL, ".932");
    ASSERT_EQ(_getmbcp(), 932) << "multibyte code page";
    EXPECT_EQ(IsValidPathChars("a\x95\x5c" "b", 1), 1) << "trail byte 0x5C";
    EXPECT_EQ(IsValidPathChars("\x83\x7c.txt", 1), 1) << "trail byte 0x7C";
    EXPECT_EQ(IsValidPathChars("\x83\x7c*", 1), 0) << "wild card after a double-byte character";
    EXPECT_EQ(IsValidPathChars("a\x95", 1), 1) << "lead byte at the end";
    std::setlocale(LC_ALL, previousLocale.c_str());
    _setmbcp(previousCodePage);
}
