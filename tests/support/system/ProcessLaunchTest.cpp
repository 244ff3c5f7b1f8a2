// The launchers, checked through what real child programs report: the
// command line they received, their directory, environment and priority, and
// the bytes of their standard-error file.
#include "support/system/ProcessExitCode.h"
#include "support/system/ProcessLaunch.h"
#include "support/system/ProcessQuery.h"
#include "support/system/ProcessWait.h"

#include "AfxWinApp.h"
#include "ProcessChildren.h"
#include "SystemTestHelpers.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>

namespace {

// child_echo writes to the file named in this variable; children inherit it.
class EchoFile {
public:
    explicit EchoFile(const ScratchDir& dir) : m_path(dir / "echo.txt")
    {
        SetEnvironmentVariableA("CHILD_ECHO_FILE", m_path.c_str());
    }
    ~EchoFile() { SetEnvironmentVariableA("CHILD_ECHO_FILE", nullptr); }
    const std::string& Path() const { return m_path; }
    // What the child with this id wrote, after its end; the file is removed.
    std::vector<std::string> Take(int processId) const
    {
        EXPECT_TRUE(WaitForExit(processId)) << "child " << processId << " still runs";
        std::vector<std::string> lines = EchoLines(m_path);
        DeleteFileA(m_path.c_str());
        return lines;
    }

private:
    std::string m_path;
};

// Wine gives a child started with an empty command line the quoted
// application name instead; Windows passes the empty line on.
bool RunningOnWine()
{
    return GetProcAddress(GetModuleHandleA("ntdll"), "wine_get_version") != nullptr;
}

int ProcessIdOf(HANDLE process)
{
    const int id = static_cast<int>(GetProcessId(process));
    if (process)
        CloseHandle(process);
    return id;
}

} // namespace

TEST(ProcessLaunch, CommandLineQuotesOnlyShortPathArgumentsWithBlanks)
{
    const ScratchDir dir("launch_args");
    const EchoFile echo(dir);
    const std::string program = ChildPath("child_echo.exe");
    const std::string folder = std::string(120, 'd') + " x\\" + std::string(120, 'e');
    dir.Write(folder + "\\long file.txt");
    const std::string longFile = dir / (folder + "\\long file.txt"), longMissing = dir / (folder + "\\no file.txt");
    ASSERT_GT(longFile.size(), 260u);
    struct Row {
        std::string argument;
        std::string passed;   // "": dropped
    };
    const Row rows[] = {
        {"  plain\t", "plain"},
        {"", ""},
        {" \t ", ""},
        {"two words", "two words"},                                // not a path: unchanged
        {"say \"hi\"", "say \"hi\""},                               // quotes are not escaped
        {" C:\\My Files\\a.txt ", "\"C:\\My Files\\a.txt\""},       // path with a blank
        {"C:\\My \"Files\\a.txt", "C:\\My \"Files\\a.txt"},         // already holds a quote
        {"\\\\server\\share x", "\\\\server\\share x"},             // "\\" at index 0 only
        {"x\\\\y z", "\"x\\\\y z\""},                               // "\\" at index 1
        {":\\a b", ":\\a b"},                                       // ":\" at index 0 only
        {"C:\\dir\\", "C:\\dir\\"},                                 // trailing backslash kept
        {"C:\\a b\\", "\"C:\\a b\\\""},                             // quoted as it is
        {longFile, longFile},                                       // long and existing: as it is
        {longMissing, "\"" + longMissing + "\""},                    // long, no such file
    };
    std::vector<CString> arguments;
    std::string expected = "\"" + program + "\"";
    for (const Row& row : rows) {
        arguments.push_back(row.argument.c_str());
        if (!row.passed.empty())
            expected += " " + row.passed;
    }
    const int id = LaunchProcess(program.c_str(), arguments, "", SW_HIDE, 0, nullptr);
    ASSERT_NE(0, id);
    const std::vector<std::string> lines = echo.Take(id);
    EXPECT_EQ(expected, lines[0]);
    EXPECT_EQ("1 0", lines[3].substr(0, 3)) << "start-up flags and show value";
}

