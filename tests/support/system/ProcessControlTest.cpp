// Closing, ending, waiting for and finding real child processes: exit codes, close requests
// to their windows, the messages a pumping wait dispatches.
#include "support/system/ProcessClose.h"
#include "support/system/ProcessExitCode.h"
#include "support/system/ProcessLaunch.h"
#include "support/system/ProcessQuery.h"
#include "support/system/ProcessWait.h"

#include "ProcessChildren.h"

#include <tlhelp32.h>

#include <gtest/gtest.h>

#include <tuple>

namespace {

constexpr int kNoSuchProcess = 0x7FFFFFF0;   // never a process id

// Fails the run when a child program outlives the tests, after ending it: the suite must
// leave no process behind.
class NoChildLeftBehind : public ::testing::Environment {
public:
    void TearDown() override
    {
        const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        PROCESSENTRY32 entry = {};
        entry.dwSize = sizeof(entry);
        for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry)) {
            if (_stricmp(entry.szExeFile, "child.exe") != 0)
                continue;
            ADD_FAILURE() << entry.szExeFile << " (id " << entry.th32ProcessID << ") outlived the tests";
            const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, entry.th32ProcessID);
            TerminateProcess(process, 0);
            CloseHandle(process);
        }
        CloseHandle(snapshot);
    }
};
::testing::Environment* const ChildReaper = ::testing::AddGlobalTestEnvironment(new NoChildLeftBehind);

// Starts the child with a window ("close") or two ("ignore LOG") and waits up to 10 s until
// they exist.
int StartWindows(PROCESS_INFORMATION& info, std::vector<CString> arguments)
{
    const HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, "system_tests_windows");
    const int id = LaunchProcessInfo(&info, ChildProgram().c_str(), arguments, "", SW_HIDE, 0, nullptr, nullptr);
    WaitForSingleObject(ready, id ? 10000 : 0);
    CloseHandle(ready);
    return id;
}

HANDLE StartSleeper(const std::string& program, const char* arguments = "sleep")
{
    return LaunchProcessHandle(program.c_str(), arguments, "", SW_HIDE, nullptr);
}

bool IsRunning(HANDLE process)
{
    return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

} // namespace

