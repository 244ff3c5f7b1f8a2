// The launchers, checked through what the echo child reports: the command line it received, its
// directory, environment and start-up record, and the bytes of the standard-error file.
#include "SystemTestHelpers.h"

#include <io.h>

#include <cstring>

TEST(ProcessLaunch, CommandLineQuotesOnlyShortPathArgumentsWithBlanks)
{
    const ScratchDir dir("launch_args");
    const std::string folder = std::string(120, 'd') + " x\\" + std::string(120, 'e');
    dir.Write(folder + "\\long file.txt");
    const std::string longFile = dir / (folder + "\\long file.txt"), longMissing = dir / (folder + "\\no file");
    struct Row { std::string argument, passed; };   // passed "": dropped
    const Row rows[] = {
        {"  plain\t", "plain"},
        {" \t ", ""},
        {"say \"hi\"", "say \"hi\""},                              // not a path: quotes are not escaped
        {" C:\\My Files\\a.txt ", "\"C:\\My Files\\a.txt\""},      // a path with a blank
        {"\"C:\\My Files\\a.txt\"", "\"C:\\My Files\\a.txt\""},    // already holds a quote, first
        {"\\\\server\\share x", "\\\\server\\share x"},            // "\\" at index 0 only
        {"x\\\\y z", "\"x\\\\y z\""},                              // "\\" at index 1
        {":\\a b", ":\\a b"},                                      // ":\" at index 0 only
        {"C:\\dir\\", "C:\\dir\\"},                                // no blank
        {"C:\\a b\\", "\"C:\\a b\\\""},                            // the trailing backslash is kept
        {longFile, longFile},                                      // over 260, existing: as it is
        {longMissing, "\"" + longMissing + "\""},                  // over 260, no such file
    };
    std::vector<CString> arguments;
    std::string expected = "\"" + ChildExe + "\"";
    for (const auto& row : rows) {
        arguments.push_back(row.argument.c_str());
        expected += row.passed.empty() ? "" : " " + row.passed;
    }
    EXPECT_EQ(expected, Echo(LaunchProcess(ChildExe.c_str(), arguments, "", SW_HIDE, 0, nullptr))[0]);
}

// An existing program without arguments gets an empty command line (Wine hands the child its quoted
// program instead); a name searched for, or one with arguments, is quoted. The working directory is
// trimmed and loses its trailing backslashes; "" is the current one; a missing one starts nothing.
TEST(ProcessLaunch, ProgramIsQuotedWhenSearchedForAndDirectoryLosesTrailingBackslashes)
{
    const ScratchDir dir("launch_program");
    const std::string quoted = "\"" + ChildExe + "\"", here = dir.path;
    const std::string current = std::filesystem::current_path().string();
    ASSERT_NE(0, _access("child.exe", 0)) << "the current directory must not hold child.exe";
    const std::string empty = GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") ? quoted : "";
    struct Row { bool byHandle; std::string program; std::vector<CString> list; const char* text;
                 std::string workDir, commandLine, directory; };   // byHandle: LaunchProcessHandle with text
    const Row rows[] = {
        {false, " " + ChildExe + " ", {}, nullptr, " \t", empty, current},
        {false, ChildExe, {"", "  "}, nullptr, here + "\\\\", quoted, here},
        {false, "child.exe", {}, nullptr, " " + here + " ", "\"child.exe\"", here},
        {false, ChildExe, {}, nullptr, dir / "missing", "", ""},
        {true, ChildExe, {}, nullptr, "", empty, current},
        {true, ChildExe, {}, " a  \"b c\" C:\\x y ", here + "\\", quoted + "  a  \"b c\" C:\\x y", here},
        {true, "child.exe", {}, nullptr, "", "\"child.exe\"", current},
    };
    for (const Row& row : rows) {
        const char *program = row.program.c_str(), *workDir = row.workDir.c_str();
        const HANDLE process =
            row.byHandle ? LaunchProcessHandle(program, row.text, workDir, SW_HIDE, nullptr) : nullptr;
        const int id = process ? static_cast<int>(GetProcessId(process))
                               : LaunchProcess(program, row.list, workDir, SW_HIDE, 0, nullptr);
        const std::vector<std::string> lines = Echo(id);
        CloseHandle(process);
        EXPECT_EQ(row.commandLine + "|" + row.directory, lines[0] + "|" + lines[1])
            << program << " in [" << row.workDir << "] by handle " << row.byHandle;
    }
}

