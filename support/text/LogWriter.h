// The process-wide diagnostic log: printf-style messages appended to one text
// file, each optionally preceded by a source label, a numeric code and a
// local time stamp.
//
// State (process-wide, unguarded: callers that log from several threads
// serialise the calls themselves):
// - the log file name, a store of 1001 bytes including the terminating zero,
//   initially "_DEFAULT.LOG" (relative: the current directory);
// - the started flag, initially 0. The first LogWrite or LogPrintf of a
//   process with the flag still 0 deletes the named file (so every run
//   starts a fresh default log) and sets the flag; SetLogFileName sets it
//   too, so a file chosen by the caller is never emptied here.
//
// The file is opened in text mode for appending ("\n" becomes CR LF) and
// closed again around every message; nothing is held open between calls.
// The library adds no line end: the caller's format carries its own "\n".
//
// Time stamp: "%2.2d/%2.2d/%2.2d %2.2d.%2.2d.%2.2d:" with the local time's
// year modulo 100, month 1-12, day, hour 0-23, minute and second: 5 March
// 2026 at 07:08:09 gives "26/03/05 07.08.09:", followed directly by the
// message.
#pragma once

#if defined(__GNUC__)
#define LOG_PRINTF_FORMAT(formatIndex, firstArg) __attribute__((format(gnu_printf, formatIndex, firstArg)))
#else
#define LOG_PRINTF_FORMAT(formatIndex, firstArg)
#endif

/// Appends one message: the source (when not null and not empty), "(code)"
/// for a code above 0, ":" when either was written, the time stamp when the
/// format begins "S:" or "E:", then the formatted message:
///     LogWrite("SOLVER", 12, "E: no convergence after %d steps\n", 50)
///     -> "SOLVER(12):26/03/05 07.08.09:E: no convergence after 50 steps"
/// Returns the number of characters printed by this call (a "\n" counts one,
/// before its CR LF), 0 when the file cannot be opened (the message is then
/// dropped). Write errors after the open are not detected, and a failing
/// printf's negative result is added to the count as it is.
/// A format beginning "S:" is a fatal stop: after writing (or failing to
/// open the file) all C runtime streams are closed and the process ends with
/// exit status 1; the call does not return. "E:" only adds the stamp;
/// "s:" (lower case) is an ordinary message.
/// A null format writes no message text (the source, code and ":" still are)
/// and is never a stop.
int LogWrite(const char* source, int code, const char* format, ...) LOG_PRINTF_FORMAT(3, 4);

/// Appends the time stamp and the formatted message, always, whatever the
/// format begins with; no source, code or ":", and never a stop (even for
/// "S:"). Returns the number of characters printed, or 0 when the file
/// cannot be opened. A null format writes the time stamp alone.
int LogPrintf(const char* format, ...) LOG_PRINTF_FORMAT(1, 2);

/// The address of the log file name store (1001 bytes). Callers may read it
/// and write a zero-terminated path of at most 1000 bytes into it.
char* GetLogFileName();

/// Sets the started flag, then copies path into the name store. Later
/// messages are appended to that file; neither it nor the old file is
/// emptied. A null path or one of 1001 bytes or more does not fit: the store
/// is emptied and the runtime's invalid-parameter condition is raised (see
/// support/InvalidParameter.h): without a host handler the process ends;
/// with one, the call returns and later messages are dropped, LogWrite and
/// LogPrintf returning 0, until a valid name is set. The store is never
/// overrun.
void SetLogFileName(const char* path);

/// Deletes the file named in the store; returns the runtime's remove result
/// (0 on success, -1 otherwise). The started flag is not touched.
int DeleteLogFile();
