// The system's text for an error code, as the process routines fetch it
// (their callers get no text: the routines format it and let it go).
// Internal to the process routines; not part of System.h.
#pragma once

#include <windows.h>

#include "AfxString.h"

namespace ProcessDetail {

/// The system message for code, "" when the system has none.
inline CString SystemErrorText(DWORD code)
{
    char* buffer = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code,
        MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&buffer), 0, nullptr);
    CString text;
    if (buffer) {
        text = CString(buffer, static_cast<int>(length));
        LocalFree(buffer);
    }
    return text;
}

} // namespace ProcessDetail
