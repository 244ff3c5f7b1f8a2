// The namelist writer, CStdioFile and the log writer, checked through the bytes of the files they write.
#include "support/InvalidParameter.h"
#include "support/text/LogWriter.h"
#include "support/text/Namelist.h"

#include <direct.h>
#include <process.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

// An emptied directory, with a trailing backslash, named alike in every process (a death test's child finds it).
static std::string ScratchDir(const char* name)
{
    const std::filesystem::path path = std::filesystem::temp_directory_path() / (std::string("text_tests_") + name);
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
    return path.string() + "\\";
}

static std::string ReadBytes(const std::string& path)
{
    return {std::istreambuf_iterator<char>(std::ifstream(path, std::ios::binary).rdbuf()), {}};
}

// Every writer and comment form, written by the program that the Fortran reader test also runs (beside this
// one), compared byte for byte.
TEST(Namelist, EveryWriterAndCommentFormGivesTheExpectedBytes)
{
    const std::string path = ScratchDir("namelist") + "input.nml";
    char self[MAX_PATH];
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string writer = (std::filesystem::path(self).parent_path() / "namelist_writer.exe").string();
    ASSERT_EQ(_spawnl(_P_WAIT, writer.c_str(), "namelist_writer", ("\"" + path + "\"").c_str(), nullptr), 0);
    EXPECT_EQ(ReadBytes(path),
              "!  !as is \r\n!\r\n\r\n&INPUT\r\nTITLE = '  beam 2 ',\t! note\r\nEMPTY = '',\r\n"
              "FACTOR = 3.5d0,\t! ! a!\r\nFLAG = .true.,\r\nDEBUG = .false.,\t! off\r\nNMIN = -2147483648,\r\n"
              "DT = 0.1,\r\nCARRY = 10.0,\r\nNEGZ = 0.0,\r\n"
              "PRECISE = 123456.1234568,\r\nBIG = 100000000000000000000.0,\r\nPINF = Infinity,\r\n"
              "NINF = -Infinity,\r\nDNAN = NaN,\r\nXF = 1, 2, 3,\t! nodes\r\nXP = 1, 2, 3, 4, 5,\r\n     6, 7,\r\n"
              "XL = 1,\r\n 2,\r\n 3,\r\nXC = 1, 2, 3,\t! c\r\n     4,\t! c\r\nNAMES = 'a', ' b',\r\n"
              "        '', 'x',\r\n/\r\n&QUOTES\t! run 1\r\nS = 'it's',\r\n/\r\n");
}

// Text mode writes CR LF and reads "\n" back; write errors throw CFileException* as MFC does.
TEST(StdioFile, TextModeWritesCrLfReadsLinesBackAndThrowsOnWriteErrors)
{
    const std::string path = ScratchDir("stdio") + "lines.txt";
    CStdioFile out, in, full;
    ASSERT_TRUE(out.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeText)) << path;
    for (const char* text : {"a\n\n", static_cast<const char*>(nullptr), "last"})
        out.WriteString(text);
    out.Close();
    EXPECT_EQ(ReadBytes(path), "a\r\n\r\nlast");
    ASSERT_TRUE(in.Open(path.c_str(), CFile::modeRead | CFile::typeText)) << path;
    std::vector<std::string> lines;
    for (CString line; in.ReadString(line);)
        lines.push_back(line.str());
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "", "last"}));

    LONG osError = 0;   // of the last exception caught
    auto causeOf = [&osError](auto body) {
        try { body(); } catch (CFileException* e) { const int cause = e->m_cause; osError = e->m_lOsError; e->Delete(); return cause; }
        return -1;
    };
    EXPECT_NE(causeOf([&] { in.WriteString("x\n"); in.Close(); }), -1) << "writing to a file opened for reading";
    EXPECT_EQ(-1, osError) << "no system error behind it";
    in.Abort();
    {
        CStdioFile written(path.c_str(), CFile::modeWrite | CFile::modeNoTruncate | CFile::modeCreate);
        CString line;
        EXPECT_FALSE(written.ReadString(line)) << "a file opened for writing only reads nothing: " << line.GetString();
    }
    // The constructors that open at once throw what Open would report.
    EXPECT_EQ(causeOf([&] { CStdioFile missing((path + "\\no\\such.txt").c_str(), CFile::modeRead); }),
              CFileException::badPath);
    EXPECT_EQ(causeOf([&] { CFile missing((path + ".none").c_str(), CFile::modeRead); }), CFileException::fileNotFound);
    CFile plain;
    ASSERT_TRUE(plain.Open((path + ".bin").c_str(), CFile::modeCreate | CFile::modeWrite));
    EXPECT_EQ(causeOf([&] { plain.Close(); }), -1) << "a successful close throws nothing";
    delete new CFile((path + ".held").c_str(), CFile::modeCreate | CFile::modeWrite);   // destroyed while open
    CStdioFile reopened((path + ".stdio").c_str(), CFile::modeCreate | CFile::modeWrite);
    ASSERT_TRUE(reopened.Open((path + ".held").c_str(), CFile::modeRead));   // opening again closes ".stdio"
    reopened.Close();
    for (const char* released : {".bin", ".held", ".stdio"})
        EXPECT_TRUE(std::filesystem::remove(path + released)) << released << ": closed, destroyed, opened again";
    {
        CStdioFile untyped(path.c_str(), CFile::modeWrite | CFile::modeCreate | CFile::modeNoTruncate);
        untyped.WriteString("+\n");
    }
    // Opened by the constructor, closed by the destructor; without a type flag the file is a text file.
    EXPECT_EQ(ReadBytes(path), "a\r\n\r\nlast+\r\n");
    if (!full.Open("Z:\\dev\\full", CFile::modeWrite | CFile::shareDenyNone))
        GTEST_SKIP() << "no Z:\\dev\\full here";
    full.WriteString("short\n");
    EXPECT_EQ(causeOf([&] { full.Close(); }), CFileException::diskFull) << "buffered text failing at Close";
    EXPECT_EQ(ERROR_DISK_FULL, osError);
}

