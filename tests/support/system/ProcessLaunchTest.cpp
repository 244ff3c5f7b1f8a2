// The launchers, checked through what the echo child writes to its standard-error file: the command
// line it received, its directory and environment.
#include "SystemTestHelpers.h"

#include <thread>

TEST(ProcessLaunch, CommandLineQuotesOnlyShortPathArgumentsWithBlanks)
{
    const ScratchDir dir("launch_args");
    const std::string longFile = dir / (std::string(120, 'd') + " x\\" + std::string(140, 'e') + " f");
    const std::string exactly260 = longFile.substr(0, MAX_PATH);
    for (const std::string& file : {longFile, exactly260})
        dir.Write(file.substr(dir.path.size() + 1));
    struct Row { std::string argument, passed; };   // passed "": dropped
    const Row rows[] = {
        {"  plain\t", "plain"},
        {" \t ", ""},
        {" C:\\My Files\\a.txt ", "\"C:\\My Files\\a.txt\""},      // a path with a blank
        {"\"C:\\My Files\\a.txt\"", "\"C:\\My Files\\a.txt\""},    // already holds a quote, first
        {"\\\\server\\share x", "\\\\server\\share x"},            // "\\" at index 0 only
        {"x\\\\y z", "\"x\\\\y z\""},                              // "\\" at index 1
        {":\\a b", ":\\a b"},                                      // ":\" at index 0 only
        {longFile, longFile},                                      // over 260, existing: as it is
        {longFile + "x", "\"" + longFile + "x\""},                 // over 260, no such file
        {exactly260, "\"" + exactly260 + "\""},                   // 260, existing: a short path
    };
    std::vector<CString> arguments;
    std::string expected = "\"" + ChildExe + "\"";
    for (const auto& row : rows) {
        arguments.push_back(row.argument.c_str());
        expected += row.passed.empty() ? "" : " " + row.passed;
    }
    EXPECT_EQ(expected, EchoOf(arguments)[0]);
}

// Flags 0 lower the child's priority on a one-processor machine only; given flags keep theirs. Each
// launch adds the default error mode.
TEST(ProcessLaunch, CreationFlagsLowerThePriorityOnlyOnOneProcessor)
{
    const unsigned processors = std::thread::hardware_concurrency();
    EXPECT_EQ(processors == 1 ? 0x04004000u : 0x04000000u, LaunchCreationFlags(0)) << processors << " processors";
    EXPECT_EQ(0x04000210u, LaunchCreationFlags(CREATE_NEW_CONSOLE | CREATE_NEW_PROCESS_GROUP));
}

// A name searched for, or an existing program with arguments (even only blank ones), is quoted. The
// working directory is trimmed and loses its trailing backslashes; "" is the current one; a missing
// one starts nothing. An environment block reaches the child.
TEST(ProcessLaunch, ProgramIsQuotedWhenSearchedForAndDirectoryLosesTrailingBackslashes)
{
    const std::string current = std::filesystem::current_path().string();
    const auto echoed = [](const std::vector<std::string>& lines) { return lines[0] + "|" + lines[1]; };
    EXPECT_EQ("\"" + ChildExe + "\"|" + current, echoed(EchoOf({"  "}, "", (" " + ChildExe + " ").c_str())));
    const std::string bin = ProgramDir.substr(0, ProgramDir.size() - 1);
    EXPECT_EQ("\"child.exe\"|" + bin, echoed(EchoOf({}, (" " + bin + "\\\\ ").c_str(), "child.exe")));
    EXPECT_EQ("|", echoed(EchoOf({}, (ProgramDir + "missing").c_str()))) << "a missing directory";
    const std::string env = "TMP=" + TempDir + '\0' + "CHILD_ECHO_MARK=own" + '\0' + '\0';
    EXPECT_EQ("own", Echo(LaunchProcessEnv(ChildExe.c_str(), {}, "", SW_HIDE, 0, EchoFile.c_str(), env.c_str()))[2]);
}

// Missing programs start nothing, while an existing one opened through the shell runs; RunProcessAndWait
// gives 1 for missing ones, with its message when asked, and else the child's exit code.
TEST(ProcessLaunch, MissingProgramsStartNothingAndRunProcessAndWaitGivesOneWithItsMessage)
{
    PROCESS_INFORMATION info = {reinterpret_cast<HANDLE>(1), reinterpret_cast<HANDLE>(1), 1, 1};
    EXPECT_EQ(0, LaunchProcessInfo(&info, "C:\\no\\such.exe", {}, "", SW_HIDE, 0, nullptr, nullptr));
    EXPECT_TRUE(!info.hProcess && !info.hThread && !info.dwProcessId && !info.dwThreadId);
    EXPECT_EQ(nullptr, LaunchProcessHandle(nullptr, nullptr, nullptr, SW_HIDE, nullptr));
    EXPECT_FALSE(ShellOpen(nullptr, "C:\\no\\such.exe", nullptr)) << "a missing file";
    EXPECT_FALSE(ShellOpen(nullptr, nullptr, nullptr)) << "no file";
    EXPECT_TRUE(ShellOpen(nullptr, ChildExe.c_str(), "exit 0")) << "a program opened runs";
    EXPECT_FALSE(IsWow64()) << "a 64-bit process";
    RecordingApp app;
    EXPECT_EQ(42, RunProcessAndWait(ChildExe.c_str(), {"exit", "42"}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 0));
    EXPECT_EQ(std::vector<std::string>{}, app.boxes) << "no message asked for";
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(std::vector<std::string>{"Error. The process not created.\n[ no_such.exe]|0|0"}, app.boxes);
}

// The child's thread handle is closed, by the launchers and the simple one: the free handle slots are the
// same once the child is gone.
TEST(ProcessLaunch, AStartLeavesTheCallerOnlyTheProcessHandle)
{
    // The first start opens what the system keeps for the process's later starts.
    EXPECT_EQ(0, RunProcessAndWait(ChildExe.c_str(), {"exit", "0"}, "", SW_HIDE, 0, 0));
    const HANDLE before = SixtyFourthFreeHandleSlot();
    EXPECT_EQ(0, RunProcessAndWait(ChildExe.c_str(), {"exit", "0"}, "", SW_HIDE, 0, 0));
    EXPECT_EQ(before, SixtyFourthFreeHandleSlot());
    const HANDLE process = LaunchProcessHandle(ChildExe.c_str(), "exit 0", "", SW_HIDE, nullptr);
    WaitForSingleObject(process, 10000);
    CloseHandle(process);
    EXPECT_EQ(before, SixtyFourthFreeHandleSlot()) << "after LaunchProcessHandle";
}
