#include "support/system/ProcessClose.h"

#include "AfxWinApp.h"

namespace {

constexpr DWORD kCloseAccess = SYNCHRONIZE | PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_TERMINATE;
constexpr DWORD kCloseTimeoutMs = 5000;

// EnumWindows callback: posts WM_CLOSE to the first top-level window of the
// process whose id is in lParam and stops there.
BOOL CALLBACK PostCloseToProcessWindow(HWND window, LPARAM lParam)
{
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != static_cast<DWORD>(lParam))
        return TRUE;
    PostMessageA(window, WM_CLOSE, 0, 0);
    return FALSE;
}

// The exit code before the request; the process is gone or ended on return.
int CloseProcess(HANDLE process, DWORD processId)
{
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    EnumWindows(PostCloseToProcessWindow, static_cast<LPARAM>(processId));
    if (WaitForSingleObject(process, kCloseTimeoutMs) == WAIT_TIMEOUT)
        TerminateProcess(process, 0);
    return static_cast<int>(code);
}

} // namespace

int CloseProcessById(const int* processId)
{
    if (!processId)
        return 0;
    CWaitCursor wait;
    const DWORD id = static_cast<DWORD>(*processId);
    const HANDLE process = OpenProcess(kCloseAccess, FALSE, id);
    if (!process)
        return 0;
    const int code = CloseProcess(process, id);
    CloseHandle(process);
    return code;
}

int CloseProcessInfo(PROCESS_INFORMATION* info)
{
    if (!info || !info->hProcess)
        return 0;
    CWaitCursor wait;
    const int code = CloseProcess(info->hProcess, info->dwProcessId);
    if (info->hThread)
        CloseHandle(info->hThread);
    CloseHandle(info->hProcess);
    info->hThread = nullptr;
    info->hProcess = nullptr;
    return code;
}
