#include "support/system/DirectoryTree.h"

#include "support/system/Paths.h"

#include "AfxFileFind.h"
#include "AfxWinApp.h"

#include <windows.h>

#include <direct.h>
#include <io.h>

#include <cerrno>
#include <cstdio>

namespace {

constexpr unsigned kPollMilliseconds = 100;

CString Text(const char* text)
{
    return CString(text ? text : "");
}

CString WithoutTrailingBackslashes(const char* text)
{
    CString stripped = Text(text);
    stripped.TrimRight("\\");
    return stripped;
}

bool Exists(const char* path)
{
    return _access(path, 0) == 0;
}

// Polls until done() holds, at most seconds x 10 times, sleeping between.
template <typename Done>
void PollUntil(unsigned seconds, Done done)
{
    const unsigned long long polls = static_cast<unsigned long long>(seconds) * 10;
    for (unsigned long long i = 0; i < polls && !done(); ++i)
        Sleep(kPollMilliseconds);
}

// A link or junction: removed as itself, never entered or changed through.
bool IsLink(const CFileFind& found)
{
    return found.MatchesMask(FILE_ATTRIBUTE_REPARSE_POINT) != FALSE;
}

// Clears the read-only bit so that the entry can be removed.
void MakeWritable(const char* path)
{
    const DWORD attributes = GetFileAttributesA(path);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY))
        SetFileAttributesA(path, attributes ^ FILE_ATTRIBUTE_READONLY);
}

int CopyTreeContents(const CString& src, const CString& dst)
{
    if (!Exists(src) || !Exists(dst))
        return 0;
    const CString from = WithoutTrailingBackslashes(src);
    const CString to = WithoutTrailingBackslashes(dst);
    CFileFind finder;
    BOOL more = finder.FindFile(from + "\\*.*");
    if (!more)
        return 0;
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots())
            continue;
        const CString name = finder.GetFileName();
        const CString source = from + "\\" + name;
        const CString target = to + "\\" + name;
        if (finder.IsDirectory()) {
            const CString targetDir = target + "\\";
            if (MakeDirTreeWait(targetDir, 60))
                CopyTreeContents(source, targetDir);
        } else {
            CopyFileA(source, target, FALSE);
        }
    }
    return 1;
}

int DeleteTreeContents(const CString& dir)
{
    const CString stripped = WithoutTrailingBackslashes(dir);
    const DWORD attributes = GetFileAttributesA(stripped);
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return _rmdir(stripped);

    CFileFind finder;
    BOOL more = finder.FindFile(stripped + "\\*.*");
    if (!more)
        return 0;
    CString base = stripped;
    base.Trim();
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots() || base.IsEmpty())
            continue;
        const CString path = base + "\\" + finder.GetFileName();
        if (IsLink(finder)) {
            if (finder.IsDirectory())
                _rmdir(path);
            else
                std::remove(path);
            continue;
        }
        if (!Exists(path))
            continue;
        MakeWritable(path);
        if (finder.IsDirectory())
            DeleteTreeContents(path);
        else
            std::remove(path);
    }
    finder.Close();
    return _rmdir(dir);
}

} // namespace

int CopyTree(const char* src, const char* dst)
{
    CWaitCursor wait;
    return CopyTreeContents(Text(src), Text(dst));
}

int CopyFilesByMask(const char* srcDir, const char* dstDir, const char* mask, int overwrite)
{
    const CString from = Text(srcDir), to = Text(dstDir);
    CFileFind finder;
    BOOL more = finder.FindFile(from + Text(mask));
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots() || finder.MatchesMask(FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY))
            continue;
        const CString name = finder.GetFileName();
        CopyFileA(from + name, to + name, overwrite ? FALSE : TRUE);
    }
    return 1;
}

int DeleteFiles(const char* pattern)
{
    CString dirPart, namePart;
    SplitDirAndName(pattern, dirPart, namePart);
    dirPart = WithoutTrailingBackslashes(dirPart);
    // Without a directory part the names stay relative: a lone backslash
    // would name the drive's root instead.
    if (!dirPart.IsEmpty())
        dirPart += '\\';

    CFileFind finder;
    BOOL more = finder.FindFile(Text(pattern));
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots() || finder.IsDirectory())
            continue;
        const CString path = dirPart + finder.GetFileName();
        if (IsLink(finder)) {
            std::remove(path);
            continue;
        }
        if (Exists(path)) {
            MakeWritable(path);
            std::remove(path);
        }
    }
    return 0;
}

int DeleteFilesWait(const char* pattern, unsigned seconds)
{
    CWaitCursor wait;
    const int result = DeleteFiles(pattern);
    const CString name = Text(pattern);
    PollUntil(seconds, [&] { return !Exists(name); });
    return result;
}

int DeleteTree(const char* dir)
{
    CWaitCursor wait;
    return DeleteTreeContents(Text(dir));
}

int DeleteTreeWait(const char* dir, unsigned seconds)
{
    CWaitCursor wait;
    const int result = DeleteTreeContents(Text(dir));
    const CString name = Text(dir);
    PollUntil(seconds, [&] { return _access(name, 0) != 0 && errno == ENOENT; });
    return result;
}

int MakeDirTree(const char* path)
{
    CString drive, dir, name, ext;
    SplitPath(path, drive, dir, name, ext);
    int start = 0;
    // A network path's levels start at its share: the server is no directory.
    if (dir.GetLength() > 2 && dir.Left(2) == "\\\\") {
        const int afterServer = dir.Find('\\', 2);
        if (afterServer < 0)
            return 1;
        start = afterServer + 1;
    }
    for (int slash = dir.Find('\\', start); slash >= 0; slash = dir.Find('\\', slash + 1)) {
        const CString level = drive + dir.Left(slash + 1);
        if (!Exists(level) && _mkdir(level) != 0)
            return 0;
    }
    return 1;
}

int MakeDirTreeWait(const char* path, unsigned seconds)
{
    CWaitCursor wait;
    const unsigned long long tries = static_cast<unsigned long long>(seconds) * 10;
    for (unsigned long long i = 0; i < tries; ++i) {
        if (MakeDirTree(path))
            return 1;
        Sleep(kPollMilliseconds);
    }
    return 0;
}

int MoveFileWait(const char* src, const char* dst, unsigned seconds)
{
    CWaitCursor wait;
    const CString target = Text(dst);
    const BOOL moved = MoveFileA(Text(src), target);
    if (!moved)
        return 0;
    PollUntil(seconds, [&] { return Exists(target); });
    return moved;
}
