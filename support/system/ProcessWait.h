// Running a child process to its end: blocking, or pumping the calling
// thread's window messages meanwhile. The child is started by LaunchProcess
// or LaunchProcessInfo (ProcessLaunch.h) with their command-line, working
// directory and flag rules, without an error file or environment.
#pragma once

#include <windows.h>

#include <vector>

#include "AfxString.h"

/// The message sent to a notify window while RunProcessPumping runs a
/// child: wParam ProcessNotifyCode, lParam the child's process id when it
/// starts and 0 when it has ended (or the wait was given up).
constexpr UINT ProcessNotifyMessage = WM_USER + 7;
constexpr WPARAM ProcessNotifyCode = 2123;

/// Starts program, blocks until it ends, and returns its exit code (0 when
/// the code cannot be read). Then asks any window the child left to close
/// (CloseProcessById). When the child cannot be started returns 1 and, if
/// showErrorBox is non-zero, shows "Error. The process not created.\n[...]"
/// with the program text through AfxMessageBox (MB_OK); a child may also
/// exit with 1 itself.
int RunProcessAndWait(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                      DWORD flags, int showErrorBox);

/// Starts program and waits for its end while dispatching the calling
/// thread's messages (the thread needs a message queue; handlers run inside
/// this call and may call in again). notifyWindow (may be null) receives
/// ProcessNotifyMessage with the process id before the wait and with 0
/// after it. A WM_QUIT taken from the queue is not posted again: the rest of
/// the queue is dispatched and the call returns at once, leaving the child
/// running and its process handle open until the caller's process ends.
/// When program cannot be started, the window gets id 0 twice and the call
/// returns without waiting. Always returns 0.
int RunProcessPumping(HWND notifyWindow, const char* program, std::vector<CString> arguments,
                      const char* workDir, int show, DWORD flags);

/// RunProcessPumping without a notify window.
int RunProcessPumping(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                      DWORD flags);