TEST(ProcessLaunch, ExistingProgramWithoutArgumentsGetsAnEmptyCommandLine)
{
    const ScratchDir dir("launch_program");
    const EchoFile echo(dir);
    const std::string program = ChildPath("child_echo.exe");
    ASSERT_NE(0, _access("child_echo.exe", 0)) << "the current directory must not hold child_echo.exe";
    const std::string empty = RunningOnWine() ? "\"" + program + "\"" : "";
    struct Row {
        const char* what;
        std::function<int()> launch;
        std::string commandLine;
    };
    const Row rows[] = {
        {"file, no arguments", [&] { return LaunchProcess(program.c_str(), {}, "", SW_HIDE, 0, nullptr); }, empty},
        {"file padded with blanks",
         [&] { return LaunchProcess((" " + program + " ").c_str(), {}, "", SW_HIDE, 0, nullptr); }, empty},
        {"file, only empty arguments",
         [&] { return LaunchProcess(program.c_str(), {"", "  "}, "", SW_HIDE, 0, nullptr); },
         "\"" + program + "\""},
        {"name searched for",
         [&] { return LaunchProcess("child_echo.exe", {}, "", SW_HIDE, 0, nullptr); }, "\"child_echo.exe\""},
        {"handle launcher, no arguments",
         [&] { return ProcessIdOf(LaunchProcessHandle(program.c_str(), nullptr, "", SW_HIDE, nullptr)); }, empty},
        {"handle launcher, arguments unchanged",
         [&] {
             return ProcessIdOf(LaunchProcessHandle(program.c_str(), " a  \"b c\" C:\\x y ", "", SW_HIDE, nullptr));
         },
         "\"" + program + "\"  a  \"b c\" C:\\x y"},
        {"handle launcher, name searched for",
         [&] { return ProcessIdOf(LaunchProcessHandle("child_echo.exe", nullptr, "", SW_HIDE, nullptr)); },
         "\"child_echo.exe\""},
    };
    for (const Row& row : rows) {
        const int id = row.launch();
        ASSERT_NE(0, id) << row.what;
        EXPECT_EQ(row.commandLine, echo.Take(id)[0]) << row.what;
    }

    // A name found as a file in the current directory is that file, not the
    // one the system's search meets first (the launching program's folder).
    ASSERT_TRUE(CopyFileA(program.c_str(), (dir / "child_echo.exe").c_str(), FALSE));
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, current);
    SetCurrentDirectoryA(dir.Path().c_str());
    const int id = LaunchProcess("child_echo.exe", {}, "", SW_HIDE, 0, nullptr);
    SetCurrentDirectoryA(current);
    ASSERT_NE(0, id);
    EXPECT_EQ(dir / "child_echo.exe", echo.Take(id)[4]);
}

TEST(ProcessLaunch, WorkingDirectoryLosesTrailingBackslashesAndDefaultsToCurrent)
{
    const ScratchDir dir("launch_dir");
    const EchoFile echo(dir);
    const std::string program = ChildPath("child_echo.exe");
    char current[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, current);
    struct Row {
        std::string workDir;
        std::string expected;   // "" : the launch fails
    };
    const Row rows[] = {
        {"", current},
        {" \t", current},
        {dir.Path() + "\\\\", dir.Path()},
        {" " + dir.Path() + " ", dir.Path()},
        {dir / "missing", ""},
    };
    for (const Row& row : rows) {
        const int id = LaunchProcess(program.c_str(), {}, row.workDir.c_str(), SW_HIDE, 0, nullptr);
        if (row.expected.empty()) {
            EXPECT_EQ(0, id) << "[" << row.workDir << "]";
            continue;
        }
        ASSERT_NE(0, id) << "[" << row.workDir << "]";
        EXPECT_EQ(row.expected, echo.Take(id)[1]) << "[" << row.workDir << "]";
    }
    for (const Row& row : {Row{"", current}, Row{dir.Path() + "\\", dir.Path()}}) {
        const int id = ProcessIdOf(LaunchProcessHandle(program.c_str(), nullptr, row.workDir.c_str(), SW_HIDE, nullptr));
        ASSERT_NE(0, id) << "[" << row.workDir << "]";
        EXPECT_EQ(row.expected, echo.Take(id)[1]) << "handle launcher [" << row.workDir << "]";
    }
}

TEST(ProcessLaunch, ErrorFileReceivesOnlyStandardErrorAndIsTruncatedFirst)
{
    const ScratchDir dir("launch_stderr");
    const std::string program = ChildPath("child_exit.exe");
    const std::string errors = dir / "errors.txt";
    dir.Write("errors.txt", "an older and longer content");
    PROCESS_INFORMATION info;
    ASSERT_NE(0, LaunchProcessInfo(&info, program.c_str(), {"5", "\"to stderr\""}, "", SW_HIDE, 0, errors.c_str(), ""));
    EXPECT_EQ(nullptr, info.hThread);
    EXPECT_EQ(5u, ExitCodeAfterWait(info.hProcess));
    CloseHandle(info.hProcess);
    EXPECT_EQ("to stderr", ReadFileText(errors));

    const HANDLE process = LaunchProcessHandle(program.c_str(), "6 handle", nullptr, SW_HIDE, errors.c_str());
    ASSERT_NE(nullptr, process);
    EXPECT_EQ(6u, ExitCodeAfterWait(process));
    CloseHandle(process);
    EXPECT_EQ("handle", ReadFileText(errors));

    // Only standard error is set, and the show value arrives with its flag.
    const std::string echoed = dir / "echo.txt";
    SetEnvironmentVariableA("CHILD_ECHO_FILE", echoed.c_str());
    const int id = LaunchProcess(ChildPath("child_echo.exe").c_str(), {}, "", SW_SHOWMINNOACTIVE, 0, errors.c_str());
    ASSERT_NE(0, id);
    EXPECT_TRUE(WaitForExit(id));
    EXPECT_EQ("101 7 001", EchoLines(echoed)[3]) << "start-up flags, show value, standard handles set";
    SetEnvironmentVariableA("CHILD_ECHO_FILE", nullptr);

    // An error file that cannot be created: the child runs all the same.
    const std::string unmade = dir / "missing\\errors.txt";
    ASSERT_NE(0, LaunchProcessInfo(&info, program.c_str(), {"8", "lost"}, "", SW_HIDE, 0, unmade.c_str(), nullptr));
    EXPECT_EQ(8u, ExitCodeAfterWait(info.hProcess));
    CloseHandle(info.hProcess);
    EXPECT_NE(0, _access(unmade.c_str(), 0)) << unmade;
}

