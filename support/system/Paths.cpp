#include "support/system/Paths.h"

#include "support/InvalidParameter.h"

#include <windows.h>
#include <shlwapi.h>

#include <direct.h>
#include <io.h>
#include <stdlib.h>

#include <cstring>
#include <vector>

namespace {

// Longest directory, name or extension a split may give.
constexpr int kMaxComponent = 255;

const char* OrEmpty(const char* text)
{
    return text ? text : "";
}

CString Trimmed(const char* text)
{
    CString copy(OrEmpty(text));
    copy.Trim();
    return copy;
}

bool HasWildCards(const char* text)
{
    return std::strpbrk(text, "*?") != nullptr;
}

// dir copied into a MAX_PATH buffer with one trailing backslash; false when
// it does not fit.
bool CopyWithBackslash(const char* dir, char (&buffer)[MAX_PATH])
{
    // The shell's PathAddBackslash does not check that the backslash fits.
    const size_t length = std::strlen(dir);
    const bool hasBackslash = length > 0 && dir[length - 1] == '\\';
    if (length + (hasBackslash ? 1 : 2) > MAX_PATH)
        return false;
    std::memcpy(buffer, dir, length + 1);
    return PathAddBackslashA(buffer) != nullptr;
}

CString WithoutTrailingBackslashes(CString text)
{
    text.TrimRight("\\");
    return text;
}

// The system's text for an error code, as the system ends it (CR LF).
CString SystemErrorText(DWORD code)
{
    char* message = nullptr;
    const DWORD length = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code,
                                        MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&message),
                                        0, nullptr);
    CString text = length > 0 && message ? CString(message) : CString();
    if (message)
        LocalFree(message);
    return text;
}

} // namespace

void SplitPath(const char* path, CString& drive, CString& dir, CString& name, CString& ext)
{
    drive.Empty();
    dir.Empty();
    name.Empty();
    ext.Empty();
    path = OrEmpty(path);

    const CString trimmed = Trimmed(path);
    if (trimmed.CompareNoCase(".") == 0 || trimmed.CompareNoCase(".\\") == 0) {
        dir = ".\\";
        return;
    }
    if (trimmed.CompareNoCase("..") == 0 || trimmed.CompareNoCase("..\\") == 0) {
        dir = "..\\";
        return;
    }

    // The runtime splits into buffers as long as the path itself, so that it
    // never fails; the component limits are then checked here, so that an
    // over-long component raises the condition once, through the library's
    // policy, whatever runtime the module runs on.
    const size_t size = std::strlen(path) + 3;
    std::vector<char> parts[4] = {std::vector<char>(size), std::vector<char>(size), std::vector<char>(size),
                                  std::vector<char>(size)};
    if (_splitpath_s(path, parts[0].data(), size, parts[1].data(), size, parts[2].data(), size, parts[3].data(),
                     size) != 0)
        return;
    for (int i = 1; i < 4; ++i) {
        if (std::strlen(parts[i].data()) > kMaxComponent) {
            RaiseInvalidParameter();
            return;
        }
    }
    drive = parts[0].data();
    dir = parts[1].data();
    name = parts[2].data();
    ext = parts[3].data();
}

int SplitDirAndName(const char* path, CString& dirPart, CString& namePart)
{
    path = OrEmpty(path);
    if (!HasWildCards(path)) {
        _finddata64i32_t found = {};
        const intptr_t search = _findfirst64i32(path, &found);
        if (search != -1) {
            _findclose(search);
            if (found.attrib & _A_SUBDIR) {
                dirPart = WithoutTrailingBackslashes(Trimmed(path));
                if (!dirPart.IsEmpty())
                    dirPart += '\\';
                return 0;
            }
        }
    }

    CString drive, dir, name, ext;
    SplitPath(path, drive, dir, name, ext);
    dirPart = drive + dir;
    dirPart.Trim();
    namePart = name + ext;
    namePart.Trim();
    return !dirPart.IsEmpty() || !namePart.IsEmpty() ? 1 : 0;
}

CString JoinPath(const char* name, const char* dir)
{
    name = OrEmpty(name);
    char buffer[MAX_PATH] = {};
    if (!CopyWithBackslash(OrEmpty(dir), buffer))
        return CString();
    if (PathIsFileSpecA(name))
        return *name ? CString(buffer) + name : CString();
    if (!PathAppendA(buffer, name))
        return CString();
    return CString(buffer);
}

