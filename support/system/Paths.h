// Paths taken apart and put together: drive, directory, name and extension;
// a directory joined with a name; absolute, relative and short (8.3) forms.
//
// Text is 8-bit text in the process's ANSI code page. A null text counts as
// an empty one. Directory texts end in a backslash where a name follows
// them ("C:\dir\"); a directory text without one names its parent's entry.
// Fixed buffers are MAX_PATH (260) characters including the terminator:
// where a routine below meets a path that does not fit one, it says what it
// returns.
#pragma once

#include "AfxString.h"

/// Splits path into drive ("C:", at most 2 characters), directory (with its
/// leading and trailing backslashes, "\dir\"), name ("file") and extension
/// (with its dot, ".ext"), as the runtime's _splitpath does; a component
/// that is absent is empty. The trimmed texts ".", ".\", ".." and "..\"
/// (any case) give only a directory, ".\" or "..\".
/// Each output is at most 255 characters (the drive 2): a path with a longer
/// directory, name or extension leaves all four outputs empty and raises the
/// runtime's invalid-parameter condition (support/InvalidParameter.h).
void SplitPath(const char* path, CString& drive, CString& dir, CString& name, CString& ext);

/// Splits path into its directory part (drive and directory, "C:\dir\") and
/// its file-name part (name and extension, "file.ext"), both trimmed; returns
/// 1 when either is non-empty, else 0.
/// A path without wild cards that names an existing directory is not split:
/// dirPart becomes that path, trimmed, with exactly one trailing backslash
/// (empty stays empty), namePart keeps what it held, and the result is 0.
/// (A pattern such as "C:\dir\*.*" is always split, whatever it matches.)
int SplitDirAndName(const char* path, CString& dirPart, CString& namePart);

/// The directory ("C:\dir", a backslash is added when missing) followed by
/// the name. A bare name ("f.txt") is appended as it is; a name holding a
/// backslash or colon is appended by the shell's PathAppend rules ("sub\f",
/// "..\f" and "\f" resolve against the directory; "D:\f" replaces it).
/// Returns an empty text for an empty name, for a directory that does not
/// fit in MAX_PATH characters with its backslash (259 characters or more
/// without one, 260 or more ending in one), and when the shell's result
/// would not fit in MAX_PATH characters.
CString JoinPath(const char* name, const char* dir);

/// The full path of path against the current directory ("." and ".."
/// resolved, "/" turned into "\"), or the path unchanged when it has 260
/// characters or more or cannot be made full. An empty path gives the
/// current directory.
CString MakeAbsolutePath(const char* path);

/// The full path of path (trimmed) against base (trimmed; empty: the current
/// directory). The base is entered as the current directory for the call and
/// the previous current directory is restored before returning; a root base
/// "C:\" is entered as "C:", that is the drive's current directory, and a
/// base that cannot be entered leaves the current directory in effect.
/// A path of 260 characters or more is resolved through its short form; when
/// it has none that fits, or when no full path can be made, the result is
/// path as given (untrimmed). Not safe while another thread relies on the
/// current directory.
CString MakeAbsolutePathFrom(const char* path, const char* base);

/// path relative to the directory dir (a backslash is added to dir when
/// missing), by the shell's PathRelativePathTo: "C:\a\b\f.txt" against
/// "C:\a\c" gives "..\b\f.txt", against "C:\a" ".\b\f.txt" (Wine's shell
/// gives "\b\f.txt"). A relative path, a path on another drive, and a path
/// or directory of 260 characters or more give path unchanged.
CString MakeRelativePath(const char* path, const char* dir);

/// path relative to base by comparing the texts, case-sensitively, without
/// looking at the file system. Only a path (trimmed) that begins with the
/// same drive letter and colon as base is made relative; any other path is
/// returned trimmed. The common part ends at the last backslash the two
/// share; every backslash of base after it adds "..\", and ".\" stands when
/// there is none:
///     "C:\a\x\f.txt" against "C:\a\b\" gives "..\x\f.txt",
///     against "C:\a\b" (no last backslash) ".\x\f.txt".
/// An empty path gives an empty text.
CString MakeRelativePathSimple(const char* path, const char* base);

/// The short (8.3) form of an existing path ("C:\PROGRA~1\f.txt"); a path
/// that does not exist is returned unchanged with an empty error text.
/// When the system cannot give the short form, the path is returned
/// unchanged and, when err is not null, *err receives the system's message
/// followed by "[", the path and "]". err is emptied otherwise.
CString GetShortPath(const char* path, CString* err = nullptr);
