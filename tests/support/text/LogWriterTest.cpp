#include "support/text/LogWriter.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <regex>
#include <string>

#include "TextTestFiles.h"

namespace {

const std::string kStampPattern = "\\d\\d/\\d\\d/\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d:";

// Points the log at a file in a fresh directory for one test.
class LogFile {
public:
    LogFile() : m_path(m_dir.File("test.log")) { SetLogFileName(m_path.c_str()); }
    const std::string& Path() const { return m_path; }
    const TempDirectory& Dir() const { return m_dir; }

private:
    TempDirectory m_dir;
    std::string m_path;
};

// Runs log_exit_helper.exe (beside this program) in `directory` and returns
// its exit code, or -1 when it could not be run.
int RunHelper(const std::string& directory, const std::string& arguments)
{
    char self[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string exe = self;
    exe = exe.substr(0, exe.find_last_of('\\') + 1) + "log_exit_helper.exe";
    std::string commandLine = "\"" + exe + "\" " + arguments;
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessA(exe.c_str(), &commandLine[0], nullptr, nullptr, FALSE, 0, nullptr, directory.c_str(),
                        &startup, &process)) {
        ADD_FAILURE() << "cannot start " << exe << ", error " << GetLastError();
        return -1;
    }
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.hProcess, 60000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    else
        ADD_FAILURE() << "helper \"" << arguments << "\" did not end";
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

// Local time as the stamp shows it, for comparisons in text order.
std::string StampOf(__time64_t when)
{
    struct tm local = {};
    _localtime64_s(&local, &when);
    char text[32];
    std::snprintf(text, sizeof(text), "%02d/%02d/%02d %02d.%02d.%02d:", local.tm_year % 100, local.tm_mon + 1,
                  local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
    return text;
}

// "yy/mm/dd hh.mm.ss:" reordered so that text order is time order.
std::string Sortable(const std::string& stamp)
{
    return stamp.substr(0, 2) + stamp.substr(3, 2) + stamp.substr(6, 2) + stamp.substr(9, 8);
}

} // namespace

TEST(LogWriter, SourceCodeAndColonPrecedeTheMessage)
{
    LogFile log;
    struct Case {
        int count;          // the call's result
        const char* line;   // what it appends, before CR LF
    };
    const Case expected[] = {
        {6, "plain"},                   // null source, code 0
        {6, "(5):x"},                   // empty source, code 5
        {4, "A:x"},                     // negative code left out
        {4, "A:x"},                     // code 0 left out
        {14, "SRC(7):v=3 ok"},          // arguments formatted
        {17, "(2147483647):max"},
        {8, "s:lower"},                 // lower-case "s:": ordinary message
        {5, "S-no"},                    // "S" without ":": ordinary message
        {5, "Q(1):"},                   // null format: no message text
    };
    const char* noFormat = nullptr;
    const int counts[] = {
        LogWrite(nullptr, 0, "plain\n"),
        LogWrite("", 5, "x\n"),
        LogWrite("A", -1, "x\n"),
        LogWrite("A", 0, "x\n"),
        LogWrite("SRC", 7, "v=%d %s\n", 3, "ok"),
        LogWrite(nullptr, 2147483647, "max\n"),
        LogWrite(nullptr, -2147483647 - 1, "s:lower\n"),
        LogWrite(nullptr, 0, "S-no\n"),
        LogWrite("Q", 1, noFormat),
    };
    std::string file;
    for (size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(counts[i], expected[i].count) << "count of call " << i << " (\"" << expected[i].line << "\")";
        file += expected[i].line;
        if (i + 1 < std::size(expected))
            file += "\r\n";
    }
    ExpectFileBytes(log.Path(), file);
}

TEST(LogWriter, StampLayoutFollowsTheClock)
{
    LogFile log;
    const __time64_t before = _time64(nullptr);
    const int errorCount = LogWrite("SOLVER", 12, "E: no convergence after %d steps\n", 50);
    const int printfCount = LogPrintf("hello %s\n", "there");
    const int stopCount = LogPrintf("S:not a stop here\n");
    const char* noFormat = nullptr;
    const int bareCount = LogPrintf(noFormat);
    const __time64_t after = _time64(nullptr);

    const std::string bytes = ReadBytes(log.Path());
    const std::regex layout("SOLVER\\(12\\):(" + kStampPattern + ")E: no convergence after 50 steps\r\n" +
                            "(" + kStampPattern + ")hello there\r\n" +
                            "(" + kStampPattern + ")S:not a stop here\r\n" +
                            "(" + kStampPattern + ")");
    std::smatch match;
    ASSERT_TRUE(std::regex_match(bytes, match, layout)) << "log " << DumpBytes(bytes);
    for (size_t i = 1; i < match.size(); ++i) {
        const std::string stamp = match[i];
        EXPECT_LE(Sortable(StampOf(before)), Sortable(stamp)) << "stamp " << stamp << " before the call";
        EXPECT_LE(Sortable(stamp), Sortable(StampOf(after))) << "stamp " << stamp << " after the call";
    }
    EXPECT_EQ(errorCount, 11 + 18 + 33) << "source and code, stamp, message";
    EXPECT_EQ(printfCount, 18 + 12) << "stamp and message";
    EXPECT_EQ(stopCount, 18 + 18) << "LogPrintf never stops; the process is still here";
    EXPECT_EQ(bareCount, 18) << "null format: the stamp alone";
}

TEST(LogWriter, NamedFileAndDeletion)
{
    LogFile log;
    WriteBytes(log.Path(), "kept\r\n");
    SetLogFileName(log.Path().c_str());
    EXPECT_EQ(std::string(GetLogFileName()), log.Path()) << "name store";
    LogWrite(nullptr, 0, "added\n");
    ExpectFileBytes(log.Path(), "kept\r\nadded\r\n");

    EXPECT_EQ(DeleteLogFile(), 0) << "deleting the existing log";
    EXPECT_EQ(ReadBytes(log.Path()), "<missing>") << "log after DeleteLogFile";
    EXPECT_EQ(DeleteLogFile(), -1) << "deleting a missing log";
    EXPECT_EQ(LogWrite(nullptr, 0, "again\n"), 6) << "writing after the deletion";
    ExpectFileBytes(log.Path(), "again\r\n");        // recreated, not cleared again

    // Callers may write a path into the store directly.
    const std::string other = log.Dir().File("direct.log");
    std::strcpy(GetLogFileName(), other.c_str());
    LogWrite(nullptr, 0, "direct\n");
    ExpectFileBytes(other, "direct\r\n");
}

TEST(LogWriter, BadInputHasDefinedOutcomes)
{
    LogFile log;

    // Longest name that fits: 1000 bytes are stored whole.
    const std::string longest(1000, 'n');
    SetLogFileName(longest.c_str());
    EXPECT_EQ(std::string(GetLogFileName()), longest) << "a 1000-byte name";

    // One byte more does not fit: the store is left empty, messages dropped.
    for (const std::string& tooLong : {std::string(1001, 'n'), std::string(70000, 'n')}) {
        SetLogFileName(tooLong.c_str());
        EXPECT_STREQ(GetLogFileName(), "") << tooLong.size() << "-byte name";
        EXPECT_EQ(LogWrite("A", 1, "dropped\n"), 0) << "LogWrite without a name";
        EXPECT_EQ(LogPrintf("dropped\n"), 0) << "LogPrintf without a name";
        EXPECT_EQ(DeleteLogFile(), -1) << "DeleteLogFile without a name";
    }
    SetLogFileName(nullptr);
    EXPECT_STREQ(GetLogFileName(), "") << "null name";

    // A log held open by someone else without sharing, or a directory,
    // cannot be opened: the message is dropped.
    SetLogFileName(log.Path().c_str());
    WriteBytes(log.Path(), "locked\r\n");
    const HANDLE holder = CreateFileA(log.Path().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE) << "cannot hold " << log.Path();
    EXPECT_EQ(LogWrite("A", 1, "E:dropped\n"), 0) << "LogWrite to a locked file";
    EXPECT_EQ(LogPrintf("dropped\n"), 0) << "LogPrintf to a locked file";
    CloseHandle(holder);
    ExpectFileBytes(log.Path(), "locked\r\n");
    SetLogFileName(log.Dir().Path().c_str());
    EXPECT_EQ(LogWrite("A", 1, "dropped\n"), 0) << "LogWrite to a directory";

    // On a full disk the open succeeds and the lost text goes unnoticed:
    // the count is what printf reported.
    const std::string full = FullDevicePath();
    if (full.empty())
        GTEST_SKIP() << "no device that reports a full disk on this platform";
    SetLogFileName(full.c_str());
    EXPECT_EQ(LogWrite("A", 1, "lost\n"), 10) << "LogWrite to a full disk";
}

TEST(LogWriter, FirstMessageOfARunEmptiesTheDefaultLog)
{
    TempDirectory dir;
    const std::string log = dir.File("_DEFAULT.LOG");
    WriteBytes(log, "from an earlier run\r\n");
    EXPECT_EQ(RunHelper(dir.Path(), "first"), 0) << "first run's exit code";
    ExpectFileBytes(log, "RUN(1):first\r\nRUN(2):second\r\n");
    EXPECT_EQ(RunHelper(dir.Path(), "first"), 0) << "second run's exit code";
    ExpectFileBytes(log, "RUN(1):first\r\nRUN(2):second\r\n");   // the first run's lines are gone

    // A name set before the first message is never emptied.
    WriteBytes(dir.File("run.log"), "kept\r\n");
    EXPECT_EQ(RunHelper(dir.Path(), "named run.log"), 0) << "named run's exit code";
    ExpectFileBytes(dir.File("run.log"), "kept\r\nappended\r\n");
}

TEST(LogWriter, FatalStopEndsTheProcessWithStatusOne)
{
    TempDirectory dir;
    EXPECT_EQ(RunHelper(dir.Path(), "stop"), 1) << "exit code after \"S:\"";
    const std::string bytes = ReadBytes(dir.File("_DEFAULT.LOG"));
    EXPECT_TRUE(std::regex_match(bytes, std::regex(kStampPattern + "S:fatal 7\r\n")))
        << "stamped message, and nothing after it: " << DumpBytes(bytes);
    ExpectFileBytes(dir.File("stream.txt"), "unflushed\r\n");    // other streams closed, not lost

    EXPECT_EQ(RunHelper(dir.Path(), "stop-unopenable"), 1) << "exit code when the log cannot be opened";
}
