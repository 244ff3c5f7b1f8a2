// The one child program of the system tests; its first argument picks what it does:
//   exit CODE [MS]  sleeps MS milliseconds, then exits with CODE
//   windows         top-level windows "first" and "second"; a WM_CLOSE ends the process with exit code 7
//   anything else   echo: writes to standard error, one line each, the command line as the system
//                   passed it, the current directory, CHILD_ECHO_MARK and what GetAppLegalNotice
//                   reads in a program without a version block ("found|text")
#include "support/system/VersionInfo.h"

#include <windows.h>

#include <cstdlib>
#include <sstream>
#include <string>

namespace {

int Echo()
{
    char dir[MAX_PATH] = "", mark[256] = "";
    GetCurrentDirectoryA(MAX_PATH, dir);
    GetEnvironmentVariableA("CHILD_ECHO_MARK", mark, sizeof(mark));
    CString legal = "stale";
    const int found = GetAppLegalNotice(legal);
    std::ostringstream text;
    text << GetCommandLineA() << "\n" << dir << "\n" << mark << "\n" << found << "|" << legal.GetString() << "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.str().data(), static_cast<DWORD>(text.str().size()), &written,
              nullptr);
    return 0;
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY)
        PostQuitMessage(7);
    return DefWindowProcA(window, message, wParam, lParam);
}

int Windows()
{
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.lpszClassName = "ChildWindow";
    RegisterClassA(&windowClass);
    // Two top-level windows, as a program with a main and a tool window has.
    CreateWindowA("ChildWindow", "second", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    CreateWindowA("ChildWindow", "first", 0, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    return static_cast<int>(message.wParam);
}

} // namespace

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "exit") {
        Sleep(argc > 3 ? static_cast<DWORD>(std::atol(argv[3])) : 0);
        return argc > 2 ? std::atoi(argv[2]) : 0;
    }
    return mode == "windows" ? Windows() : Echo();
}
