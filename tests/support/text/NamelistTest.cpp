#include "support/text/Namelist.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "TextTestFiles.h"

namespace {

// Writes a namelist file through `body` and returns its bytes.
std::string WriteNamelistFile(const std::function<void(CStdioFile&)>& body)
{
    TempDirectory dir;
    const std::string path = dir.File("input.nml");
    CStdioFile file;
    if (!file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText)) {
        ADD_FAILURE() << "cannot create " << path;
        return std::string();
    }
    body(file);
    file.Close();
    return ReadBytes(path);
}

void ExpectNamelist(const std::string& expected, const std::function<void(CStdioFile&)>& body)
{
    const std::string actual = WriteNamelistFile(body);
    EXPECT_EQ(actual, expected) << "\n expected " << DumpBytes(expected) << "\n got      " << DumpBytes(actual);
}

std::vector<CString> Numbers(int count)
{
    std::vector<CString> values;
    for (int i = 1; i <= count; ++i)
        values.push_back(CString(std::to_string(i)));
    return values;
}

} // namespace

TEST(Namelist, WritesAWholeFileByteForByte)
{
    ExpectNamelist(
        "! generated input\r\n"
        "&INPUT\r\n"
        "TITLE = 'beam 2',\t! case name\r\n"
        "MODE = fast,\r\n"
        "FLAG = .true.,\r\n"
        "DEBUG = .false.,\t! off\r\n"
        "N = -3,\r\n"
        "NMAX = 2147483647,\r\n"
        "DT = 0.1,\r\n"
        "TEND = 100.0,\t! s\r\n"
        "XP = 1, 2, 3,\t! nodes\r\n"
        "     4, 5, 6,\t! nodes\r\n"
        "     7,\t! nodes\r\n"
        "/\r\n"
        "\r\n"
        "&OUTPUT\t! run 1\r\n"
        "!\r\n"
        "/\r\n",
        [](CStdioFile& f) {
            WriteNamelistComment(f, " generated input");
            WriteNamelistGroup(f, "INPUT", "");
            WriteNamelistString(f, "TITLE", "beam 2", "case name", 1);
            WriteNamelistString(f, "MODE", "fast", "", 0);
            WriteNamelistBool(f, "FLAG", true, "");
            WriteNamelistBool(f, "DEBUG", false, "off");
            WriteNamelistInt(f, "N", -3, "");
            WriteNamelistInt(f, "NMAX", 2147483647, nullptr);
            WriteNamelistDouble(f, "DT", 0.1, "");
            WriteNamelistDouble(f, "TEND", 100.0, "s");
            WriteNamelistArray(f, "XP", Numbers(7), "nodes", 3, 0);
            WriteNamelistEnd(f);
            WriteNamelistBlankLine(f);
            WriteNamelistGroup(f, "OUTPUT", "run 1");
            WriteNamelistComment(f, "");
            WriteNamelistEnd(f);
        });
}

TEST(Namelist, CommentSuffixStripsBlanksAndMarks)
{
    struct Case {
        const char* text;
        const char* suffix;
    };
    const Case cases[] = {
        {"  !! note ", "\t! note"},        // blanks and every leading "!" removed
        {"note", "\t! note"},              // plain text
        {"! ! x", "\t! ! x"},              // only the leading run of "!" goes
        {"\t!!\t", ""},                    // marks and blanks only: no suffix
        {"!", ""},
        {"   ", ""},
        {"", ""},
        {nullptr, ""},                     // null counts as empty
        {"a!", "\t! a!"},                  // trailing "!" stays
    };
    for (const Case& c : cases) {
        const CString suffix = MakeNamelistComment(c.text);
        EXPECT_EQ(suffix.str(), c.suffix) << "comment " << DumpBytes(c.text ? c.text : "<null>") << " gave "
                                          << DumpBytes(suffix.str());
    }
    // A whole-line comment is written as given: no trimming, no blank added.
    ExpectNamelist("!  !as is \r\n!\r\n!\r\n", [](CStdioFile& f) {
        WriteNamelistComment(f, "  !as is ");
        WriteNamelistComment(f, "");
        WriteNamelistComment(f, nullptr);
    });
}

