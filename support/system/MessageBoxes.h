// Message boxes with formatted text or with numbered texts from a message
// file. Every box goes through the application object (AfxGetApp()'s
// DoMessageBox), so a host can route or record them; without one the plain
// box is shown with no caption.
//
// The message file is a text file of entries "id|text", one a line: the
// decimal number before the first "|" is the id (read as atoi reads it, so a
// line "|text" or "abc|text" has id 0), everything after it is the text, in
// which each two-character sequence \n stands for a line break. Lines without
// a bar are ignored, the first line with a matching id wins, and lines may be
// of any length. The file's path is process-wide, unguarded state: set it
// once at start-up with SetMessageFile.
#pragma once

#include <windows.h>

#include "AfxString.h"

/// Formats the values with the printf-style format into at most 4096
/// characters and shows the text with AfxMessageBox(text, type, helpId).
/// Returns the button chosen (IDOK, IDYES, ...; 0 when no box was shown).
/// A text longer than 4096 characters, a null format or a format the runtime
/// rejects raises the runtime's invalid-parameter condition (see
/// support/InvalidParameter.h): with a host handler that returns, the box
/// shows an empty text; without one the process ends.
int MessageBoxF(const char* format, UINT type, int helpId, ...);

/// Shows the message file's text for id (empty when the file cannot be read
/// or holds no such id) with the application object's DoMessageBox, or the
/// plain box when there is none. Returns the button chosen.
int MessageBoxById(UINT id, UINT type, int helpId);

/// The message file's text for id, with \n sequences turned into line
/// breaks; empty when no file was set, the file cannot be opened, no line
/// has that id, or the file cannot be read.
CString LoadMessageText(int id);

/// Names the message file: the directory (a backslash is appended unless it
/// ends in one, so an empty directory gives "\", the current drive's root)
/// and the file name. Null texts count as empty.
void SetMessageFile(const char* directory, const char* fileName);
