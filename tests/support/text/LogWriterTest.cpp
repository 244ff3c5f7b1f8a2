#include "support/text/LogWriter.h"

#include <process.h>

#include <gtest/gtest.h>

#include <cstring>
#include <ctime>
#include <regex>
#include <vector>

#include "TextTestFiles.h"

static const std::string kStamp = "(\\d\\d/\\d\\d/\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d:)";

static std::string StampAt(__time64_t when)
{
    struct tm local = {};
    char text[32];
    _localtime64_s(&local, &when);
    return std::string(text, std::strftime(text, sizeof(text), "%y/%m/%d %H.%M.%S:", &local));
}

// Runs log_exit_helper.exe (beside this program) in dir; returns its exit status.
static int RunHelper(const TempDir& dir, const char* mode)
{
    char exe[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, exe, MAX_PATH);
    std::strcpy(std::strrchr(exe, '\\') + 1, "log_exit_helper.exe");
    return static_cast<int>(_spawnl(_P_WAIT, exe, "log_exit_helper", mode, ("\"" + dir.path + "\"").c_str(), nullptr));
}

TEST(LogWriter, MessagesStampsAndBadInput)
{
    TempDir dir;
    const std::string path = dir.File("test.log");
    std::ofstream(path) << "kept\n";
    SetLogFileName(path.c_str());   // a name set first is never cleared
    const char* noFormat = nullptr;
    const std::vector<int> counts = {LogWrite(nullptr, 0, "plain\n"), LogWrite("", 5, "x\n"), LogWrite("A", -1, "x\n"),
        LogWrite("A", 0, "x\n"), LogWrite("SRC", 7, "v=%d %s\n", 3, "ok"), LogWrite(nullptr, 0, "s:lower\n"),
        LogWrite("Q", 1, noFormat)};
    EXPECT_EQ(counts, (std::vector<int>{6, 6, 4, 4, 14, 8, 5}));
    EXPECT_EQ(ReadBytes(path), "kept\r\nplain\r\n(5):x\r\nA:x\r\nA:x\r\nSRC(7):v=3 ok\r\ns:lower\r\nQ(1):");
    EXPECT_EQ((std::vector<int>{DeleteLogFile(), DeleteLogFile()}), (std::vector<int>{0, -1})) << "then a missing log";

    const __time64_t before = _time64(nullptr);
    const std::vector<int> stamped = {LogWrite("SOLVER", 12, "E: no convergence after %d steps\n", 50),
        LogPrintf("S:not a stop %s\n", "here"), LogPrintf(noFormat)};
    const __time64_t after = _time64(nullptr);
    EXPECT_EQ(stamped, (std::vector<int>{11 + 18 + 33, 18 + 18, 18}));
    const std::string log = ReadBytes(path);
    std::smatch match;
    ASSERT_TRUE(std::regex_match(log, match, std::regex("SOLVER\\(12\\):" + kStamp + "E: no convergence after 50 steps\r\n"
        + kStamp + "S:not a stop here\r\n" + kStamp))) << ::testing::PrintToString(log);
    for (size_t i = 1; i < match.size(); ++i)   // the layout sorts in time order
        EXPECT_TRUE(StampAt(before) <= match.str(i) && match.str(i) <= StampAt(after))
            << "stamp " << match.str(i) << ", clock " << StampAt(before) << " to " << StampAt(after);

    SetLogFileName(nullptr);
    EXPECT_STREQ(GetLogFileName(), "");
    const std::string longest(1000, 'n');
    SetLogFileName(longest.c_str());
    EXPECT_EQ(GetLogFileName(), longest);
    SetLogFileName(std::string(1001, 'n').c_str());   // too long: store emptied, messages dropped
    EXPECT_STREQ(GetLogFileName(), "");
    EXPECT_EQ(LogWrite("A", 1, "dropped\n") + LogPrintf("dropped\n"), 0) << "counts without a file name";
}

TEST(LogWriter, FirstMessageClearsDefaultLogAndStopEndsProcess)
{
    TempDir dir;
    const std::string twoLines = "RUN(1):first\r\nRUN(2):second\r\n";
    std::ofstream(dir.File("_DEFAULT.LOG")) << "earlier run\n";
    std::ofstream(dir.File("run.log")) << "kept\n";
    EXPECT_EQ(RunHelper(dir, "first"), 0);
    EXPECT_EQ(ReadBytes(dir.File("_DEFAULT.LOG")), twoLines);
    EXPECT_EQ(RunHelper(dir, "named"), 0);
    EXPECT_EQ(ReadBytes(dir.File("run.log")), "kept\r\n" + twoLines);
    EXPECT_EQ(RunHelper(dir, "stop"), 1) << "exit status after \"S:\"";
    const std::string log = ReadBytes(dir.File("_DEFAULT.LOG"));
    EXPECT_TRUE(std::regex_match(log, std::regex(kStamp + "S:fatal 7\r\n"))) << ::testing::PrintToString(log);
    EXPECT_EQ(ReadBytes(dir.File("stream.txt")), "unflushed\r\n");
}
