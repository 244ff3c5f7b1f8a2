#include "support/text/Namelist.h"

#include <gtest/gtest.h>

#include "TextTestFiles.h"

// Every writer and comment form in one file, compared byte for byte.
TEST(Namelist, GoldenFile)
{
    TempDir dir;
    const std::string path = dir.File("input.nml");
    CStdioFile f;
    ASSERT_TRUE(f.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText)) << path;
    WriteNamelistComment(f, "  !as is ");
    WriteNamelistComment(f, nullptr);
    WriteNamelistGroup(f, "INPUT", "   ");
    WriteNamelistString(f, "TITLE", "  beam 2 ", "  !! note ", 1);   // quoted, then trimmed
    WriteNamelistString(f, "Q", "", "!", 1);
    WriteNamelistString(f, "Q", "it's", nullptr, -1);                 // quotes not escaped
    WriteNamelistString(f, "MODE", " \t\r\n", "lost", 0);             // blank values left out
    WriteNamelistString(f, "MODE", nullptr, "", 0);
    WriteNamelistString(f, "MODE", " fast ", "! ! a!", 0);
    WriteNamelistString(f, "T", "a\nb\n", "one\ntwo", 0);             // newlines split the entry
    WriteNamelistBool(f, "FLAG", true, "");
    WriteNamelistBool(f, "DEBUG", false, "off");
    WriteNamelistInt(f, "N", -2147483647 - 1, "");
    for (double value : {0.1, 100.0, -0.0, 1e20, 9.99999996})
        WriteNamelistDouble(f, "DT", value, "");
    WriteNamelistBlankLine(f);
    WriteNamelistArray(f, "E", {}, "none", 3, 0);
    WriteNamelistArray(f, "ONE", {"1"}, "", 3, 0);
    WriteNamelistArray(f, "XP", {"1", "2", "3"}, "nodes", 3, 0);
    WriteNamelistArray(f, "XP", {"1", "2", "3", "4"}, "!c", 3, 0);
    WriteNamelistArray(f, "V", {"1", "2", "3", "4", "5", "6"}, "", 0, 0);   // below 1 means 5
    WriteNamelistArray(f, "V", {"1", "2", "3", "4", "5", "6"}, "", -7, 0);
    WriteNamelistArray(f, "LONG", {"1", "2", "3"}, "one", 1, 0);
    const std::vector<CString> words = {"a", " b", "", "it's", "x\ny"};
    WriteNamelistArray(f, "NAMES", words, "", 2, 1);
    WriteNamelistEnd(f);
    WriteNamelistGroup(f, "OUTPUT", "run 1");
    WriteNamelistEnd(f);
    f.Close();
    EXPECT_EQ(ReadBytes(path),
              "!  !as is \r\n!\r\n&INPUT\r\nTITLE = '  beam 2 ',\t! note\r\nQ = '',\r\nQ = 'it's',\r\n"
              "MODE = fast,\t! ! a!\r\nT = a\r\nb,\t! one\r\ntwo\r\nFLAG = .true.,\r\nDEBUG = .false.,\t! off\r\n"
              "N = -2147483648,\r\nDT = 0.1,\r\nDT = 100.0,\r\nDT = 0.0,\r\nDT = 100000000000000000000.0,\r\nDT = 10.0,\r\n"
              "\r\nONE = 1,\r\nXP = 1, 2, 3,\t! nodes\r\n"
              "XP = 1, 2, 3,\t! c\r\n     4,\t! c\r\n"
              "V = 1, 2, 3, 4, 5,\r\n    6,\r\nV = 1, 2, 3, 4, 5,\r\n    6,\r\n"
              "LONG = 1,\t! one\r\n 2,\t! one\r\n 3,\t! one\r\n"
              "NAMES = 'a', ' b',\r\n"
              "        '', 'it's',\r\n"
              "        'x\r\ny',\r\n"
              "/\r\n&OUTPUT\t! run 1\r\n/\r\n");
}

// Text mode writes CR LF and reads "\n" back; write errors throw CFileException* as MFC does.
TEST(StdioFile, TextRoundTripAndWriteErrors)
{
    TempDir dir;
    const std::string path = dir.File("lines.txt");
    CStdioFile out;
    ASSERT_TRUE(out.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText)) << path;
    out.WriteString("a\n\n");
    out.WriteString(nullptr);
    out.WriteString("last");
    out.Close();
    EXPECT_EQ(ReadBytes(path), "a\r\n\r\nlast");
    CStdioFile in;
    ASSERT_TRUE(in.Open(path.c_str(), CFile::modeRead | CFile::typeText)) << path;
    std::vector<std::string> lines;
    for (CString line; in.ReadString(line);)
        lines.push_back(line.str());
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "", "last"}));

    auto causeOf = [](auto body) {
        try { body(); } catch (CFileException* e) { const int cause = e->m_cause; e->Delete(); return cause; }
        return -1;
    };
    EXPECT_NE(causeOf([&] { in.WriteString("x\n"); in.Close(); }), -1) << "writing to a file opened for reading";
    in.Abort();
    CStdioFile full;
    if (!full.Open("Z:\\dev\\full", CFile::modeWrite | CFile::shareDenyNone))
        GTEST_SKIP() << "no Z:\\dev\\full here";
    full.WriteString("short\n");
    EXPECT_EQ(causeOf([&] { full.Close(); }), CFileException::diskFull) << "buffered text failing at Close";
    ASSERT_TRUE(full.Open("Z:\\dev\\full", CFile::modeWrite | CFile::shareDenyNone));
    EXPECT_EQ(causeOf([&] { full.WriteString(std::string(65536, 'x').c_str()); }), CFileException::diskFull)
        << "64 KiB failing in WriteString";
    full.Abort();
}
