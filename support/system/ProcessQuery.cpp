#include "support/system/ProcessQuery.h"

#include "support/system/Paths.h"

#include "AfxString.h"

#include <psapi.h>

#include <vector>

namespace {

constexpr DWORD kMaxProcesses = 1024;
constexpr DWORD kQueryAccess = PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_VM_READ;

struct ProcessEntry {
    DWORD id;
    CString path;   // "" when the process cannot be opened or read
};

CString FirstModulePath(DWORD processId)
{
    char path[MAX_PATH] = "";
    if (const HANDLE process = OpenProcess(kQueryAccess, FALSE, processId)) {
        HMODULE module = nullptr;
        DWORD needed = 0;
        if (EnumProcessModules(process, &module, sizeof(module), &needed))
            GetModuleFileNameExA(process, module, path, MAX_PATH);
        CloseHandle(process);
    }
    return path;
}

std::vector<ProcessEntry> RunningProcesses()
{
    std::vector<DWORD> ids(kMaxProcesses);
    DWORD bytes = 0;
    if (!EnumProcesses(ids.data(), kMaxProcesses * sizeof(DWORD), &bytes))
        bytes = 0;
    std::vector<ProcessEntry> processes;
    for (DWORD i = 0; i < bytes / sizeof(DWORD); ++i)
        processes.push_back({ids[i], FirstModulePath(ids[i])});
    return processes;
}

// The file-name part, trimmed; a text naming an existing directory whole.
CString FileNamePart(const CString& path)
{
    CString dir;
    CString name = path;
    SplitDirAndName(path, dir, name);
    name.Trim();
    return name;
}

} // namespace

int CountProcessesByFileName(const char* executable)
{
    if (!executable)
        return 0;
    const CString wanted = FileNamePart(executable);
    int count = 0;
    for (const ProcessEntry& process : RunningProcesses())
        if (FileNamePart(process.path).CompareNoCase(wanted) == 0)
            ++count;
    return count;
}

int KillProcessesByPath(const char* path)
{
    // An empty path would match every process whose executable is unknown.
    if (!path || !*path)
        return 0;
    const std::vector<ProcessEntry> processes = RunningProcesses();
    for (auto process = processes.rbegin(); process != processes.rend(); ++process) {
        if (process->path.CompareNoCase(path) != 0)
            continue;
        if (const HANDLE handle = OpenProcess(kQueryAccess | PROCESS_TERMINATE, FALSE, process->id)) {
            TerminateProcess(handle, 0);
            CloseHandle(handle);
        }
    }
    return 0;
}

BOOL IsWow64()
{
    using IsWow64ProcessFunction = BOOL(WINAPI*)(HANDLE, PBOOL);
    const HMODULE kernel = GetModuleHandleA("kernel32");
    const auto query =
        kernel ? reinterpret_cast<IsWow64ProcessFunction>(reinterpret_cast<void*>(GetProcAddress(kernel, "IsWow64Process")))
               : nullptr;
    BOOL wow64 = FALSE;
    if (query)
        query(GetCurrentProcess(), &wow64);
    return wow64;
}
