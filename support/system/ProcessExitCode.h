// Exit codes of other processes, and ending a process that still runs.
//
// Process ids are the system's ids held in an int. An exit code is returned
// as the int with the same 32 bits (an exception status 0xC0000005 reads as
// a negative number). STILL_ACTIVE (259) means the process is running.
// A process that has ended stays readable as long as any handle to it is
// open (for example the one LaunchProcessInfo hands out).
#pragma once

#include <windows.h>

/// The value returned when a process cannot be opened or its exit code
/// cannot be read: one more than STILL_ACTIVE, so that a caller can tell an
/// unknown code from a running process.
constexpr int ExitCodeUnknown = 260;

/// The exit code of the process *processId, STILL_ACTIVE while it runs.
/// ExitCodeUnknown for a null pointer or an id that cannot be opened (an
/// ended and released process, 0, an id never used). When the code cannot
/// be read the process is terminated (exit code 0) and ExitCodeUnknown is
/// returned: deliberately forceful.
int GetProcessExitCodeById(const int* processId);

/// The exit code of the process behind process, STILL_ACTIVE while it runs.
/// When it cannot be read (a null or invalid handle, one without query
/// access) the process is terminated when the handle allows it and
/// ExitCodeUnknown is returned.
int GetProcessExitCodeByHandle(HANDLE process);

/// As GetProcessExitCodeById, but only for a process whose executable has
/// the file name (name and extension, any case, directory ignored) of
/// executable: "C:\x\prog.exe" matches a running "D:\y\PROG.EXE". Returns 0
/// when the names differ or the process's executable cannot be found, and
/// ExitCodeUnknown for a null pointer or a process that cannot be opened.
/// A null executable counts as "". An executable whose directory, name or
/// extension exceeds 255 characters raises the invalid-parameter condition
/// (support/InvalidParameter.h: without a host handler the process ends;
/// with one, its file name compares as "").
int GetProcessExitCodeByName(const int* processId, const char* executable);

/// Returns *code, or 0 for a null code; terminates the process behind
/// process with exit code 0 when process is not null (the handle must allow
/// PROCESS_TERMINATE; it is not closed).
int TerminateProcessHandle(HANDLE process, const int* code = nullptr);

/// Ends the process processId if it still runs. Returns 0 for id 0 and
/// after terminating the process (exit code 0). Otherwise returns the code
/// read as above, without terminating anything: the exit code of an ended
/// process, ExitCodeUnknown for one that cannot be opened, and, when
/// executable is given (not null, not ""), 0 for a process whose executable
/// has another file name. Returns STILL_ACTIVE when the running process
/// cannot be opened for termination.
int EndProcessIfRunning(int processId, const char* executable = nullptr);
