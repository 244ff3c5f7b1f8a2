// Finding running processes by their executable, and the process's own
// WOW64 state.
//
// The enumeration sees the first 1024 process ids the system lists. A
// process is known by the path of its first module (its executable); a
// process that cannot be opened for query and read access, or whose modules
// cannot be listed, has the empty path.
#pragma once

#include <windows.h>

/// The number of processes whose executable has the file name of
/// executable ("C:\x\prog.exe" counts a running "D:\y\PROG.EXE"; the
/// directory, and whether the path exists, do not matter; any case).
/// Both file names are trimmed. A text naming an existing directory is
/// compared whole. A text whose file name is empty ("", "C:\x\") counts the
/// processes with the empty path; a null text counts nothing and returns 0.
int CountProcessesByFileName(const char* executable);

/// Terminates (exit code 0) every process whose executable's full path is
/// path, compared as text in any case: no trimming, no path resolution, so
/// "C:\x\prog.exe" does not end "D:\y\PROG.EXE" nor "C:\x\.\prog.exe".
/// A null or empty path ends nothing. Always returns 0.
int KillProcessesByPath(const char* path);

/// TRUE when the calling process is a 32-bit process on 64-bit Windows;
/// FALSE otherwise, and on systems without the query.
BOOL IsWow64();
