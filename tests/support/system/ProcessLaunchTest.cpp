// The launchers, checked through what the echo child writes to its standard-error file: the command
// line it received, its directory, environment and start-up record.
#include "SystemTestHelpers.h"

#include <io.h>

TEST(ProcessLaunch, CommandLineQuotesOnlyShortPathArgumentsWithBlanks)
{
    const ScratchDir dir("launch_args");
    const std::string longFile = dir / (std::string(120, 'd') + " x\\" + std::string(140, 'e') + " f");
    dir.Write(longFile.substr(dir.path.size() + 1));
    struct Row { std::string argument, passed; };   // passed "": dropped
    const Row rows[] = {
        {"  plain\t", "plain"},
        {" \t ", ""},
        {" C:\\My Files\\a.txt ", "\"C:\\My Files\\a.txt\""},      // a path with a blank
        {"\"C:\\My Files\\a.txt\"", "\"C:\\My Files\\a.txt\""},    // already holds a quote, first
        {"\\\\server\\share x", "\\\\server\\share x"},            // "\\" at index 0 only
        {"x\\\\y z", "\"x\\\\y z\""},                              // "\\" at index 1
        {":\\a b", ":\\a b"},                                      // ":\" at index 0 only
        {"C:\\dir\\", "C:\\dir\\"},                                // no blank
        {"C:\\a b\\", "\"C:\\a b\\\""},                            // the trailing backslash is kept
        {longFile, longFile},                                      // over 260, existing: as it is
        {longFile + "x", "\"" + longFile + "x\""},                 // over 260, no such file
    };
    std::vector<CString> arguments;
    std::string expected = "\"" + ChildExe + "\"";
    for (const auto& row : rows) {
        arguments.push_back(row.argument.c_str());
        expected += row.passed.empty() ? "" : " " + row.passed;
    }
    EXPECT_EQ(expected, EchoOf(arguments)[0]);
}

// An existing program without arguments gets an empty command line (Wine hands the child its quoted
// program instead); a name searched for, or one with arguments (even only blank ones), is quoted. The
// working directory is trimmed and loses its trailing backslashes; "" is the current one; a missing
// one starts nothing.
TEST(ProcessLaunch, ProgramIsQuotedWhenSearchedForAndDirectoryLosesTrailingBackslashes)
{
    const ScratchDir dir("launch_program");
    const std::string quoted = "\"" + ChildExe + "\"", here = dir.path;
    const std::string current = std::filesystem::current_path().string();
    ASSERT_NE(0, _access("child.exe", 0)) << "the current directory must not hold child.exe";
    const auto echoed = [](const std::vector<std::string>& lines) { return lines[0] + "|" + lines[1]; };
    EXPECT_EQ(quoted + "|" + current, echoed(EchoOf({}, " \t", (" " + ChildExe + " ").c_str())));
    EXPECT_EQ(quoted + "|" + here, echoed(EchoOf({"  "}, (here + "\\\\").c_str())));
    EXPECT_EQ("\"child.exe\"|" + here, echoed(EchoOf({}, (" " + here + " ").c_str(), "child.exe")));
    EXPECT_EQ("|", echoed(EchoOf({}, (dir / "missing").c_str()))) << "a missing directory";
    const HANDLE process = LaunchProcessHandle("child.exe", " a  \"b c\" ", (here + "\\").c_str(), SW_HIDE,
                                               EchoFile.c_str());
    EXPECT_EQ("\"child.exe\"  a  \"b c\"|" + here, echoed(Echo(static_cast<int>(GetProcessId(process)))));
    CloseHandle(process);
}

// The show value arrives with its flag and the standard-error handle's, the caller's flags reach the
// system, and a block of its own replaces the caller's environment.
TEST(ProcessLaunch, ShowValueFlagsAndEnvironmentReachTheChild)
{
    SetEnvironmentVariableA("CHILD_ECHO_MARK", "inherited");
    PROCESS_INFORMATION info;
    const int id = LaunchProcessInfo(&info, ChildExe.c_str(), {}, "", 7, CREATE_SUSPENDED, EchoFile.c_str(), "");
    const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, info.dwThreadId);
    EXPECT_EQ(1u, ResumeThread(thread)) << "the suspend count of a child created suspended";
    CloseHandle(thread);
    CloseHandle(info.hProcess);
    const std::vector<std::string> lines = Echo(id);
    EXPECT_EQ("inherited|101 7", lines[2] + "|" + lines[3]) << "mark, start-up flags, show value";
    const std::string block = "TMP=" + TempDir + '\0' + "CHILD_ECHO_MARK=own block" + '\0' + '\0';
    EXPECT_EQ("own block", Echo(LaunchProcessEnv(ChildExe.c_str(), {}, "", 0, 0, EchoFile.c_str(), block.c_str()))[2]);
    SetEnvironmentVariableA("CHILD_ECHO_MARK", nullptr);
}

TEST(ProcessLaunch, MissingProgramsStartNothing)
{
    for (const char* program : {static_cast<const char*>(nullptr), "  ", "C:\\no\\such.exe"}) {
        EXPECT_EQ(nullptr, LaunchProcessHandle(program, nullptr, nullptr, SW_HIDE, nullptr));
        PROCESS_INFORMATION info = {reinterpret_cast<HANDLE>(1), reinterpret_cast<HANDLE>(1), 1, 1};
        EXPECT_EQ(0, LaunchProcessInfo(&info, program, {}, "", SW_HIDE, 0, nullptr, nullptr));
        EXPECT_TRUE(!info.hProcess && !info.hThread && !info.dwProcessId && !info.dwThreadId);
    }
    EXPECT_FALSE(ShellOpen(nullptr, "C:\\no\\such.exe", nullptr)) << "a missing file";
    EXPECT_FALSE(ShellOpen(nullptr, "", "x"));
    EXPECT_FALSE(ShellOpen(nullptr, nullptr, nullptr));
    EXPECT_FALSE(IsWow64()) << "a 64-bit process";
}

TEST(ProcessWait, RunProcessAndWaitReturnsTheExitCodeOrOneWithItsMessage)
{
    RecordingApp app;
    EXPECT_EQ(42, RunProcessAndWait(ChildExe.c_str(), {"exit", "42"}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 0));
    EXPECT_EQ(std::vector<std::string>{}, app.boxes) << "no message asked for";
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(std::vector<std::string>{"Error. The process not created.\n[ no_such.exe]|0|0"}, app.boxes);
    EXPECT_EQ((std::vector<int>{1, -1, 1, -1, 1, -1, 1, -1}), app.cursors)
        << "every launch and close shows the wait cursor and ends it, also when the launch fails";
}

// The child's thread handle is closed: Wine hands out the lowest free handle slot (its
// GetProcessHandleCount answers 0), and a handle left open moves it.
TEST(ProcessLaunch, AStartLeavesTheCallerOnlyTheProcessHandle)
{
    HANDLE slots[3] = {};
    for (HANDLE& slot : slots) {   // the first start opens what the system keeps for later starts
        const HANDLE process = LaunchProcessHandle(ChildExe.c_str(), "exit 0", nullptr, SW_HIDE, nullptr);
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process, 10000));
        CloseHandle(process);
        slot = CreateEventA(nullptr, FALSE, FALSE, nullptr);
        CloseHandle(slot);
    }
    EXPECT_EQ(slots[1], slots[2]);
}
