// The one child program of the system tests; its first argument picks what it does:
//   exit CODE [TEXT]  writes TEXT to standard error and "stdout" to standard output (straight to the
//                     handles, nothing added); exits with CODE
//   sleep [MS]        sleeps MS milliseconds (default 30000); exits with 3
//   set TEXT U        SetClipboardText(TEXT, U); exits with its result
//   windows [LOG]     two top-level windows, "first" and "second", the first holding the clipboard
//                     open; then sets the event "system_tests_windows". A WM_CLOSE ends the process
//                     with exit code 7, or with LOG is appended to LOG as "WM_CLOSE <title>" and
//                     otherwise ignored
//   anything else     echo: writes system_tests_echo.txt in the temporary folder, one line each: the
//                     command line exactly as the system passed it, the current directory,
//                     CHILD_ECHO_MARK, the start-up record "FLAGS SHOW IOE" (flags in hex, show value,
//                     1 or 0 for each standard handle set: "101 7 001"), its own executable, the
//                     clipboard's text, and "product result|name|legal result|text" of its own version
//                     block; the file appears complete at once.
#include "support/Support.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

const char* IgnoreLog = nullptr;

int Echo()
{
    char temp[MAX_PATH] = "", dir[MAX_PATH] = "", self[MAX_PATH] = "", mark[256] = "", record[64] = "";
    GetTempPathA(MAX_PATH, temp);
    GetCurrentDirectoryA(MAX_PATH, dir);
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    GetEnvironmentVariableA("CHILD_ECHO_MARK", mark, sizeof(mark));
    STARTUPINFOA startup = {};
    GetStartupInfoA(&startup);
    std::snprintf(record, sizeof(record), "%lx %u %d%d%d", startup.dwFlags, startup.wShowWindow,
                  GetStdHandle(STD_INPUT_HANDLE) != nullptr, GetStdHandle(STD_OUTPUT_HANDLE) != nullptr,
                  GetStdHandle(STD_ERROR_HANDLE) != nullptr);
    CString product, legal;
    const int productFound = GetAppProductName(product);
    const int legalFound = GetAppLegalNotice(legal);
    const std::string file = std::string(temp) + "system_tests_echo.txt";
    std::ofstream(file + ".part", std::ios::binary)
        << GetCommandLineA() << "\n" << dir << "\n" << mark << "\n" << record << "\n" << self << "\n"
        << GetClipboardText(nullptr).GetString() << "\n"
        << productFound << "|" << product.GetString() << "|" << legalFound << "|" << legal.GetString() << "\n";
    return MoveFileExA((file + ".part").c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 2;
}

LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE && IgnoreLog) {
        char title[64] = "";
        GetWindowTextA(window, title, sizeof(title));
        std::ofstream(IgnoreLog, std::ios::binary | std::ios::app) << "WM_CLOSE " << title << "\n";
        return 0;
    }
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
    for (const char* title : {"first", "second"})
        CreateWindowA("ChildWindow", title, WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
    // Held through a window: Wine lets a second null owner open a clipboard held by a null owner.
    OpenClipboard(FindWindowA("ChildWindow", "first"));
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, "system_tests_windows"));
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
        const std::string text = argc > 3 ? argv[3] : "";
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
        WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), "stdout", 6, &written, nullptr);
        return argc > 2 ? std::atoi(argv[2]) : 0;
    }
    if (mode == "sleep") {
        Sleep(argc > 2 ? static_cast<DWORD>(std::atol(argv[2])) : 30000);
        return 3;
    }
    if (mode == "set" && argc > 3)
        return SetClipboardText(nullptr, argv[2], static_cast<UINT>(std::atoi(argv[3])));
    IgnoreLog = argc > 2 ? argv[2] : nullptr;
    return mode == "windows" ? Windows() : Echo();
}
