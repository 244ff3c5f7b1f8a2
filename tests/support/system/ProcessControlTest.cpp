// Closing, ending, waiting for and finding real child processes: exit codes, close requests to their
// windows, the messages a pumping wait dispatches.
#include "SystemTestHelpers.h"

#include <tuple>

namespace {

constexpr int kNoSuchProcess = 0x7FFFFFF0;   // never a process id

// Fails the run when a child program outlives the tests, after ending it: the suite must leave no
// process behind.
class NoChildLeftBehind : public ::testing::Environment {
    void TearDown() override
    {
        EXPECT_EQ(0, CountProcessesByFileName("child.exe")) << "children that outlived the tests";
        KillProcessesByPath(ChildExe.c_str());
    }
};
::testing::Environment* const ChildReaper = ::testing::AddGlobalTestEnvironment(new NoChildLeftBehind);

HANDLE StartSleeper(const char* arguments = "sleep")
{
    return LaunchProcessHandle(ChildExe.c_str(), arguments, "", SW_HIDE, nullptr);
}

} // namespace

TEST(ProcessClose, WindowedChildClosesPolitelyOnItsCloseRequest)
{
    PROCESS_INFORMATION info;
    int id = StartWindows(info, {"windows"}), none = kNoSuchProcess;
    ASSERT_NE(0, id);
    // A window of this process, above the child's: the request goes past it.
    const HWND other = CreateWindowA("STATIC", "other", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(StillActive, CloseProcessById(&id)) << "the code read before the request";
    DestroyWindow(other);
    EXPECT_EQ(7, GetProcessExitCodeByHandle(info.hProcess)) << "ended by its own WM_CLOSE handling";
    EXPECT_EQ(7, CloseProcessInfo(&info)) << "an ended process is only tidied up";
    EXPECT_TRUE(!info.hProcess && !info.hThread);
    EXPECT_EQ(0, CloseProcessInfo(nullptr));
    EXPECT_EQ(0, CloseProcessById(nullptr));
    EXPECT_EQ(0, CloseProcessById(&none));
}

// The one case that waits the full 5 s.
TEST(ProcessClose, ChildIgnoringItsCloseRequestIsTerminatedAfterFiveSeconds)
{
    const ScratchDir dir("close_ignored");
    const std::string log = dir / "close.log";
    PROCESS_INFORMATION info;
    ASSERT_NE(0, StartWindows(info, {"windows", log.c_str()}));
    const HANDLE watch = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, info.dwProcessId);
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(StillActive, CloseProcessInfo(&info));
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
    const HANDLE running = StartSleeper(), ended = StartSleeper("sleep 0");
    int runningId = static_cast<int>(GetProcessId(running)), endedId = static_cast<int>(GetProcessId(ended));
    int none = kNoSuchProcess;
    ASSERT_EQ(3u, ExitCodeAfterWait(ended));
    struct Row { const char* call; int got, expected; };
    const Row rows[] = {
        {"ById running", GetProcessExitCodeById(&runningId), StillActive},
        {"ById ended", GetProcessExitCodeById(&endedId), 3},
        {"ById null", GetProcessExitCodeById(nullptr), ExitCodeUnknown},
        {"ById unused id", GetProcessExitCodeById(&none), ExitCodeUnknown},
        {"ByHandle running", GetProcessExitCodeByHandle(running), StillActive},
        {"ByHandle null", GetProcessExitCodeByHandle(nullptr), ExitCodeUnknown},
        {"ByName other folder and case", GetProcessExitCodeByName(&runningId, "D:\\y\\CHILD.EXE"), StillActive},
        {"ByName other name", GetProcessExitCodeByName(&runningId, "child.com"), 0},
        {"ByName null id", GetProcessExitCodeByName(nullptr, "child.exe"), ExitCodeUnknown},
        {"End 0", EndProcessIfRunning(0), 0},
        {"End ended", EndProcessIfRunning(endedId), 3},
        {"End running, other name", EndProcessIfRunning(runningId, "other.exe"), 0},
        {"Terminate null, code", TerminateProcessHandle(nullptr, &endedId), endedId},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, row.got) << row.call;
    ASSERT_EQ(STILL_ACTIVE, ExitCodeAfterWait(running, 0)) << "a name that differs ends nothing";
    const HANDLE freeSlot = SixtyFourthFreeHandleSlot();
    EXPECT_EQ(0, EndProcessIfRunning(runningId, "child.exe"));
    EXPECT_EQ(freeSlot, SixtyFourthFreeHandleSlot()) << "the handle opened to end it is closed";
    EXPECT_EQ(0u, ExitCodeAfterWait(running)) << "terminated with exit code 0";
    const HANDLE another = StartSleeper();
    EXPECT_EQ(0, TerminateProcessHandle(another));
    EXPECT_EQ(0u, ExitCodeAfterWait(another));
    for (HANDLE process : {running, ended, another})
        CloseHandle(process);
}

