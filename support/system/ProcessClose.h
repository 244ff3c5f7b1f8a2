// Asking a process to close, and forcing it when it does not.
//
// The close request is WM_CLOSE posted to the first top-level window of the
// process that the system's window enumeration meets; a process with several
// top-level windows gets one request only, and one without windows none.
// A process still running 5000 ms after the request is terminated with
// exit code 0. The wait cursor shows meanwhile and is ended on every path.
#pragma once

#include <windows.h>

/// Requests the close of process *processId, waits up to 5000 ms, then
/// terminates it if it still runs. Returns the exit code read before the
/// request (STILL_ACTIVE, 259, for a running process; the exit code of one
/// that had ended), or 0 for a null pointer or an id that cannot be opened
/// (with synchronise, query, read and terminate access).
int CloseProcessById(const int* processId);

/// As CloseProcessById for the process of a record filled by
/// LaunchProcessInfo; then closes the record's thread and process handles
/// (those not null) and sets both to null. Returns 0, touching nothing, for
/// a null record or a record whose process handle is null.
int CloseProcessInfo(PROCESS_INFORMATION* info);
