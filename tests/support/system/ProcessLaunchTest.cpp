// The launchers, checked through what the echo child reports: the command line it received,
// its directory, environment and start-up record, and the bytes of the standard-error file.
#include "support/system/ProcessLaunch.h"
#include "support/system/ProcessQuery.h"
#include "support/system/ProcessWait.h"

#include "ProcessChildren.h"

#include <gtest/gtest.h>

#include <io.h>

#include <algorithm>
#include <cstring>

namespace {

// The echo child writes to the file named in CHILD_ECHO_FILE; children inherit it.
struct EchoFile {
    explicit EchoFile(const ScratchDir& dir) : path(dir / "echo.txt")
    {
        SetEnvironmentVariableA("CHILD_ECHO_FILE", path.c_str());
    }
    ~EchoFile() { SetEnvironmentVariableA("CHILD_ECHO_FILE", nullptr); }
    // Line `line` of what the child with this id wrote, after its end; the file is removed.
    std::string Take(int id, int line) const
    {
        EXPECT_TRUE(WaitForExit(id)) << "child " << id << " still runs";
        const std::string text = EchoLines(path)[line];
        DeleteFileA(path.c_str());
        return text;
    }
    std::string path;
};

// Starts the program through LaunchProcess with the list, or through LaunchProcessHandle with
// the text when byHandle; the child's id, 0 when nothing started.
int Start(bool byHandle, const std::string& program, const std::vector<CString>& list, const char* text,
          const char* workDir = "")
{
    if (!byHandle)
        return LaunchProcess(program.c_str(), list, workDir, SW_HIDE, 0, nullptr);
    const HANDLE process = LaunchProcessHandle(program.c_str(), text, workDir, SW_HIDE, nullptr);
    const int id = process ? static_cast<int>(GetProcessId(process)) : 0;
    if (process)
        CloseHandle(process);
    return id;
}

} // namespace

TEST(ProcessLaunch, CommandLineQuotesOnlyShortPathArgumentsWithBlanks)
{
    const ScratchDir dir("launch_args");
    const EchoFile echo(dir);
    const std::string program = ChildProgram(), folder = std::string(120, 'd') + " x\\" + std::string(120, 'e');
    dir.Write(folder + "\\long file.txt");
    const std::string longFile = dir / (folder + "\\long file.txt"), longMissing = dir / (folder + "\\no file.txt");
    const struct {
        std::string argument, passed;   // passed "": dropped
    } rows[] = {
        {"  plain\t", "plain"},
        {" \t ", ""},
        {"two words", "two words"},                                // not a path: unchanged
        {"say \"hi\"", "say \"hi\""},                               // quotes are not escaped
        {" C:\\My Files\\a.txt ", "\"C:\\My Files\\a.txt\""},       // path with a blank
        {"C:\\My \"Files\\a.txt", "C:\\My \"Files\\a.txt"},         // already holds a quote
        {"\\\\server\\share x", "\\\\server\\share x"},             // "\\" at index 0 only
        {"x\\\\y z", "\"x\\\\y z\""},                               // "\\" at index 1
        {":\\a b", ":\\a b"},                                       // ":\" at index 0 only
        {"C:\\dir\\", "C:\\dir\\"},                                 // no blank: as it is
        {"C:\\a b\\", "\"C:\\a b\\\""},                             // trailing backslash kept
        {longFile, longFile},                                       // over 260, existing: as it is
        {longMissing, "\"" + longMissing + "\""},                    // over 260, no such file
    };
    std::vector<CString> arguments;
    std::string expected = "\"" + program + "\"";
    for (const auto& row : rows) {
        arguments.push_back(row.argument.c_str());
        expected += row.passed.empty() ? "" : " " + row.passed;
    }
    const int id = LaunchProcess(program.c_str(), arguments, "", SW_HIDE, 0, nullptr);
    ASSERT_NE(0, id);
    EXPECT_EQ(expected, echo.Take(id, 0));
}