TEST(ProcessLaunch, EnvironmentAndFlagsReachTheChild)
{
    const ScratchDir dir("launch_env");
    const EchoFile echo(dir);
    const std::string program = ChildPath("child_echo.exe");
    SetEnvironmentVariableA("CHILD_ECHO_MARK", "inherited");
    const std::string block = "CHILD_ECHO_FILE=" + echo.Path() + std::string(1, '\0') + "CHILD_ECHO_MARK=own block" +
                              std::string(2, '\0');
    int id = LaunchProcessEnv(program.c_str(), {}, "", SW_HIDE, 0, nullptr, block.c_str());
    ASSERT_NE(0, id);
    EXPECT_EQ("own block", echo.Take(id)[2]);

    // The caller's flags reach the system: a suspended child writes nothing
    // until its thread is resumed. An empty environment inherits the caller's.
    PROCESS_INFORMATION info;
    id = LaunchProcessInfo(&info, program.c_str(), {}, "", SW_HIDE, CREATE_SUSPENDED, nullptr, "");
    ASSERT_NE(0, id);
    EXPECT_EQ(static_cast<DWORD>(id), info.dwProcessId);
    Sleep(200);
    EXPECT_NE(0, _access(echo.Path().c_str(), 0)) << "a suspended child has not run";
    const HANDLE thread = OpenThread(THREAD_SUSPEND_RESUME, FALSE, info.dwThreadId);
    ASSERT_NE(nullptr, thread);
    ResumeThread(thread);
    CloseHandle(thread);
    CloseHandle(info.hProcess);
    EXPECT_EQ("inherited", echo.Take(id)[2]);
    SetEnvironmentVariableA("CHILD_ECHO_MARK", nullptr);

    EXPECT_EQ(0, LaunchProcessInfo(nullptr, program.c_str(), {}, "", SW_HIDE, 0, nullptr, nullptr));
    Sleep(100);
    EXPECT_NE(0, _access(echo.Path().c_str(), 0)) << "a null record starts nothing";
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
    struct BoxRecorder : CWinApp {
        BoxRecorder() : CWinApp("tests") {}
        int DoMessageBox(const char* prompt, UINT type, UINT) override
        {
            boxes.push_back(std::to_string(type) + ":" + prompt);
            return IDOK;
        }
        void DoWaitCursor(int code) override
        {
            cursor += code;
            shown += code > 0;
            CWinApp::DoWaitCursor(code);
        }
        std::vector<std::string> boxes;
        int cursor = 0;   // shown minus ended
        int shown = 0;
    } app;
    const std::string program = ChildPath("child_exit.exe");
    EXPECT_EQ(42, RunProcessAndWait(program.c_str(), {"42"}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(0, RunProcessAndWait(program.c_str(), {"0"}, nullptr, SW_HIDE, 0, 1));
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 0));
    EXPECT_TRUE(app.boxes.empty()) << app.boxes.size() << " boxes, first: " << app.boxes.front();
    EXPECT_EQ(1, RunProcessAndWait(" no_such.exe", {}, "", SW_HIDE, 0, 1));
    EXPECT_EQ(std::vector<std::string>{"0:Error. The process not created.\n[ no_such.exe]"}, app.boxes);
    EXPECT_GE(app.shown, 4) << "each launch shows the wait cursor";
    EXPECT_EQ(0, app.cursor) << "and ends it, also when the launch fails";
}

TEST(ProcessLaunch, ShellOpenStartsAProgramWithItsParameters)
{
    const ScratchDir dir("launch_shell");
    const EchoFile echo(dir);
    const std::string program = ChildPath("child_echo.exe");
    ASSERT_TRUE(ShellOpen(nullptr, program.c_str(), "shell \"x y\""));
    for (int i = 0; i < 1000 && _access(echo.Path().c_str(), 0) != 0; ++i)
        Sleep(10);
    const std::string commandLine = EchoLines(echo.Path())[0];
    EXPECT_NE(std::string::npos, commandLine.find("child_echo.exe")) << commandLine;
    EXPECT_EQ(" shell \"x y\"", commandLine.substr(commandLine.size() - std::min<size_t>(12, commandLine.size())));

    EXPECT_FALSE(ShellOpen(nullptr, (dir / "no_such_program.exe").c_str(), nullptr)) << "a missing file";
    EXPECT_FALSE(ShellOpen(nullptr, nullptr, nullptr));
    EXPECT_FALSE(ShellOpen(nullptr, "", "x"));
    EXPECT_FALSE(IsWow64()) << "a 64-bit process";
}
