// Lists of the files and sub-directories in a directory, and the next
// unused numbered name in one.
//
// Text is 8-bit text in the process's ANSI code page; a null text counts as
// an empty one. Hidden and system entries are left out of the pattern
// lists, and so are not seen by the next-free-name routines either.
#pragma once

#include "AfxString.h"

#include <vector>

/// Appends to list the names ("page.htm", no path) of the plain files that
/// match pattern ("C:\dir\*.htm"). When the pattern's extension holds no
/// '*', a file is listed only when its extension equals the pattern's
/// (case-insensitively): "*.htm" does not list page.html, which the
/// system's short-name matching would return, and an extension with '?'
/// matches only itself. The list is not emptied first.
void ListFiles(const char* pattern, std::vector<CString>& list);

/// Appends to list the names of the sub-directories that match pattern
/// ("C:\dir\r*"). A pattern whose name and extension hold no '*' lists all
/// sub-directories of its directory part: "C:\dir\" lists those of C:\dir,
/// "C:\dir" those of C:\. The list is not emptied first.
void ListSubdirs(const char* pattern, std::vector<CString>& list);

/// Walks dir ("C:\dir" or "C:\dir\") and its sub-directories, collecting full
/// paths. The list is emptied on entry to every directory walked, so what it
/// holds at the end is only what was gathered after the walk last entered a
/// sub-directory (the files of the last sub-directory walked, then the rest
/// of its parents' entries); this is intended. The entries "." and ".." are
/// collected too, as "C:\dir\." and "C:\dir\..". An empty dir gives an empty
/// list.
void ListFilesRecursive(const char* dir, std::vector<CString>& list);

/// A file name not yet used in dir: name itself when no such file exists,
/// else name with the number at the end of its base raised by one until no
/// listed file bears it ("data.txt" -> "data1.txt", "data2.txt", ...;
/// "file007.txt" -> "file8.txt": leading zeros are dropped; "12.txt" ->
/// "13.txt"). A leading dot belongs to the base (".cfg" -> ".cfg1").
CString NextFreeFileName(const char* dir, const char* name);

/// As NextFreeFileName for sub-directories, the whole name being the base
/// and the width of its number kept ("run007" -> "run008", "run999" ->
/// "run1000", "run" -> "run1").
CString NextFreeDirName(const char* dir, const char* name);
