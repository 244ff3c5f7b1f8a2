// Clipboard text in and out, in the ANSI code page. Each call opens and
// closes the clipboard; call from a thread that may own it.
#pragma once

#include <windows.h>

#include "AfxString.h"

/// The clipboard's CF_TEXT text (the system converts other text formats to
/// it); empty when the clipboard holds no text or cannot be opened (another
/// program holds it open). A text without a terminator is cut at the end of
/// its memory block. owner may be null.
CString GetClipboardText(HWND owner);

/// Empties the clipboard and puts text on it as CF_TEXT and, converted to
/// the OEM code page, as CF_OEMTEXT; when alsoUnicode is non-zero also as
/// CF_UNICODETEXT, converted from the ANSI code page. A null text puts an
/// empty text. Returns 1 when done (a format whose memory cannot be
/// allocated is left out), 0 when the clipboard cannot be opened (another
/// program holds it open).
int SetClipboardText(HWND owner, const char* text, UINT alsoUnicode);
