// Paths fitted into limited space and checked for the characters a path may hold.
#include "SystemTestHelpers.h"

#include <mbctype.h>

#include <clocale>

// CompactPath cuts as Wine's shell cuts to at most max - 1 characters; PadToWidth fills with blanks and
// refuses a longer text; FitPathToWidth falls back to the short form, else to blanks.
TEST(PathText, CompactPathKeepsTheNamePadToWidthFillsAndFitPathToWidthFallsBackToTheShortForm)
{
    const ScratchDir scratch("fit");
    scratch.Write("a very long file name.text");
    const std::string path = scratch / "a very long file name.text";
    char shortPath[MAX_PATH] = {};
    const int shortLength = static_cast<int>(GetShortPathNameA(path.c_str(), shortPath, MAX_PATH));
    ASSERT_LT(shortLength + 2, static_cast<int>(path.size())) << "the short form is shorter";
    const char* compacted = "C:\\path1\\path2\\sample.txt";   // 25 characters
    const auto pad = [](const char* text, int width) {
        Raised = 0;
        const CString padded = PadToWidth(text, width);
        return padded + std::to_string(Raised).c_str();
    };
    const struct { CString got; std::string expected; } cases[] = {
        {CompactPath(compacted, 26), compacted},
        {CompactPath(compacted, 20), "C:\\pa...\\sample.txt"},
        {CompactPath(compacted, 1), ""},
        {pad("abc", 5), "abc  0"},
        {pad(nullptr, 2), "  0"},
        {pad("abcd", 3), "1"},
        {pad("a", -1), "1"},
        {FitPathToWidth(path.c_str(), shortLength + 2), std::string(shortPath) + "  "},
        {FitPathToWidth(path.c_str(), shortLength), std::string(shortLength, ' ')},   // no room
        {FitPathToWidth("C:\\missing\\file.txt", 6), "      "},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].expected, std::string(cases[i].got)) << "row " << i;
}

// Wild cards always and separators when asked are rejected; a double-byte character of the multibyte
// code page is accepted whatever its trail byte.
TEST(PathText, IsValidPathCharsRejectsWildCardsAndOptionallySeparators)
{
    struct Case { const char* path; int rejectSeparators, expected; };
    const Case cases[] = {
        {"C:\\dir\\f.txt", 0, 1},
        {"C:\\dir\\f.txt", 1, 0},
        {"f?.txt", 0, 0},
        {"a|b", 0, 0},
        {"\x95\x5c", 1, 0},   // in code page 1252 0x5C is a backslash
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, IsValidPathChars(c.path, c.rejectSeparators)) << c.path << " " << c.rejectSeparators;

    // In code page 932 the same bytes are the character U+8868.
    const std::string previousLocale = std::setlocale(LC_ALL, nullptr);
    const int previousCodePage = _getmbcp();
    _setmbcp(932);   // Wine takes the code page from the locale set next; Windows from either
    std::setlocale(LC_ALL, ".932");
    EXPECT_EQ(1, IsValidPathChars("a\x95\x5c" "b", 1)) << "trail byte 0x5C";
    EXPECT_EQ(0, IsValidPathChars("\x83\x7c*", 1)) << "wild card after a double-byte character";
    std::setlocale(LC_ALL, previousLocale.c_str());
    _setmbcp(previousCodePage);
}