TEST(ProcessQuery, CountsByFileNameAndKillsByExactPath)
{
    const ScratchDir dir("query_copy");
    const std::string copy = dir / "CHILD.EXE";
    ASSERT_TRUE(CopyFileA(ChildExe.c_str(), copy.c_str(), FALSE));
    const HANDLE first = StartSleeper(), second = LaunchProcessHandle(copy.c_str(), "sleep", "", SW_HIDE, nullptr);
    for (int i = 0; i < 500 && CountProcessesByFileName(ChildExe.c_str()) < 2; ++i)
        Sleep(10);   // until both have loaded their executable
    struct Row { const char* executable; int count; };
    for (const Row& row : {Row{ChildExe.c_str(), 2}, Row{" D:\\x\\Child.exe ", 2}, Row{"child", 0},
                           Row{dir.path.c_str(), 0}})   // an existing folder is compared whole
        EXPECT_EQ(row.count, CountProcessesByFileName(row.executable)) << row.executable;
    EXPECT_EQ(0, CountProcessesByFileName(nullptr));

    for (const std::string& other : {std::string(), std::string("D:\\x\\child.exe"), " " + ChildExe})
        EXPECT_EQ(0, KillProcessesByPath(other.c_str())) << other;
    EXPECT_EQ(STILL_ACTIVE, ExitCodeAfterWait(first, 0)) << "paths that are not the executable's end nothing";
    EXPECT_EQ(0, KillProcessesByPath(ChildExe.c_str()));
    EXPECT_EQ(0u, ExitCodeAfterWait(first));
    EXPECT_EQ(STILL_ACTIVE, ExitCodeAfterWait(second, 0)) << "the copy elsewhere runs on";
    EXPECT_EQ(0, KillProcessesByPath((dir / "child.exe").c_str())) << "in another case";
    EXPECT_EQ(0u, ExitCodeAfterWait(second));
    CloseHandle(first);
    CloseHandle(second);
}

namespace {

// What the recording window received (the notify message and WM_APP, with their parameters), and a
// handle to the last child it was told of, taken at once: its id alone could be gone under load.
std::vector<std::tuple<UINT, WPARAM, LPARAM>> Records;
HANDLE Notified = nullptr;

LRESULT CALLBACK RecordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == ProcessNotifyMessage || message == WM_APP)
        Records.emplace_back(message, wParam, lParam);
    if (message == ProcessNotifyMessage && lParam)
        Notified = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE, FALSE,
                               static_cast<DWORD>(lParam));
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

// The window hears of the child's id before the wait and of 0 after it; messages are dispatched meanwhile.
// A WM_QUIT ends the wait at once, is not posted again, and leaves the child running.
TEST(ProcessWait, PumpingNotifiesTheWindowAndDispatchesWhileTheChildRuns)
{
    const HWND window = CreateWindowA("STATIC", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RecordingProcedure));
    using Sequence = std::vector<std::tuple<UINT, WPARAM, LPARAM>>;
    PostMessageA(window, WM_APP, 1, 0);
    EXPECT_EQ(0, RunProcessPumping(window, ChildExe.c_str(), {"sleep", "300"}, "", SW_HIDE, 0));
    const LPARAM id = Records.empty() ? 0 : std::get<2>(Records[0]);
    EXPECT_NE(0, id);
    EXPECT_EQ((Sequence{{0x407, 2123, id}, {WM_APP, 1, 0}, {0x407, 2123, 0}}), Records);
    EXPECT_EQ(3u, ExitCodeAfterWait(Notified, 0)) << "the wait lasts until the child ends";
    CloseHandle(Notified);

    Records.clear();
    PostThreadMessageA(GetCurrentThreadId(), WM_QUIT, 0, 0);
    PostMessageA(window, WM_APP, 2, 0);
    EXPECT_EQ(0, RunProcessPumping(window, ChildExe.c_str(), {"sleep"}, "", SW_HIDE, 0));
    const LPARAM runningId = Records.empty() ? 0 : std::get<2>(Records[0]);
    EXPECT_EQ((Sequence{{0x407, 2123, runningId}, {WM_APP, 2, 0}, {0x407, 2123, 0}}), Records);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << "the WM_QUIT is not posted again";
    EXPECT_EQ(STILL_ACTIVE, ExitCodeAfterWait(Notified, 0)) << "the child runs on";
    TerminateProcess(Notified, 0);
    CloseHandle(Notified);

    Records.clear();
    EXPECT_EQ(0, RunProcessPumping(window, "no_such_program.exe", {}, "", SW_HIDE, 0));
    EXPECT_EQ((Sequence{{0x407, 2123, 0}, {0x407, 2123, 0}}), Records);
    DestroyWindow(window);
    EXPECT_EQ(0, RunProcessPumping(ChildExe.c_str(), {"set", "pumped", "0"}, "", SW_HIDE, 0));
    EXPECT_EQ("pumped", std::string(GetClipboardText(nullptr))) << "without a window the child runs and is waited for";
}