CString MakeAbsolutePath(const char* path)
{
    path = OrEmpty(path);
    // Long paths are left as they are: the runtime's full-path buffer is
    // MAX_PATH characters.
    if (std::strlen(path) >= MAX_PATH)
        return CString(path);
    char full[MAX_PATH] = {};
    if (_fullpath(full, path, MAX_PATH) == nullptr)
        return CString(path);
    return CString(full);
}

CString MakeAbsolutePathFrom(const char* path, const char* base)
{
    const CString given(OrEmpty(path));
    const CString relative = Trimmed(path);
    const CString baseDir = Trimmed(base);

    char saved[MAX_PATH] = {};
    const DWORD savedLength = GetCurrentDirectoryA(MAX_PATH, saved);
    const bool restore = savedLength > 0 && savedLength < MAX_PATH;
    // A root "C:\" loses its backslash and so names the drive's current
    // directory; intended.
    if (!baseDir.IsEmpty())
        SetCurrentDirectoryA(WithoutTrailingBackslashes(baseDir));

    // A long path is resolved through its short form, found from the base.
    char source[MAX_PATH] = {};
    bool fits = relative.GetLength() < MAX_PATH;
    if (fits) {
        std::memcpy(source, relative.GetString(), static_cast<size_t>(relative.GetLength()) + 1);
    } else {
        const DWORD length = GetShortPathNameA(relative, source, MAX_PATH - 1);
        fits = length > 0 && length < MAX_PATH - 1;
    }
    char full[MAX_PATH] = {};
    const CString result = fits && _fullpath(full, source, MAX_PATH) ? CString(full) : given;

    if (restore)
        SetCurrentDirectoryA(saved);
    return result;
}

CString MakeRelativePath(const char* path, const char* dir)
{
    const CString given(OrEmpty(path));
    char from[MAX_PATH] = {};
    if (!CopyWithBackslash(OrEmpty(dir), from) || given.GetLength() >= MAX_PATH || PathIsRelativeA(given))
        return given;
    char relative[MAX_PATH] = {};
    if (!PathRelativePathToA(relative, from, FILE_ATTRIBUTE_DIRECTORY, given, FILE_ATTRIBUTE_NORMAL))
        return given;
    return CString(relative);
}

CString MakeRelativePathSimple(const char* path, const char* base)
{
    const CString p = Trimmed(path);
    CString b(OrEmpty(base));
    if (!p.IsEmpty() && (p[0] == '\\' || p[0] == '.' || p[0] != b[0]))
        return p;
    if (p.GetLength() >= 2 && p[1] != ':')
        return p;

    b.Trim();
    if (p.IsEmpty())
        return CString();
    if (b.IsEmpty())
        return p;

    // The first index where the texts differ, or the last index of the
    // shorter one.
    int i = 0;
    while (i < b.GetLength()) {
        if (i >= p.GetLength()) {
            i = p.GetLength() - 1;
            break;
        }
        if (b[i] != p[i])
            break;
        ++i;
    }
    if (i == b.GetLength())
        i = b.GetLength() - 1;

    // Back to the last backslash of the common part.
    for (int k = i; k >= 0; --k) {
        if (b[k] == '\\') {
            i = k;
            break;
        }
    }

    CString result;
    const CString baseTail = b.Mid(i + 1);
    for (int k = 0; k < baseTail.GetLength(); ++k) {
        if (baseTail[k] == '\\')
            result += "..\\";
    }
    if (result.IsEmpty())
        result = ".\\";
    result += p.Mid(i + 1);
    return result;
}

CString GetShortPath(const char* path, CString* err)
{
    const CString given(OrEmpty(path));
    if (err)
        err->Empty();
    if (_access(given, 0) != 0)
        return given;

    const DWORD size = GetShortPathNameA(given, nullptr, 0);
    if (size < 1) {
        const DWORD code = GetLastError();
        if (code != 0 && err)
            *err = SystemErrorText(code) + "[" + given + "]";
        return given;
    }
    std::vector<char> shortPath(size + 1);
    const DWORD length = GetShortPathNameA(given, shortPath.data(), size);
    if (length == 0 || length >= size)
        return given;
    return CString(shortPath.data());
}
