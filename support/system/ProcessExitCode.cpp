#include "support/system/ProcessExitCode.h"

#include "support/system/Paths.h"
#include "support/system/SystemText.h"

#include <psapi.h>

namespace {

// Query, read and terminate: what every exit-code reader asks for.
constexpr DWORD kReadAccess = PROCESS_QUERY_INFORMATION | PROCESS_VM_READ | PROCESS_TERMINATE;

HANDLE OpenById(int processId)
{
    return OpenProcess(kReadAccess, FALSE, static_cast<DWORD>(processId));
}

// Reads the code; a code that cannot be read ends the process.
int ReadExitCodeOrTerminate(HANDLE process)
{
    DWORD code = 0;
    if (GetExitCodeProcess(process, &code))
        return static_cast<int>(code);
    TerminateProcessHandle(process);
    return ExitCodeUnknown;
}

// The executable's file name and extension ("prog.exe"), "" when unknown.
CString ExecutableFileName(const char* path)
{
    CString drive, dir, name, ext;
    SplitPath(path, drive, dir, name, ext);
    return name + ext;
}

// The path of the process's first module; the image name (a device path,
// "\Device\HarddiskVolume1\...") when the modules cannot be listed.
CString ExecutablePath(HANDLE process)
{
    char path[MAX_PATH] = "";
    HMODULE module = nullptr;
    DWORD needed = 0;
    if (EnumProcessModules(process, &module, sizeof(module), &needed))
        GetModuleFileNameExA(process, module, path, MAX_PATH);
    else
        GetProcessImageFileNameA(process, path, MAX_PATH);
    return path;
}

} // namespace

int TerminateProcessHandle(HANDLE process, const int* code)
{
    const int result = code ? *code : 0;
    if (process)
        TerminateProcess(process, 0);
    return result;
}

int GetProcessExitCodeById(const int* processId)
{
    if (!processId)
        return ExitCodeUnknown;
    const HANDLE process = OpenById(*processId);
    if (!process)
        return ExitCodeUnknown;
    const int code = ReadExitCodeOrTerminate(process);
    CloseHandle(process);
    return code;
}

int GetProcessExitCodeByHandle(HANDLE process)
{
    DWORD code = 0;
    const BOOL read = GetExitCodeProcess(process, &code);
    if (static_cast<int>(code) < 0)
        SystemText::ErrorText(GetLastError());   // looked at, not reported
    if (read)
        return static_cast<int>(code);
    TerminateProcessHandle(process);
    return ExitCodeUnknown;
}

int GetProcessExitCodeByName(const int* processId, const char* executable)
{
    if (!processId)
        return ExitCodeUnknown;
    const HANDLE process = OpenById(*processId);
    if (!process)
        return ExitCodeUnknown;
    int result = 0;
    const CString path = ExecutablePath(process);
    if (!path.IsEmpty() &&
        ExecutableFileName(path).CompareNoCase(ExecutableFileName(executable ? executable : "")) == 0)
        result = ReadExitCodeOrTerminate(process);
    CloseHandle(process);
    return result;
}

int EndProcessIfRunning(int processId, const char* executable)
{
    if (processId == 0)
        return 0;
    const int code = executable && *executable ? GetProcessExitCodeByName(&processId, executable)
                                               : GetProcessExitCodeById(&processId);
    if (code != static_cast<int>(STILL_ACTIVE))
        return code;
    const HANDLE process = OpenById(processId);
    if (!process)
        return static_cast<int>(STILL_ACTIVE);
    TerminateProcess(process, 0);
    CloseHandle(process);
    return 0;
}
