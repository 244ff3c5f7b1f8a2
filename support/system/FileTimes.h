// The three time stamps of a file, in local time.
#pragma once

#include <ctime>

/// Reads the creation, last-access and last-write times of fileName (8-bit
/// path in the ANSI code page) as 64-bit time values: seconds since
/// 1970-01-01 of the local date and time the stamp shows in the current time
/// zone (the local date converted back with the runtime's daylight-saving
/// rule). A stamp before the year 1900 gives 0; a local date the runtime
/// cannot express (msvcrt's before 1970) gives -1, as CTime holds it.
/// The three values are set to 0 first. Returns 1 when the file could be
/// opened for reading, else 0 (no such file, a null name, or a file that
/// another program holds open without sharing).
int GetFileTimes(const char* fileName, __time64_t& creation, __time64_t& lastAccess, __time64_t& lastWrite);
