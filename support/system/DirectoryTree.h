// Whole directories copied, deleted and made; files deleted by pattern and
// moved, with variants that wait for the file system to catch up.
//
// Text is 8-bit text in the process's ANSI code page; a null text counts as
// an empty one. Failures of single entries are ignored and the walk goes
// on. Paths of MAX_PATH (260) characters or more cannot be searched or
// opened by the system: such entries count as failures of single entries.
//
// Waiting: a wait of s seconds polls at most s x 10 times, 100 ms apart;
// s = 0 does not wait. The waiting variants show the application's wait
// cursor while they run, as do CopyTree and DeleteTree.
//
// Links: a symbolic link or junction met inside a tree is never followed by
// the deleting routines; the link itself is removed and what it points to
// is left alone. The copy follows links as the system opens them.
#pragma once

/// Copies everything inside src into dst, which must exist: files
/// (hidden, system and read-only ones included) overwrite their namesakes,
/// sub-directories are made (each tried for up to 60 s) and filled in turn;
/// a sub-directory that cannot be made is skipped. Returns 1 when src could
/// be searched, 0 when src or dst does not exist or src cannot be searched.
int CopyTree(const char* src, const char* dst);

/// Copies the plain files of srcDir that match mask ("*.txt") to dstDir,
/// skipping hidden, system and directory entries. Both directories must
/// end in a backslash (the texts are concatenated). overwrite 0 keeps files
/// that exist in dstDir. Returns 1.
int CopyFilesByMask(const char* srcDir, const char* dstDir, const char* mask, int overwrite);

/// Deletes the files matching pattern ("C:\dir\*.tmp", or one file name),
/// read-only ones included; sub-directories are left alone, and so is
/// everything outside the pattern's directory. A pattern without a
/// directory part works in the current directory. Returns 0.
int DeleteFiles(const char* pattern);

/// DeleteFiles, then waits for up to seconds while pattern still exists as
/// a name (a pattern with wild cards never does). Returns 0.
int DeleteFilesWait(const char* pattern, unsigned seconds);

/// Deletes dir ("C:\dir" or "C:\dir\") with everything inside it, read-only
/// entries included. Returns the result of removing dir itself: 0 when it
/// was removed, -1 when it could not be (an entry left behind, a file held
/// open, a current directory); 0 when dir cannot be searched (missing),
/// nothing then being removed. A dir that is itself a link or junction is
/// removed as a link; its target is not emptied.
int DeleteTree(const char* dir);

/// DeleteTree, then waits for up to seconds until dir is reported missing.
/// Returns DeleteTree's result.
int DeleteTreeWait(const char* dir, unsigned seconds);

/// Makes every missing directory level of the directory part of path:
/// "C:\x\y\z.txt" and "C:\x\y\" make C:\x and C:\x\y, "C:\x\y" only C:\x
/// (a directory must end in a backslash). For a network path
/// ("\\server\share\x\") the levels start after the server. Returns 1 when
/// every level exists or was made (1 also for a path without a directory
/// part), 0 at the first level that cannot be made (the levels made before
/// stay).
int MakeDirTree(const char* path);

/// Tries MakeDirTree up to seconds x 10 times, 100 ms apart. Returns 1 on
/// the first success, 0 when every try failed or seconds is 0.
int MakeDirTreeWait(const char* path, unsigned seconds);

/// Moves (renames) src to dst with the system's MoveFile (dst must not
/// exist), then waits for up to seconds until dst exists. Returns nonzero
/// when the move succeeded, 0 at once when it failed.
int MoveFileWait(const char* src, const char* dst, unsigned seconds);