// The error file is truncated and receives only standard error; without one the child keeps the
// caller's handles, and one that cannot be made leaves it none. The show value arrives with its flag,
// the caller's flags reach the system, and a block of its own replaces the caller's environment.
TEST(ProcessLaunch, ErrorFileEnvironmentAndFlagsReachTheChild)
{
    const ScratchDir dir("launch_stderr");
    const std::string errors = dir / "errors.txt", unmade = dir / "no\\e.txt";
    dir.Write("errors.txt", "an older and longer content");
    PROCESS_INFORMATION info;
    ASSERT_NE(0, LaunchProcessInfo(&info, ChildExe.c_str(), {"exit", "5", "\"to stderr\""}, "", SW_HIDE, 0,
                                   errors.c_str(), ""));
    EXPECT_EQ(nullptr, info.hThread);
    EXPECT_EQ(5u, ExitCodeAfterWait(info.hProcess));
    CloseHandle(info.hProcess);
    EXPECT_EQ("to stderr", ReadFileText(errors));

    SetEnvironmentVariableA("CHILD_ECHO_MARK", "inherited");
    int id = LaunchProcessInfo(&info, ChildExe.c_str(), {}, "", 7, CREATE_SUSPENDED, errors.c_str(), "");
    EXPECT_EQ(static_cast<DWORD>(id), info.dwProcessId);
    const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, info.dwThreadId);
    EXPECT_EQ(1u, ResumeThread(thread)) << "the suspend count of a child created suspended";
    CloseHandle(thread);
    CloseHandle(info.hProcess);
    std::vector<std::string> lines = Echo(id);
    EXPECT_EQ("inherited|101 7 001", lines[2] + "|" + lines[3]) << "mark, start-up flags, show, handles set";
    EXPECT_EQ("101 7 000", Echo(LaunchProcess(ChildExe.c_str(), {}, "", 7, 0, unmade.c_str()))[3]);
    const std::string block = "TMP=" + TempDir + '\0' + "CHILD_ECHO_MARK=own block" + '\0' + '\0';
    lines = Echo(LaunchProcessEnv(ChildExe.c_str(), {}, "", SW_HIDE, 0, nullptr, block.c_str()));
    EXPECT_EQ("own block|1 0 ", lines[2] + "|" + lines[3].substr(0, 4));
    SetEnvironmentVariableA("CHILD_ECHO_MARK", nullptr);
}

TEST(ProcessLaunch, MissingProgramsStartNothing)
{
    EXPECT_EQ(0, LaunchProcessInfo(nullptr, ChildExe.c_str(), {}, "", SW_HIDE, 0, nullptr, nullptr)) << "null record";
    for (const char* program : {static_cast<const char*>(nullptr), "  ", "no_such.exe", "C:\\no\\such.exe"}) {
        const std::string shown = program ? program : "(null)";
        EXPECT_EQ(0, LaunchProcess(program, {"a"}, "", SW_HIDE, 0, nullptr)) << shown;
        EXPECT_EQ(nullptr, LaunchProcessHandle(program, nullptr, nullptr, SW_HIDE, nullptr)) << shown;
        PROCESS_INFORMATION info;
        std::memset(&info, 0x5A, sizeof(info));
        EXPECT_EQ(0, LaunchProcessInfo(&info, program, {}, "", SW_HIDE, 0, nullptr, nullptr)) << shown;
        EXPECT_TRUE(!info.hProcess && !info.hThread && !info.dwProcessId && !info.dwThreadId) << shown;
    }
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

TEST(ProcessLaunch, ShellOpenStartsAProgramWithItsParameters)
{
    ASSERT_TRUE(ShellOpen(nullptr, ChildExe.c_str(), "shell \"x y\""));
    for (int i = 0; i < 1000 && _access(EchoFile.c_str(), 0) != 0; ++i)
        Sleep(10);
    const std::string line = Echo(0)[0], tail = " shell \"x y\"";
    EXPECT_TRUE(line.find("child.exe") != std::string::npos && line.rfind(tail) + tail.size() == line.size())
        << line;
    EXPECT_FALSE(ShellOpen(nullptr, "C:\\no\\such.exe", nullptr)) << "a missing file";
    EXPECT_FALSE(ShellOpen(nullptr, nullptr, nullptr));
    EXPECT_FALSE(ShellOpen(nullptr, "", "x"));
    EXPECT_FALSE(IsWow64()) << "a 64-bit process";
}

// The child's thread handle is closed: the free handle slots are the same once the children are gone.
TEST(ProcessLaunch, AStartLeavesTheCallerOnlyTheProcessHandle)
{
    const auto startAndClose = [] {
        const HANDLE process = LaunchProcessHandle(ChildExe.c_str(), "exit 0", nullptr, SW_HIDE, nullptr);
        EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(process, 10000));
        CloseHandle(process);
    };
    startAndClose();   // the first start opens what the system keeps for the process's later starts
    const HANDLE before = SixtyFourthFreeHandleSlot();
    startAndClose();
    startAndClose();
    EXPECT_EQ(before, SixtyFourthFreeHandleSlot());
}
