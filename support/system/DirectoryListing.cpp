#include "support/system/DirectoryListing.h"

#include "support/system/Paths.h"
#include "support/system/SystemText.h"

#include "AfxFileFind.h"

#include <windows.h>

#include <io.h>

#include <cctype>

namespace {

CString ExtensionOf(const char* path)
{
    CString drive, dir, name, ext;
    SplitPath(path, drive, dir, name, ext);
    return ext;
}

// digits plus one, as decimal text of at least width digits (the number
// may be longer than any integer type).
CString Incremented(const CString& digits, int width)
{
    std::string number(digits.GetString());
    int i = static_cast<int>(number.size()) - 1;
    for (; i >= 0 && number[static_cast<size_t>(i)] == '9'; --i)
        number[static_cast<size_t>(i)] = '0';
    if (i >= 0)
        ++number[static_cast<size_t>(i)];
    else
        number.insert(number.begin(), '1');
    const size_t firstSignificant = number.find_first_not_of('0');
    number.erase(0, firstSignificant == std::string::npos ? number.size() - 1 : firstSignificant);
    if (static_cast<int>(number.size()) < width)
        number.insert(0, static_cast<size_t>(width) - number.size(), '0');
    return CString(number);
}

// base with the run of digits at its end raised by one ("1" appended when
// there is none); keepWidth keeps the run's length with leading zeros.
CString NextNumbered(const CString& base, bool keepWidth)
{
    int runStart = base.GetLength();
    while (runStart > 0 && std::isdigit(static_cast<unsigned char>(base[runStart - 1])))
        --runStart;
    const CString run = base.Mid(runStart);
    return base.Left(runStart) + Incremented(run.IsEmpty() ? CString("0") : run, keepWidth ? run.GetLength() : 0);
}

// A file's base and extension split at its last dot after the first
// character.
CString NextFileCandidate(const CString& candidate)
{
    const int dot = candidate.ReverseFind('.');
    if (dot < 1)
        return NextNumbered(candidate, false);
    return NextNumbered(candidate.Left(dot), false) + candidate.Mid(dot);
}

// The first candidate, from name on, that no entry of used equals.
template <typename Next>
CString FirstUnused(const CString& name, const std::vector<CString>& used, Next next)
{
    CString candidate = name;
    for (size_t i = 0; i < used.size(); ++i) {
        if (used[i].CompareNoCase(candidate) == 0) {
            candidate = next(candidate);
            i = static_cast<size_t>(-1); // the walk restarts at the first entry
        }
    }
    return candidate;
}

} // namespace

void ListFiles(const char* pattern, std::vector<CString>& list)
{
    const CString wanted = ExtensionOf(pattern);
    const bool checkExtension = !wanted.IsEmpty() && wanted.Find('*') < 0;
    CFileFind finder;
    BOOL more = finder.FindFile(SystemText::OrEmpty(pattern));
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots() || finder.MatchesMask(FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_DIRECTORY))
            continue;
        const CString name = finder.GetFileName();
        if (checkExtension && ExtensionOf(name).CompareNoCase(wanted) != 0)
            continue;
        list.push_back(name);
    }
}

void ListSubdirs(const char* pattern, std::vector<CString>& list)
{
    CString drive, dir, name, ext;
    SplitPath(pattern, drive, dir, name, ext);
    const CString search = name.Find('*') < 0 && ext.Find('*') < 0 ? drive + dir + "*" : SystemText::OrEmpty(pattern);
    CFileFind finder;
    BOOL more = finder.FindFile(search);
    while (more) {
        more = finder.FindNextFile();
        if (finder.IsDots() || finder.MatchesMask(FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM))
            continue;
        if (finder.IsDirectory())
            list.push_back(finder.GetFileName());
    }
}

void ListFilesRecursive(const char* dir, std::vector<CString>& list)
{
    list.clear(); // on every call, the recursive ones too: intended
    const CString stripped = SystemText::WithoutTrailingBackslashes(dir);
    if (stripped.IsEmpty())
        return;
    CFileFind finder;
    BOOL more = finder.FindFile(stripped + "\\*.*");
    while (more) {
        more = finder.FindNextFile();
        const CString path = finder.GetFilePath();
        const CString name = finder.GetFileName();
        const DWORD attributes = GetFileAttributesA(path);
        const bool isDirectory = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
        if (isDirectory && name != "." && name != "..")
            ListFilesRecursive(path, list);
        else
            list.push_back(path);
    }
}

namespace {

// The name itself while nothing of that name exists in dir; otherwise the
// first candidate that `list` (files or subdirectories with the name's
// extension) does not hold.
template <class List, class Next>
CString NextFreeName(const char* dir, const char* name, List list, Next next)
{
    const CString folder = SystemText::WithoutTrailingBackslashes(dir);
    const CString wanted = SystemText::OrEmpty(name);
    const CString path = folder + "\\" + wanted;
    if (_access(path, 0) != 0)
        return wanted;
    std::vector<CString> used;
    list(folder + "\\*" + ExtensionOf(path), used);
    return FirstUnused(wanted, used, next);
}

} // namespace

CString NextFreeFileName(const char* dir, const char* name)
{
    return NextFreeName(dir, name, ListFiles, NextFileCandidate);
}

CString NextFreeDirName(const char* dir, const char* name)
{
    return NextFreeName(dir, name, ListSubdirs, [](const CString& candidate) { return NextNumbered(candidate, true); });
}