TEST(Namelist, StringValuesAreQuotedTrimmedOrLeftOut)
{
    ExpectNamelist(
        "S = abc,\r\n"             // unquoted: blanks trimmed
        "S = '  abc ',\r\n"        // quoted first, so inner blanks stay
        "S = '',\r\n"              // quoted empty value
        "S = '   ',\r\n"           // quoted blanks
        "S = '',\r\n"              // quoted null value
        "S = a b,\t! two words\r\n",
        [](CStdioFile& f) {
            WriteNamelistString(f, "S", "  abc ", "", 0);
            WriteNamelistString(f, "S", "  abc ", "", 1);
            WriteNamelistString(f, "S", "", "", 1);
            WriteNamelistString(f, "S", "   ", "", -1);    // any non-zero quotes
            WriteNamelistString(f, "S", nullptr, "", 1);
            WriteNamelistString(f, "S", "   ", "", 0);     // blank: left out
            WriteNamelistString(f, "S", "", "note", 0);    // empty: left out, comment too
            WriteNamelistString(f, "S", nullptr, "", 0);   // null: left out
            WriteNamelistString(f, "S", "\t\r\n", "", 0);  // white space only: left out
            WriteNamelistString(f, "S", " a b ", "two words", 0);
        });
}

TEST(Namelist, RealValuesUseFixedNotation)
{
    const double inf = std::numeric_limits<double>::infinity();
    ExpectNamelist(
        "DT = 0.1,\r\n"
        "DT = 100.0,\r\n"
        "DT = 0.0,\r\n"                             // -0.0
        "DT = 0.0,\r\n"                             // 1e-8 rounds away at seven decimals
        "DT = 0.0,\r\n"                             // -0.00000001 prints "-0.0000000"
        "DT = 123456.1234568,\r\n"
        "DT = 100000000000000000000.0,\r\n"         // 1e20, no exponent
        "DT = 10.0,\r\n"                            // 9.99999996: decimals carry into the integer
        "DT = 0.0000001,\r\n"                       // 1.5e-7 is held just below the tie
        "DT = -inf.0,\r\n",
        [inf](CStdioFile& f) {
            for (double v : {0.1, 100.0, -0.0, 1e-8, -0.00000001, 123456.123456789, 1e20, 9.99999996, 1.5e-7, -inf})
                WriteNamelistDouble(f, "DT", v, "");
        });
}

TEST(Namelist, ArrayLinesWrapAtValuesPerLine)
{
    // Three values per line: exactly 3, then 3 + 1.
    ExpectNamelist("AB = 1, 2, 3,\r\n", [](CStdioFile& f) { WriteNamelistArray(f, "AB", Numbers(3), "", 3, 0); });
    ExpectNamelist("AB = 1, 2, 3,\t! c\r\n"
                   "     4,\t! c\r\n",
                   [](CStdioFile& f) { WriteNamelistArray(f, "AB", Numbers(4), "!c", 3, 0); });
    // One value, and none at all (not even the name).
    ExpectNamelist("AB = 1,\r\n", [](CStdioFile& f) { WriteNamelistArray(f, "AB", Numbers(1), "", 3, 0); });
    ExpectNamelist("", [](CStdioFile& f) { WriteNamelistArray(f, "AB", Numbers(0), "note", 3, 0); });
    // ValuesPerLine 0 and below mean 5.
    const char* fivePerLine = "V = 1, 2, 3, 4, 5,\r\n"
                              "    6,\r\n";
    ExpectNamelist(fivePerLine, [](CStdioFile& f) { WriteNamelistArray(f, "V", Numbers(6), "", 0, 0); });
    ExpectNamelist(fivePerLine, [](CStdioFile& f) { WriteNamelistArray(f, "V", Numbers(6), "", -7, 0); });
    // One value per line: only the first line gets the name; the others start
    // with the element's own blank.
    ExpectNamelist("LONG = 1,\t! one\r\n"
                   " 2,\t! one\r\n"
                   " 3,\t! one\r\n",
                   [](CStdioFile& f) { WriteNamelistArray(f, "LONG", Numbers(3), "one", 1, 0); });
    // Two per line, quoted, untrimmed elements; the indent counts bytes.
    const std::vector<CString> words = {"a", " b", "", "d e", "x"};
    ExpectNamelist("NAMES = 'a', ' b',\r\n"
                   "        '', 'd e',\r\n"
                   "        'x',\r\n",
                   [&](CStdioFile& f) { WriteNamelistArray(f, "NAMES", words, "", 2, 1); });
}

