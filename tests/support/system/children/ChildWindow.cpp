// Test child with top-level windows.
//   child_window close        one window; WM_CLOSE ends the process with
//                             exit code 7
//   child_window ignore LOG   two windows, "first" and "second"; each
//                             WM_CLOSE appends "WM_CLOSE <title>" to LOG and
//                             is otherwise ignored
// Either way the process ends by itself after 30 s with exit code 99.
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <initializer_list>

static const char* IgnoreLog = nullptr;

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

int main(int argc, char** argv)
{
    if (argc > 2 && std::strcmp(argv[1], "ignore") == 0)
        IgnoreLog = argv[2];
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "ChildWindow";
    RegisterClassA(&windowClass);
    for (const char* title : {"first", "second"}) {
        CreateWindowA("ChildWindow", title, WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr,
                      windowClass.hInstance, nullptr);
        if (!IgnoreLog)
            break;
    }
    SetTimer(nullptr, 0, 30000, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_TIMER && !message.hwnd)
            return 99;
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}
