#include "support/system/ProcessWait.h"

#include "support/system/ProcessClose.h"
#include "support/system/ProcessLaunch.h"

#include "AfxWinApp.h"

namespace {

constexpr DWORD kWaitAccess = SYNCHRONIZE | PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_TERMINATE;

void Notify(HWND window, int processId)
{
    if (window)
        SendMessageA(window, ProcessNotifyMessage, ProcessNotifyCode, static_cast<LPARAM>(processId));
}

// Dispatches everything queued; true when a WM_QUIT was among it.
bool DrainMessages()
{
    bool quit = false;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            quit = true;   // swallowed: the caller's own loop does not see it
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return quit;
}

} // namespace

int RunProcessAndWait(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                      DWORD flags, int showErrorBox)
{
    int processId = LaunchProcess(program, std::move(arguments), workDir, show, flags, nullptr);
    if (processId == 0) {
        CString message;
        message.Format("Error. The process not created.\n[%s]", program ? program : "");
        if (showErrorBox)
            AfxMessageBox(message, MB_OK, 0);
        return 1;
    }
    DWORD code = 0;
    if (const HANDLE process = OpenProcess(kWaitAccess, FALSE, static_cast<DWORD>(processId))) {
        code = WaitForSingleObject(process, INFINITE);
        GetExitCodeProcess(process, &code);
        CloseHandle(process);
    }
    CloseProcessById(&processId);   // tidies up a window the child may have left
    return static_cast<int>(code);
}

int RunProcessPumping(HWND notifyWindow, const char* program, std::vector<CString> arguments,
                      const char* workDir, int show, DWORD flags)
{
    PROCESS_INFORMATION info = {};
    LaunchProcessInfo(&info, program, std::move(arguments), workDir, show, flags, nullptr, nullptr);
    Notify(notifyWindow, static_cast<int>(info.dwProcessId));
    if (!info.hProcess) {
        Notify(notifyWindow, 0);
        return 0;
    }
    for (;;) {
        const DWORD woken = MsgWaitForMultipleObjects(1, &info.hProcess, FALSE, INFINITE, QS_ALLEVENTS);
        if (woken == WAIT_OBJECT_0) {
            CloseHandle(info.hProcess);
            break;
        }
        if (woken == WAIT_OBJECT_0 + 1 && DrainMessages())
            break;   // the child runs on and its handle stays open: intended
    }
    Notify(notifyWindow, 0);
    return 0;
}

int RunProcessPumping(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                      DWORD flags)
{
    return RunProcessPumping(nullptr, program, std::move(arguments), workDir, show, flags);
}