TEST(Namelist, ArrayByValueWritesTheSameAsByReference)
{
    const char* expected = "XP = 1, 2,\r\n"
                           "     3,\r\n";
    const std::vector<CString> values = Numbers(3);
    ExpectNamelist(expected, [&](CStdioFile& f) { WriteNamelistArray(f, "XP", values, "", 2, 0); });
    ExpectNamelist(expected, [](CStdioFile& f) { WriteNamelistArray(f, "XP", Numbers(3), "", 2, 0); });
    std::vector<CString> moved = Numbers(3);
    ExpectNamelist(expected, [&](CStdioFile& f) { WriteNamelistArray(f, "XP", std::move(moved), "", 2, 0); });
    EXPECT_EQ(moved.size(), 3u) << "the handed-over vector is left as it was";
}

TEST(Namelist, QuotesAndNewlinesInTextAreWrittenAsGiven)
{
    ExpectNamelist(
        "Q = 'it's',\r\n"              // no escaping of quotes
        "Q = \"x\",\r\n"
        "T = a\r\n"                    // a newline in a value splits the line
        "b,\r\n"
        "T = v,\t! one\r\n"            // ... and so does one in a comment
        "two\r\n"
        "L = ' a\r\n"
        "b',\r\n",
        [](CStdioFile& f) {
            WriteNamelistString(f, "Q", "it's", "", 1);
            WriteNamelistString(f, "Q", "\"x\"", "", 0);
            WriteNamelistString(f, "T", "a\nb\n", "", 0);    // trailing newline trimmed
            WriteNamelistString(f, "T", "v", "one\ntwo", 0);
            WriteNamelistArray(f, "L", {" a\nb"}, "", 5, 1);
        });
}

TEST(Namelist, WriteErrorsPassToTheCaller)
{
    TempDirectory dir;
    const std::string path = dir.File("input.nml");
    WriteBytes(path, "");
    CStdioFile reader;
    ASSERT_TRUE(reader.Open(path.c_str(), CFile::modeRead));
    bool thrown = false;
    try {
        WriteNamelistGroup(reader, "INPUT", "");
        WriteNamelistArray(reader, "XP", std::vector<CString>(5000, "1.0"), "", 5, 0);
        reader.Close();
    } catch (CFileException* e) {
        thrown = true;
        e->Delete();
    }
    EXPECT_TRUE(thrown) << "writing a namelist to a file opened for reading must throw CFileException*";
    reader.Abort();
    ExpectFileBytes(path, "");

    const std::string full = FullDevicePath();
    if (full.empty())
        GTEST_SKIP() << "no device that reports a full disk on this platform";
    CStdioFile file;
    ASSERT_TRUE(file.Open(full.c_str(), CFile::modeWrite | CFile::shareDenyNone));
    int cause = -1;
    try {
        WriteNamelistGroup(file, "INPUT", "");
        WriteNamelistArray(file, "XP", std::vector<CString>(5000, "1.0"), "", 5, 0);
        WriteNamelistEnd(file);
        file.Close();
    } catch (CFileException* e) {
        cause = e->m_cause;
        e->Delete();
    }
    EXPECT_EQ(cause, CFileException::diskFull) << "a namelist written to a full disk";
    file.Abort();
}
