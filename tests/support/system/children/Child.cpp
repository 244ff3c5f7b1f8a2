// The one child program of the process tests; its first argument picks what it does:
//   exit CODE [TEXT]  writes TEXT to standard error and, with TEXT, "stdout" to standard
//                     output (straight to the handles, nothing added); exits with CODE
//   sleep [MS]        sleeps MS milliseconds (default 30000); exits with 3
//   close             one window; WM_CLOSE ends the process with exit code 7
//   ignore LOG        two windows, "first" and "second"; each WM_CLOSE appends
//                     "WM_CLOSE <title>" to LOG and is otherwise ignored
//   get               writes the clipboard's text to standard error
//   set TEXT U        SetClipboardText(TEXT, U); exits with its result
//   hold              opens the clipboard for a window of its own, sets the event
//                     "system_tests_held" and keeps it open until "system_tests_release"
//                     is set (at most 10 s)
//   names             writes "product result|name|legal result|text" of its own version
//                     block to standard error
//   anything else     echo: writes to the file named by CHILD_ECHO_FILE (default
//                     "child_echo.txt"), one line each, the command line exactly as the
//                     system passed it, the current directory, CHILD_ECHO_MARK ("" when
//                     unset), the start-up record "FLAGS SHOW IOE" (flags in hex, show
//                     value, 1 or 0 for each standard handle set: "101 7 001") and its own
//                     executable; the file appears complete at once.
// The window modes set the event "system_tests_windows" once their windows exist and end by
// themselves after 30 s with exit code 99.
#include "support/system/Clipboard.h"
#include "support/system/VersionInfo.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>

static const char* IgnoreLog = nullptr;

static std::string Variable(const char* name)
{
    char value[4096] = "";
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof(value));
    return length > 0 && length < sizeof(value) ? value : "";
}

static void Put(DWORD which, const char* text)
{
    DWORD written = 0;
    WriteFile(GetStdHandle(which), text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);
}

static int Echo()
{
    const std::string file = Variable("CHILD_ECHO_FILE").empty() ? "child_echo.txt" : Variable("CHILD_ECHO_FILE");
    char dir[MAX_PATH] = "", self[MAX_PATH] = "", record[64];
    GetCurrentDirectoryA(MAX_PATH, dir);
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    STARTUPINFOA startup = {};
    GetStartupInfoA(&startup);
    std::snprintf(record, sizeof(record), "%lx %u %d%d%d", startup.dwFlags, startup.wShowWindow,
                  GetStdHandle(STD_INPUT_HANDLE) != nullptr, GetStdHandle(STD_OUTPUT_HANDLE) != nullptr,
                  GetStdHandle(STD_ERROR_HANDLE) != nullptr);
    const std::string text = std::string(GetCommandLineA()) + "\n" + dir + "\n" + Variable("CHILD_ECHO_MARK") +
                             "\n" + record + "\n" + self + "\n";
    FILE* out = std::fopen((file + ".part").c_str(), "wb");
    if (!out)
        return 2;
    std::fwrite(text.data(), 1, text.size(), out);
    std::fclose(out);
    return MoveFileExA((file + ".part").c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 2;
}

static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_CLOSE && IgnoreLog) {
        char title[64] = "";
        GetWindowTextA(window, title, sizeof(title));
        if (FILE* log = std::fopen(IgnoreLog, "ab")) {
            std::fprintf(log, "WM_CLOSE %s\n", title);
            std::fclose(log);
        }
        return 0;
    }
    if (message == WM_DESTROY)
        PostQuitMessage(7);
    return DefWindowProcA(window, message, wParam, lParam);
}

static int Windows()
{
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "ChildWindow";
    RegisterClassA(&windowClass);
    for (const char* title : {"first", "second"})
        if (title[0] == 'f' || IgnoreLog)
            CreateWindowA("ChildWindow", title, WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr,
                          windowClass.hInstance, nullptr);
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, "system_tests_windows"));
    SetTimer(nullptr, 0, 30000, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && !message.hwnd)
            return 99;
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

int main(int argc, char** argv)
{
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "exit") {
        if (argc > 3) {
            Put(STD_ERROR_HANDLE, argv[3]);
            Put(STD_OUTPUT_HANDLE, "stdout");
        }
        return argc > 2 ? std::atoi(argv[2]) : 0;
    }
    if (mode == "sleep") {
        Sleep(argc > 2 ? static_cast<DWORD>(std::atol(argv[2])) : 30000);
        return 3;
    }
    if (mode == "get")
        Put(STD_ERROR_HANDLE, CString(GetClipboardText(nullptr)).GetString());
    if (mode == "set" && argc > 3)
        return SetClipboardText(nullptr, argv[2], static_cast<UINT>(std::atoi(argv[3])));
    if (mode == "hold") {
        // Held through a window: Wine lets a second null owner open a clipboard held by a null owner.
        const HWND owner = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        if (!owner || !OpenClipboard(owner))
            return 2;
        SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, "system_tests_held"));
        WaitForSingleObject(OpenEventA(SYNCHRONIZE, FALSE, "system_tests_release"), 10000);
        CloseClipboard();
        DestroyWindow(owner);
    }
    if (mode == "names") {
        CString product, legal;
        const int productFound = GetAppProductName(product), legalFound = GetAppLegalNotice(legal);
        Put(STD_ERROR_HANDLE, (std::to_string(productFound) + "|" + product.GetString() + "|" +
                               std::to_string(legalFound) + "|" + legal.GetString()).c_str());
    }
    if (mode == "get" || mode == "hold" || mode == "names")
        return 0;
    if (mode == "ignore" && argc > 2)
        IgnoreLog = argv[2];
    return mode == "close" || IgnoreLog ? Windows() : Echo();
}