static const std::string kStamp = "(\\d\\d/\\d\\d/\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d:)";

// The child process of the death test writes its process's first messages: a name set first is never cleared,
// the default log is.
TEST(LogWriter, MessagesGetTheirSourceAndStampAnSPrefixStopsAndAnOverlongNameDropsThem)
{
    const std::string dir = ScratchDir("log"), path = dir + "test.log";
    for (const bool printfFirst : {false, true}) {   // either writer may be a process's first
        std::ofstream(dir + "_DEFAULT.LOG") << "earlier run\n";
        EXPECT_EXIT({
            _chdir(dir.c_str());
            std::fputs("unflushed\n", std::fopen("stream.txt", "w"));   // the stop must close this stream
            printfFirst ? LogPrintf("first\n") : LogWrite("RUN", 1, "first\n");
            LogWrite(nullptr, 0, "S:fatal %d\n", 7);
        }, testing::ExitedWithCode(1), "") << "exit status after \"S:\"";
        EXPECT_TRUE(std::regex_match(ReadBytes(dir + "_DEFAULT.LOG"), std::regex((printfFirst ? kStamp : "RUN\\(1\\):")
                                     + "first\r\n" + kStamp + "S:fatal 7\r\n"))) << "LogPrintf first: " << printfFirst;
        EXPECT_EQ(ReadBytes(dir + "stream.txt"), "unflushed\r\n");
    }

    std::ofstream(path) << "kept\n";
    SetLogFileName(path.c_str());   // a name set first is never cleared
    const char* noFormat = nullptr;
    // The stamps lie between the clock's readings before and after (the layout sorts in time order).
    const auto stampAt = [](std::time_t when) {
        char text[32];
        return std::string(text, std::strftime(text, sizeof(text), "%y/%m/%d %H.%M.%S:", std::localtime(&when)));
    };
    const std::string before = stampAt(std::time(nullptr));
    const std::vector<int> counts = {LogWrite(nullptr, 0, "plain\n"), LogWrite("", 5, "x\n"), LogWrite("A", -1, "x\n"),
        LogWrite("A", 0, "x\n"), LogWrite("SRC", 7, "v=%d %s\n", 3, "ok"), LogWrite(nullptr, 0, "s:lower\n"),
        LogWrite("Q", 1, noFormat), LogWrite("SOLVER", 12, "E: no convergence after %d steps\n", 50),
        LogPrintf("S:not a stop %s\n", "here"), LogPrintf(noFormat)};
    const std::string log = ReadBytes(path);
    EXPECT_EQ(counts, (std::vector<int>{6, 6, 4, 4, 14, 8, 5, 11 + 18 + 33, 18 + 18, 18}));
    std::smatch match;
    ASSERT_TRUE(std::regex_match(log, match, std::regex("kept\r\nplain\r\n\\(5\\):x\r\nA:x\r\nA:x\r\nSRC\\(7\\):v=3 ok\r\n"
        "s:lower\r\nQ\\(1\\):SOLVER\\(12\\):" + kStamp + "E: no convergence after 50 steps\r\n" + kStamp
        + "S:not a stop here\r\n" + kStamp)));
    EXPECT_TRUE(before <= match.str(1) && match.str(3) <= stampAt(std::time(nullptr))) << match.str(1);
    EXPECT_EQ((std::vector<int>{DeleteLogFile(), DeleteLogFile()}), (std::vector<int>{0, -1})) << "then a missing log";

    // Set to nullptr, 1000 and 1001 characters: a name that does not fit raises the invalid-parameter
    // condition; with a host handler the store is left empty and messages are dropped, without one the
    // process ends as the runtime's own bounded copy ends it.
    const std::string longest(1000, 'n'), tooLong(1001, 'n');
    // MinGW's start-up code installs a handler that returns; the child removes it, as an MSVC host has none.
    EXPECT_EXIT({ _set_invalid_parameter_handler(nullptr); SetLogFileName(tooLong.c_str()); },
                testing::ExitedWithCode(static_cast<int>(InvalidParameterExitCode)), "") << "no handler installed";
    static int raised = 0;
    const _invalid_parameter_handler previous = _set_invalid_parameter_handler(
        [](const wchar_t* expression, const wchar_t* function, const wchar_t* file, unsigned line, uintptr_t reserved) {
            raised += !expression && !function && !file && line == 0 && reserved == 0;   // as release runtimes call it
        });
    const auto nameAfter = [](const char* path) { SetLogFileName(path); return std::string(GetLogFileName()); };
    EXPECT_EQ((std::vector<std::string>{nameAfter(nullptr), nameAfter(longest.c_str()), nameAfter(tooLong.c_str())}),
              (std::vector<std::string>{"", longest, ""}));
    _set_invalid_parameter_handler(previous);
    EXPECT_EQ(raised, 2) << "the host's handler is called for the null and the over-long name";
    EXPECT_EQ(LogWrite("A", 1, "dropped\n") + LogPrintf("dropped\n"), 0) << "counts without a file name";
}
