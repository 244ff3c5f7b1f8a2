// Starting another program as a child process: its command line, working
// directory, window show state, creation flags, environment and the file that
// receives its standard error.
//
// Text is 8-bit text in the process's ANSI code page; a null text counts as
// an empty one. Every launch shows the application's wait cursor while it
// runs and ends it on every path out.
//
// Command line of LaunchProcess, LaunchProcessInfo and LaunchProcessEnv:
// - program is trimmed. When a file of that name exists (a relative name:
//   in the current directory) it is the application name, and the command
//   line is "" for an empty argument list (Wine hands such a child its quoted
//   application name instead). Otherwise the system searches for the program
//   in its usual order: the launching program's folder, the current folder,
//   the system folders, PATH.
// - With arguments, or when the program was not found as a file, the
//   command line starts with the program in double quotes.
// - Each argument is trimmed; an empty one is dropped. An argument is a
//   path when ":\" or "\\" occurs at index 1 or later ("C:\a", "x\\y"; not
//   "\\server\share", whose "\\" is at index 0). A path argument holding a
//   blank and no double quote is enclosed in double quotes; a path argument
//   longer than 260 characters that names an existing file is passed as it
//   is, in its long form. Every other argument is passed unchanged: quotes,
//   blanks and trailing backslashes are not escaped.
//       "C:\a b\p.exe", {" C:\My Files\a.txt ", "", "-v x"}
//       -> "C:\a b\p.exe" "C:\My Files\a.txt" -v x
// - Flags 0 let the launcher choose: CREATE_DEFAULT_ERROR_MODE, plus
//   BELOW_NORMAL_PRIORITY_CLASS on a one-processor machine. Other flags are
//   used with CREATE_DEFAULT_ERROR_MODE added.
// - workDir is trimmed, "" becomes "." (the current directory), and trailing
//   backslashes are removed ("C:\temp\" -> "C:\temp"; "C:\" -> "C:", the
//   drive's current directory). A folder that does not exist makes the
//   launch fail.
// - errorFile, when not empty, is created (or truncated) before the child
//   starts and receives the child's standard error only; the child's
//   standard input and output are then null. When the file cannot be created
//   the child still starts, with null standard handles.
// - show is a SW_* value for the child's first window.
// Every launch lets the child inherit the caller's inheritable handles.
#pragma once

#include <windows.h>

#include <vector>

#include "AfxString.h"

/// The creation flags a launch hands to CreateProcessA for the caller's
/// flags, as described above: 0 gives CREATE_DEFAULT_ERROR_MODE
/// (0x04000000), with BELOW_NORMAL_PRIORITY_CLASS (0x04004000) when
/// GetSystemInfo counts fewer than 2 processors; other flags come back with
/// CREATE_DEFAULT_ERROR_MODE added. (Wine reports every child's priority
/// class as normal, so there the choice shows only here.)
DWORD LaunchCreationFlags(DWORD flags);

/// Starts program; returns the child's process id, or 0 when it could not be
/// started. Both handles of the child are closed.
int LaunchProcess(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                  DWORD flags, const char* errorFile);

/// As LaunchProcess, and environment is an ANSI environment block
/// ("A=1\0B=2\0\0"; null or "" inherits the caller's). On success *info holds
/// the child's ids and its open process handle, which the caller closes
/// (CloseHandle or CloseProcessInfo); its thread handle is closed and null.
/// On failure *info is all zero and 0 is returned. A null info starts
/// nothing and returns 0.
int LaunchProcessInfo(PROCESS_INFORMATION* info, const char* program, std::vector<CString> arguments,
                      const char* workDir, int show, DWORD flags, const char* errorFile,
                      const char* environment);

/// As LaunchProcessInfo on a record of its own; returns the process id. The
/// child's process handle is never closed: it stays open until the calling
/// process ends.
int LaunchProcessEnv(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                     DWORD flags, const char* errorFile, const char* environment);

/// The simple launcher: returns the child's process handle, which the caller
/// owns and closes, or null when the child could not be started.
/// The command line is empty when program names an existing file and
/// arguments is null; otherwise it is program as given, in double quotes,
/// followed by a blank and arguments unchanged (no path rules, no quoting),
/// the whole trimmed. Trailing backslashes are removed from workDir (not
/// trimmed) and "" becomes "."; the flags are chosen as for flags 0 above;
/// errorFile as above; the environment is inherited.
HANDLE LaunchProcessHandle(const char* program, const char* arguments, const char* workDir, WORD show,
                           const char* errorFile);

/// Opens file with the shell's "open" verb (a program is started with
/// parameters as its command-line arguments; a document with the program
/// registered for its type), shown normally, owned by owner (may be null).
/// Returns TRUE when the shell reports success. The shell may show its own
/// dialog for a document type it does not know.
BOOL ShellOpen(HWND owner, const char* file, const char* parameters);
