// Closing, ending, waiting for and finding real child processes: exit codes, close requests to their
// windows, the messages a pumping wait dispatches.
#include "SystemTestHelpers.h"

namespace {

DWORD ExitCodeAfterWait(HANDLE process, DWORD timeoutMs = 10000)
{
    WaitForSingleObject(process, timeoutMs);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

} // namespace

// A child whose window ends it on WM_CLOSE ends with its own code; the result is the code read before
// the request.
TEST(ProcessClose, WindowedChildClosesPolitelyOnItsCloseRequest)
{
    PROCESS_INFORMATION info;
    int id = LaunchProcessInfo(&info, ChildExe.c_str(), {"windows"}, "", SW_HIDE, 0, nullptr, nullptr);
    for (int i = 0; i < 1000 && !FindWindowA("ChildWindow", "first"); ++i)
        Sleep(10);   // until the windows exist
    // A window of this process, made last, comes first in the z-order: the search passes over it.
    const HWND other = CreateWindowA("STATIC", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    EXPECT_EQ(static_cast<int>(STILL_ACTIVE), CloseProcessById(&id));
    EXPECT_EQ(7, CloseProcessInfo(&info)) << "ended by its own WM_CLOSE handling, then only tidied up";
    DestroyWindow(other);
    PROCESS_INFORMATION closed = {};
    EXPECT_EQ((std::vector<int>{0, 0, 0}),
              (std::vector<int>{CloseProcessById(nullptr), CloseProcessInfo(nullptr), CloseProcessInfo(&closed)}));
}

TEST(ProcessExitCode, ReadersTellRunningEndedAndUnknownAndKillingTakesTheExactPath)
{
    const HANDLE running = LaunchProcessHandle(ChildExe.c_str(), "exit 3 30000", "", SW_HIDE, nullptr);
    const HANDLE ended = LaunchProcessHandle(ChildExe.c_str(), "exit 3", "", SW_HIDE, nullptr);
    int runningId = static_cast<int>(GetProcessId(running)), endedId = static_cast<int>(GetProcessId(ended));
    int noProcess = 0x7FFFFFFC;   // a process id no process has
    ASSERT_EQ(3u, ExitCodeAfterWait(ended));
    for (int i = 0; i < 500 && CountProcessesByFileName("child.exe") < 1; ++i)
        Sleep(10);   // until it has loaded its executable
    struct Row { const char* call; int got, expected; };
    const Row rows[] = {
        {"ById running", GetProcessExitCodeById(&runningId), static_cast<int>(STILL_ACTIVE)},
        {"ById ended", GetProcessExitCodeById(&endedId), 3},
        {"ById null", GetProcessExitCodeById(nullptr), ExitCodeUnknown},
        {"ById no such process", GetProcessExitCodeById(&noProcess), ExitCodeUnknown},
        {"ByHandle null", GetProcessExitCodeByHandle(nullptr), ExitCodeUnknown},
        {"ByHandle ended", GetProcessExitCodeByHandle(ended), 3},
        {"ByName folder, case", GetProcessExitCodeByName(&runningId, "D:\\y\\CHILD.EXE"), STILL_ACTIVE},
        {"ByName other name", GetProcessExitCodeByName(&runningId, "child.com"), 0},
        {"End ended", EndProcessIfRunning(endedId), 3},
        {"End running, other name", EndProcessIfRunning(runningId, "other.exe"), 0},
        {"Count other folder and case", CountProcessesByFileName(" D:\\x\\Child.exe "), 1},
        {"Kill other folder", KillProcessesByPath("D:\\x\\child.exe"), 0},
    };
    for (const Row& row : rows)
        EXPECT_EQ(row.expected, row.got) << row.call;
    ASSERT_EQ(STILL_ACTIVE, ExitCodeAfterWait(running, 0)) << "names and paths that differ end nothing";
    const HANDLE freeSlot = SixtyFourthFreeHandleSlot();
    EXPECT_EQ(0, EndProcessIfRunning(runningId, "child.exe"));
    EXPECT_EQ(freeSlot, SixtyFourthFreeHandleSlot()) << "the handle opened to end it is closed";
    EXPECT_EQ(0u, ExitCodeAfterWait(running)) << "terminated with exit code 0";
    const HANDLE another = LaunchProcessHandle(ChildExe.c_str(), "exit 3 30000", "", SW_HIDE, nullptr);
    KillProcessesByPath((ProgramDir + "CHILD.EXE").c_str());
    EXPECT_EQ(0u, ExitCodeAfterWait(another)) << "killed by its path in another case";
    const HANDLE third = LaunchProcessHandle(ChildExe.c_str(), "exit 3 30000", "", SW_HIDE, nullptr);
    const int seven = 7;
    EXPECT_EQ((std::vector<int>{7, 0, 7}), (std::vector<int>{TerminateProcessHandle(third, &seven),
                                            TerminateProcessHandle(nullptr), TerminateProcessHandle(nullptr, &seven)}));
    EXPECT_EQ(0u, ExitCodeAfterWait(third)) << "terminated by its handle with exit code 0, whatever the code given";
    for (HANDLE process : {running, ended, another, third})
        CloseHandle(process);
}

namespace {

// The notify messages (their lParam) and WM_APP ("app") the recording window received.
std::string Records;

LRESULT CALLBACK RecordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if ((message == 0x407 && wParam == 2123) || message == WM_APP)
        Records += message == WM_APP ? "app " : std::to_string(lParam) + " ";
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

// The window hears of the child's id before the wait and of 0 after it; messages are dispatched meanwhile.
// No child is left behind by the tests before.
TEST(ProcessWait, PumpingNotifiesTheWindowAndDispatchesWhileTheChildRuns)
{
    const HWND window = CreateWindowA("STATIC", "", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RecordingProcedure));
    PostMessageA(window, WM_APP, 1, 0);
    EXPECT_EQ(0, RunProcessPumping(window, ChildExe.c_str(), {"exit", "3", "300"}, "", SW_HIDE, 0));
    EXPECT_EQ(Records.substr(0, Records.find(' ')) + " app 0 ", Records) << "the child's id, WM_APP, 0";
    EXPECT_EQ(0, CountProcessesByFileName("child.exe")) << "the wait lasts until the child ends";
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(0, RunProcessPumping(ChildExe.c_str(), {"exit", "3", "300"}, "", SW_HIDE, 0));
    EXPECT_GE(GetTickCount64() - start, 250u) << "without a window the child runs and is waited for";

    DestroyWindow(window);
}