// An existing file without arguments gets an empty command line (Wine passes the quoted
// program on instead); a name searched for, or one with arguments, is quoted.
TEST(ProcessLaunch, ProgramIsQuotedWhenSearchedForOrFollowedByArguments)
{
    const ScratchDir dir("launch_program");
    const EchoFile echo(dir);
    const std::string program = ChildProgram(), quoted = "\"" + program + "\"";
    ASSERT_NE(0, _access("child.exe", 0)) << "the current directory must not hold child.exe";
    const std::string empty = GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") ? quoted : "";
    const struct {
        bool byHandle;
        std::string program;
        std::vector<CString> list;
        const char* text;
        std::string commandLine;
    } rows[] = {
        {false, program, {}, nullptr, empty},
        {false, " " + program + " ", {}, nullptr, empty},
        {false, program, {"", "  "}, nullptr, quoted},
        {false, "child.exe", {}, nullptr, "\"child.exe\""},
        {true, program, {}, nullptr, empty},
        {true, program, {}, " a  \"b c\" C:\\x y ", quoted + "  a  \"b c\" C:\\x y"},
        {true, "child.exe", {}, nullptr, "\"child.exe\""},
    };
    for (const auto& row : rows) {
        const int id = Start(row.byHandle, row.program, row.list, row.text);
        ASSERT_NE(0, id) << row.program << " by handle " << row.byHandle;
        EXPECT_EQ(row.commandLine, echo.Take(id, 0)) << row.program << " by handle " << row.byHandle;
    }

    // A name found as a file in the current directory is that file, not the one the
    // system's search meets first (the launching program's folder).
    ASSERT_TRUE(CopyFileA(program.c_str(), (dir / "child.exe").c_str(), FALSE));
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, current);
    SetCurrentDirectoryA(dir.Path().c_str());
    const int id = LaunchProcess("child.exe", {}, "", SW_HIDE, 0, nullptr);
    SetCurrentDirectoryA(current);
    ASSERT_NE(0, id);
    EXPECT_EQ(dir / "child.exe", echo.Take(id, 4));
}

TEST(ProcessLaunch, WorkingDirectoryLosesTrailingBackslashesAndDefaultsToCurrent)
{
    const ScratchDir dir("launch_dir");
    const EchoFile echo(dir);
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, current);
    const struct {
        bool byHandle;
        std::string workDir, expected;   // expected "": nothing starts
    } rows[] = {
        {false, "", current},
        {false, " \t", current},
        {false, dir.Path() + "\\\\", dir.Path()},
        {false, " " + dir.Path() + " ", dir.Path()},
        {false, dir / "missing", ""},
        {true, "", current},
        {true, dir.Path() + "\\", dir.Path()},
    };
    for (const auto& row : rows) {
        const int id = Start(row.byHandle, ChildProgram(), {}, nullptr, row.workDir.c_str());
        EXPECT_EQ(row.expected, id ? echo.Take(id, 1) : "") << "[" << row.workDir << "] by handle " << row.byHandle;
    }
}

TEST(ProcessLaunch, ErrorFileReceivesOnlyStandardErrorAndIsTruncatedFirst)
{
    const ScratchDir dir("launch_stderr");
    const std::string program = ChildProgram(), errors = dir / "errors.txt";
    dir.Write("errors.txt", "an older and longer content");
    PROCESS_INFORMATION info;
    ASSERT_NE(0, LaunchProcessInfo(&info, program.c_str(), {"exit", "5", "\"to stderr\""}, "", SW_HIDE, 0,
                                   errors.c_str(), ""));
    EXPECT_EQ(nullptr, info.hThread);
    EXPECT_EQ(5u, ExitCodeAfterWait(info.hProcess));
    CloseHandle(info.hProcess);
    EXPECT_EQ("to stderr", ReadFileText(errors));

    const HANDLE process = LaunchProcessHandle(program.c_str(), "exit 6 handle", nullptr, SW_HIDE, errors.c_str());
    EXPECT_EQ(6u, ExitCodeAfterWait(process));
    CloseHandle(process);
    EXPECT_EQ("handle", ReadFileText(errors));

    // Only standard error is set, and the show value arrives with its flag; without an error
    // file the show value alone.
    const EchoFile echo(dir);
    int id = LaunchProcess(program.c_str(), {}, "", SW_SHOWMINNOACTIVE, 0, errors.c_str());
    EXPECT_EQ("101 7 001", echo.Take(id, 3)) << "start-up flags, show value, standard handles set";
    id = LaunchProcess(program.c_str(), {}, "", SW_HIDE, 0, nullptr);
    EXPECT_EQ("1 0", echo.Take(id, 3).substr(0, 3)) << "start-up flags and show value";

    // An error file that cannot be created: the child runs all the same.
    const std::string unmade = dir / "missing\\errors.txt";
    ASSERT_NE(0, LaunchProcessInfo(&info, program.c_str(), {"exit", "8"}, "", SW_HIDE, 0, unmade.c_str(), nullptr));
    EXPECT_EQ(8u, ExitCodeAfterWait(info.hProcess));
    CloseHandle(info.hProcess);
}