TEST(ProcessClose, WindowedChildClosesPolitelyOnItsCloseRequest)
{
    PROCESS_INFORMATION info;
    int id = StartWindows(info, {"close"});
    ASSERT_NE(0, id);
    // A window of another process, above the child's: the request goes past it.
    const HWND other = CreateWindowA("STATIC", "other", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(static_cast<int>(STILL_ACTIVE), CloseProcessById(&id)) << "the code read before the request";
    DestroyWindow(other);
    EXPECT_EQ(7, GetProcessExitCodeByHandle(info.hProcess)) << "ended by its own WM_CLOSE handling";
    EXPECT_EQ(7, CloseProcessInfo(&info)) << "an ended process is only tidied up";
    EXPECT_TRUE(!info.hProcess && !info.hThread);

    int zero = 0, none = kNoSuchProcess;
    EXPECT_EQ(0, CloseProcessInfo(&info)) << "null handle";
    EXPECT_EQ(0, CloseProcessInfo(nullptr));
    EXPECT_EQ(0, CloseProcessById(nullptr));
    EXPECT_EQ(0, CloseProcessById(&zero));
    EXPECT_EQ(0, CloseProcessById(&none));
}

// The one case that waits the full 5 s.
TEST(ProcessClose, ChildIgnoringItsCloseRequestIsTerminatedAfterFiveSeconds)
{
    const ScratchDir dir("close_ignored");
    const std::string log = dir / "close.log";
    PROCESS_INFORMATION info;
    ASSERT_NE(0, StartWindows(info, {"ignore", log.c_str()}));
    HANDLE watch = nullptr;
    DuplicateHandle(GetCurrentProcess(), info.hProcess, GetCurrentProcess(), &watch, 0, FALSE, DUPLICATE_SAME_ACCESS);
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(static_cast<int>(STILL_ACTIVE), CloseProcessInfo(&info));
    EXPECT_GE(GetTickCount64() - start, 4900u) << "terminated before its 5000 ms";
    EXPECT_TRUE(!info.hProcess && !info.hThread);
    EXPECT_EQ(0u, ExitCodeAfterWait(watch)) << "terminated with exit code 0";
    CloseHandle(watch);
    const std::string requests = ReadFileText(log);
    EXPECT_TRUE(requests == "WM_CLOSE first\n" || requests == "WM_CLOSE second\n")
        << "one of the two windows asked once, got [" << requests << "]";
}

TEST(ProcessExitCode, ReadersTellRunningEndedAndUnknown)
{
    const std::string sleeper = ChildProgram();
    const HANDLE running = StartSleeper(sleeper), ended = StartSleeper(sleeper, "sleep 0");
    ASSERT_TRUE(running && ended);
    int runningId = static_cast<int>(GetProcessId(running)), endedId = static_cast<int>(GetProcessId(ended));
    ASSERT_EQ(3u, ExitCodeAfterWait(ended));
    int zero = 0, none = kNoSuchProcess;
    const int active = static_cast<int>(STILL_ACTIVE);
    const struct {
        const char* call;
        int got, expected;
    } rows[] = {
        {"ById running", GetProcessExitCodeById(&runningId), active},
        {"ById ended", GetProcessExitCodeById(&endedId), 3},
        {"ById null", GetProcessExitCodeById(nullptr), ExitCodeUnknown},
        {"ById 0", GetProcessExitCodeById(&zero), ExitCodeUnknown},
        {"ById unused id", GetProcessExitCodeById(&none), ExitCodeUnknown},
        {"ByHandle running", GetProcessExitCodeByHandle(running), active},
        {"ByHandle ended", GetProcessExitCodeByHandle(ended), 3},
        {"ByHandle null", GetProcessExitCodeByHandle(nullptr), ExitCodeUnknown},
        {"ByName other folder and case", GetProcessExitCodeByName(&runningId, "D:\\y\\CHILD.EXE"), active},
        {"ByName bare name", GetProcessExitCodeByName(&runningId, "child.exe"), active},
        {"ByName other name", GetProcessExitCodeByName(&runningId, "child.com"), 0},
        {"ByName null name", GetProcessExitCodeByName(&runningId, nullptr), 0},
        {"ByName null id", GetProcessExitCodeByName(nullptr, "child.exe"), ExitCodeUnknown},
        {"ByName unused id", GetProcessExitCodeByName(&none, "child.exe"), ExitCodeUnknown},
        {"End 0", EndProcessIfRunning(0), 0},
        {"End unused id", EndProcessIfRunning(kNoSuchProcess), ExitCodeUnknown},
        {"End ended", EndProcessIfRunning(endedId), 3},
        {"End running, other name", EndProcessIfRunning(runningId, "other.exe"), 0},
        {"Terminate null, code", TerminateProcessHandle(nullptr, &endedId), endedId},
        {"Terminate null", TerminateProcessHandle(nullptr), 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.expected, row.got) << row.call;
    EXPECT_EQ(3u, ExitCodeAfterWait(ended, 0)) << "an ended process is left as it was";
    ASSERT_TRUE(IsRunning(running)) << "a name that differs ends nothing";

    EXPECT_EQ(0, EndProcessIfRunning(runningId, "child.exe"));
    EXPECT_EQ(0u, ExitCodeAfterWait(running)) << "terminated with exit code 0";
    const HANDLE another = StartSleeper(sleeper);
    EXPECT_EQ(0, TerminateProcessHandle(another));
    EXPECT_EQ(0u, ExitCodeAfterWait(another));
    for (HANDLE process : {running, ended, another})
        CloseHandle(process);
}

TEST(ProcessQuery, CountsByFileNameAndKillsByExactPath)
{
    const ScratchDir dir("query_copy");
    const std::string original = ChildProgram(), copy = dir / "CHILD.EXE";
    ASSERT_TRUE(CopyFileA(original.c_str(), copy.c_str(), FALSE));
    const HANDLE first = StartSleeper(original), second = StartSleeper(copy);
    ASSERT_TRUE(first && second);
    for (int i = 0; i < 500 && CountProcessesByFileName(original.c_str()) < 2; ++i)
        Sleep(10);   // until both have loaded their executable
    const struct {
        const char* executable;
        int count;
    } counts[] = {
        {original.c_str(), 2}, {"D:\\nowhere\\Child.exe", 2}, {" child.exe ", 2}, {"child", 0},
        {dir.Path().c_str(), 0},   // an existing folder is compared whole
        {nullptr, 0},
    };
    for (const auto& row : counts)
        EXPECT_EQ(row.count, CountProcessesByFileName(row.executable)) << (row.executable ? row.executable : "(null)");

    for (const std::string& other : std::vector<std::string>{"", "D:\\nowhere\\child.exe", " " + original})
        EXPECT_EQ(0, KillProcessesByPath(other.c_str())) << other;
    EXPECT_EQ(0, KillProcessesByPath(nullptr));
    EXPECT_TRUE(IsRunning(first) && IsRunning(second)) << "paths that are not the executable's end nothing";
    EXPECT_EQ(0, KillProcessesByPath(original.c_str()));
    EXPECT_EQ(0u, ExitCodeAfterWait(first));
    EXPECT_TRUE(IsRunning(second)) << "the copy elsewhere runs on";
    EXPECT_EQ(0, KillProcessesByPath((dir / "child.exe").c_str())) << "in another case";
    EXPECT_EQ(0u, ExitCodeAfterWait(second));
    CloseHandle(first);
    CloseHandle(second);
    EXPECT_EQ(0, CountProcessesByFileName(original.c_str()));
}

namespace {

// What the recording window received: the notify message and WM_APP, with their parameters.
std::vector<std::tuple<UINT, WPARAM, LPARAM>> Records;

LRESULT CALLBACK RecordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == ProcessNotifyMessage || message == WM_APP)
        Records.emplace_back(message, wParam, lParam);
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

TEST(ProcessWait, PumpingNotifiesTheWindowAndDispatchesWhileTheChildRuns)
{
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = RecordingProcedure;
    windowClass.lpszClassName = "RecordingWindow";
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowA("RecordingWindow", "", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                      nullptr);
    using Sequence = std::vector<std::tuple<UINT, WPARAM, LPARAM>>;
    const std::string child = ChildProgram();
    EXPECT_EQ(0x407u, ProcessNotifyMessage);

    PostMessageA(window, WM_APP, 1, 0);
    EXPECT_EQ(0, RunProcessPumping(window, child.c_str(), {"sleep", "300"}, "", SW_HIDE, 0));
    ASSERT_EQ(3u, Records.size());
    const int id = static_cast<int>(std::get<2>(Records[0]));
    EXPECT_NE(0, id);
    EXPECT_EQ((Sequence{{0x407, 2123, id}, {WM_APP, 1, 0}, {0x407, 2123, 0}}), Records);

    // A WM_QUIT ends the wait; what was queued behind it is still dispatched.
    Records.clear();
    PostThreadMessageA(GetCurrentThreadId(), WM_QUIT, 0, 0);
    PostMessageA(window, WM_APP, 2, 0);
    EXPECT_EQ(0, RunProcessPumping(window, child.c_str(), {"sleep"}, "", SW_HIDE, 0));
    ASSERT_EQ(3u, Records.size());
    int runningId = static_cast<int>(std::get<2>(Records[0]));
    EXPECT_EQ((Sequence{{0x407, 2123, runningId}, {WM_APP, 2, 0}, {0x407, 2123, 0}}), Records);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the WM_QUIT is not posted again";
    EXPECT_EQ(static_cast<int>(STILL_ACTIVE), GetProcessExitCodeById(&runningId)) << "the child runs on";
    EXPECT_EQ(0, EndProcessIfRunning(runningId));

    Records.clear();
    EXPECT_EQ(0, RunProcessPumping(window, "no_such_program.exe", {}, "", SW_HIDE, 0));
    EXPECT_EQ((Sequence{{0x407, 2123, 0}, {0x407, 2123, 0}}), Records);
    EXPECT_EQ(0, RunProcessPumping(child.c_str(), {"exit", "4"}, "", SW_HIDE, 0));
    EXPECT_EQ(0, RunProcessPumping(" ", {}, "", SW_HIDE, 0));
    DestroyWindow(window);
}
