// Paths of the shell's special folders (8-bit text in the ANSI code page).
#pragma once

#include <windows.h>
#include <shlobj.h>

#include "AfxString.h"

/// Writes the desktop folder's path into path, a buffer of MAX_PATH
/// characters (an empty text when the shell has no file-system path for it).
/// Returns what releasing the shell's allocator returns (a count of 0 or
/// more), or the failing HRESULT of SHGetMalloc (negative) with path
/// untouched; a null path returns E_POINTER.
int GetDesktopPath(char* path);

/// The path of the special folder csidl (a CSIDL_* value); empty when the id
/// is not known or the folder does not exist (it is not created).
CString GetSpecialFolderPath(int csidl);

/// The path of the common program files folder
/// (CSIDL_PROGRAM_FILES_COMMON), or empty when the shell has none.
CString GetCommonFilesPath();