TEST(ProcessLaunch, EnvironmentAndFlagsReachTheChild)
{
    const ScratchDir dir("launch_env");
    const EchoFile echo(dir);
    const std::string program = ChildProgram();
    SetEnvironmentVariableA("CHILD_ECHO_MARK", "inherited");
    const std::string block = "CHILD_ECHO_FILE=" + echo.path + '\0' + "CHILD_ECHO_MARK=own block" + '\0' + '\0';
    int id = LaunchProcessEnv(program.c_str(), {}, "", SW_HIDE, 0, nullptr, block.c_str());
    EXPECT_EQ("own block", echo.Take(id, 2));

    // The caller's flags reach the system: a suspended child writes nothing until its thread
    // is resumed. An empty environment inherits the caller's.
    PROCESS_INFORMATION info;
    id = LaunchProcessInfo(&info, program.c_str(), {}, "", SW_HIDE, CREATE_SUSPENDED, nullptr, "");
    ASSERT_NE(0, id);
    EXPECT_EQ(static_cast<DWORD>(id), info.dwProcessId);
    Sleep(200);
    EXPECT_NE(0, _access(echo.path.c_str(), 0)) << "a suspended child has not run";
    const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, info.dwThreadId);
    ResumeThread(thread);
    CloseHandle(thread);
    CloseHandle(info.hProcess);
    EXPECT_EQ("inherited", echo.Take(id, 2));
    SetEnvironmentVariableA("CHILD_ECHO_MARK", nullptr);
    EXPECT_EQ(0, LaunchProcessInfo(nullptr, program.c_str(), {}, "", SW_HIDE, 0, nullptr, nullptr)) << "null record";
}

TEST(ProcessLaunch, MissingProgramsStartNothing)
{
    for (const char* program : {static_cast<const char*>(nullptr), "", "  ", "no_such_program.exe", "C:\\no\\such.exe"}) {
        const char* shown = program ? program : "(null)";
        EXPECT_EQ(0, LaunchProcess(program, {"a"}, "", SW_HIDE, 0, nullptr)) << shown;
        EXPECT_EQ(0, LaunchProcessEnv(program, {}, nullptr, SW_HIDE, 0, "", "")) << shown;
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
    EXPECT_EQ(42, RunProcessAndWait(ChildProgram().c_str(), {"exit", "42"}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(0, RunProcessAndWait(ChildProgram().c_str(), {"exit", "0"}, nullptr, SW_HIDE, 0, 1));
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 0));
    EXPECT_EQ(std::vector<std::string>{}, app.boxes) << "no message asked for";
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(std::vector<std::string>{"Error. The process not created.\n[ no_such.exe]|0|0"}, app.boxes);
    EXPECT_GE(app.shown, 4) << "each launch shows the wait cursor";
    EXPECT_EQ(0, app.cursor) << "and ends it, also when the launch fails";
}

TEST(ProcessLaunch, ShellOpenStartsAProgramWithItsParameters)
{
    const ScratchDir dir("launch_shell");
    const EchoFile echo(dir);
    ASSERT_TRUE(ShellOpen(nullptr, ChildProgram().c_str(), "shell \"x y\""));
    for (int i = 0; i < 1000 && _access(echo.path.c_str(), 0) != 0; ++i)
        Sleep(10);
    const std::string commandLine = EchoLines(echo.path)[0];
    EXPECT_NE(std::string::npos, commandLine.find("child.exe")) << commandLine;
    EXPECT_EQ(" shell \"x y\"", commandLine.substr(commandLine.size() - std::min<size_t>(12, commandLine.size())));
    EXPECT_FALSE(ShellOpen(nullptr, (dir / "no_such_program.exe").c_str(), nullptr)) << "a missing file";
    EXPECT_FALSE(ShellOpen(nullptr, nullptr, nullptr));
    EXPECT_FALSE(ShellOpen(nullptr, "", "x"));
    EXPECT_FALSE(IsWow64()) << "a 64-bit process";
}
