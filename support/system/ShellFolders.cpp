#include "support/system/ShellFolders.h"

int GetDesktopPath(char* path)
{
    if (!path)
        return E_POINTER;
    IMalloc* allocator = nullptr;
    const HRESULT got = SHGetMalloc(&allocator);
    if (FAILED(got))
        return got;
    path[0] = '\0';
    LPITEMIDLIST items = nullptr;
    if (SUCCEEDED(SHGetSpecialFolderLocation(GetDesktopWindow(), CSIDL_DESKTOP, &items)) && items) {
        if (!SHGetPathFromIDListA(items, path))
            path[0] = '\0';
        allocator->Free(items);
    }
    return static_cast<int>(allocator->Release());
}

CString GetSpecialFolderPath(int csidl)
{
    IMalloc* allocator = nullptr;
    if (FAILED(SHGetMalloc(&allocator)))
        return CString();
    // Cleared first, so a folder the shell cannot give leaves it empty.
    char path[MAX_PATH] = "";
    if (!SHGetSpecialFolderPathA(GetDesktopWindow(), path, csidl, FALSE))
        path[0] = '\0';
    allocator->Release();
    return CString(path);
}

CString GetCommonFilesPath()
{
    char path[MAX_PATH] = "";
    if (FAILED(SHGetFolderPathA(nullptr, CSIDL_PROGRAM_FILES_COMMON, nullptr, 0, path)))
        return CString();
    return CString(path);
}
