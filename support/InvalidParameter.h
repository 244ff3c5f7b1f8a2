// The C runtime's invalid-parameter condition, raised by the support library
// where its bounded copies, splits and formats meet input that does not fit
// (an over-long log file name, path component, padded text or message).
//
// It behaves as the runtime's own bounded routines (strcpy_s, _splitpath_s,
// memcpy_s, vsprintf_s) do:
// - when the host has installed a handler with _set_invalid_parameter_handler,
//   that handler is called (with null texts, line 0 and a zero reserved
//   value, as release builds of the runtime pass them) and, if it returns,
//   the failing call returns its empty result;
// - otherwise the process ends at once with exit status
//   STATUS_INVALID_CRUNTIME_PARAMETER (0xC0000417), as the runtime's default
//   handling ends it; nothing is flushed and no message is shown.
// A host built with MinGW-w64 has a handler from its start-up code that
// returns, so there the failing call returns its empty result; a host built
// with Visual C++ has none unless it installs one.
// The library's own buffers are never overrun on either path.
#pragma once

/// Exit status of a process ended by the invalid-parameter condition.
constexpr unsigned long InvalidParameterExitCode = 0xC0000417UL;

/// Raises the condition: calls the host's handler and returns, or ends the
/// process when no handler is installed.
void RaiseInvalidParameter();
