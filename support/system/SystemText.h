// Small text helpers shared by the system services. Internal to
// support/system; not part of System.h.
#pragma once

#include <windows.h>

#include "AfxString.h"

namespace SystemText {

/// The text, or "" for a null pointer.
inline CString OrEmpty(const char* text) { return CString(text ? text : ""); }

/// The text (null counts as "") without its trailing backslashes.
inline CString WithoutTrailingBackslashes(const char* text)
{
    CString stripped = OrEmpty(text);
    stripped.TrimRight("\\");
    return stripped;
}

/// The system's message for an error code as the system ends it (CR LF), or
/// "" when it has none. Fetched with FormatMessageA, freed with LocalFree.
CString ErrorText(DWORD code);

} // namespace SystemText
