#include "support/system/ProcessLaunch.h"

#include "support/system/SystemText.h"

#include "AfxWinApp.h"

#include <io.h>
#include <shellapi.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace {

bool FileExists(const CString& name)
{
    return _access(name, 0) == 0;
}

// The runtime's and the ANSI file functions stop at MAX_PATH; a long argument
// is looked up through the wide functions with the "\\?\" prefix instead.
bool LongFileExists(const CString& name)
{
    const int wideLength = MultiByteToWideChar(CP_ACP, 0, name, -1, nullptr, 0);
    if (wideLength <= 1)
        return false;
    std::wstring wide(static_cast<size_t>(wideLength), L'\0');
    MultiByteToWideChar(CP_ACP, 0, name, -1, wide.data(), wideLength);
    const DWORD fullLength = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    if (fullLength == 0)
        return false;
    std::wstring full(fullLength, L'\0');
    full.resize(GetFullPathNameW(wide.c_str(), fullLength, full.data(), nullptr));
    if (full.rfind(L"\\\\?\\", 0) != 0)
        full = full.rfind(L"\\\\", 0) == 0 ? L"\\\\?\\UNC\\" + full.substr(2) : L"\\\\?\\" + full;
    return GetFileAttributesW(full.c_str()) != INVALID_FILE_ATTRIBUTES;
}

// The short form of a long argument is asked for and then dropped: the
// argument keeps its long form on the command line. Intended.
void QueryShortForm(const CString& path)
{
    const DWORD size = GetShortPathNameA(path, nullptr, 0);
    if (size > 0) {
        std::string scratch(size, '\0');
        GetShortPathNameA(path, scratch.data(), size);
    }
}

// A path argument has ":\" or "\\" after its first character; a leading
// "\\" (a UNC name) alone does not make one.
bool IsPathArgument(const CString& argument)
{
    return argument.Find(":\\", 1) >= 1 || argument.Find("\\\\", 1) >= 1;
}

CString Quoted(const CString& text)
{
    return "\"" + text + "\"";
}

CString BuildCommandLine(const CString& program, bool searched, const std::vector<CString>& arguments)
{
    CString line;
    if (searched || !arguments.empty())
        line = Quoted(program);
    for (CString argument : arguments) {
        argument.Trim();
        if (argument.IsEmpty())
            continue;
        if (IsPathArgument(argument)) {
            if (argument.GetLength() > MAX_PATH && LongFileExists(argument))
                QueryShortForm(argument);
            else if (argument.Find(' ') >= 0 && argument.Find('"') < 0)
                argument = Quoted(argument);
        }
        line += " ";
        line += argument;
    }
    line.Trim();
    return line;
}

} // namespace

DWORD LaunchCreationFlags(DWORD flags)
{
    if (flags != 0)
        return flags | CREATE_DEFAULT_ERROR_MODE;
    SYSTEM_INFO system = {};
    GetSystemInfo(&system);
    // A lone processor stays responsive to its user while the child runs.
    return system.dwNumberOfProcessors < 2 ? CREATE_DEFAULT_ERROR_MODE | BELOW_NORMAL_PRIORITY_CLASS
                                           : CREATE_DEFAULT_ERROR_MODE;
}

namespace {

// CreateProcessA may write into its command line: a writable copy.
std::vector<char> WritableText(const CString& text, size_t minimumSize)
{
    std::vector<char> buffer(std::max(minimumSize, static_cast<size_t>(text.GetLength()) + 1), '\0');
    std::memcpy(buffer.data(), text.GetString(), static_cast<size_t>(text.GetLength()));
    return buffer;
}

// The error file and its inheritable twin, closed when the launch ends.
class ErrorRedirection {
public:
    ErrorRedirection(const char* errorFile, STARTUPINFOA& startup)
    {
        if (!errorFile || !*errorFile)
            return;
        startup.dwFlags |= STARTF_USESTDHANDLES;
        m_file = CreateFileA(errorFile, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (m_file == INVALID_HANDLE_VALUE) {
            // INVALID_HANDLE_VALUE is also the current process's own
            // pseudo handle: never duplicate it to the child.
            m_file = nullptr;
            return;
        }
        const HANDLE self = GetCurrentProcess();
        if (DuplicateHandle(self, m_file, self, &m_inherited, 0, TRUE, DUPLICATE_SAME_ACCESS))
            startup.hStdError = m_inherited;
        else
            m_inherited = nullptr;
    }
    ~ErrorRedirection()
    {
        if (m_file)
            CloseHandle(m_file);
        if (m_inherited)
            CloseHandle(m_inherited);
    }
    ErrorRedirection(const ErrorRedirection&) = delete;
    ErrorRedirection& operator=(const ErrorRedirection&) = delete;

private:
    HANDLE m_file = nullptr;
    HANDLE m_inherited = nullptr;
};

STARTUPINFOA StartupRecord(WORD show)
{
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = show;
    return startup;
}

// Null (the current directory) for a text that was only backslashes.
const char* DirectoryOrNull(const CString& dir)
{
    return dir.IsEmpty() ? nullptr : dir.GetString();
}

} // namespace

int LaunchProcessInfo(PROCESS_INFORMATION* info, const char* program, std::vector<CString> arguments,
                      const char* workDir, int show, DWORD flags, const char* errorFile, const char* environment)
{
    if (!info)
        return 0;
    CWaitCursor wait;
    *info = PROCESS_INFORMATION{};

    CString name(program);
    name.Trim();
    const bool exists = FileExists(name);
    std::vector<char> commandLine = WritableText(BuildCommandLine(name, !exists, arguments), 1);

    CString dir(workDir);
    dir.Trim();
    if (dir.IsEmpty())
        dir = ".";
    dir.TrimRight("\\");   // "C:\" becomes "C:", the drive's current directory: intended

    SECURITY_ATTRIBUTES processAttributes = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    SECURITY_ATTRIBUTES threadAttributes = processAttributes;
    STARTUPINFOA startup = StartupRecord(static_cast<WORD>(show));
    const ErrorRedirection redirection(errorFile, startup);
    void* const block = environment && *environment ? const_cast<char*>(environment) : nullptr;

    if (!CreateProcessA(exists ? name.GetString() : nullptr, commandLine.data(), &processAttributes,
                        &threadAttributes, TRUE, LaunchCreationFlags(flags), block, DirectoryOrNull(dir), &startup,
                        info)) {
        SystemText::ErrorText(GetLastError());   // not shown: a failed start reads as 0
        *info = PROCESS_INFORMATION{};
        return 0;
    }
    CloseHandle(info->hThread);
    info->hThread = nullptr;
    return static_cast<int>(info->dwProcessId);
}

int LaunchProcess(const char* program, std::vector<CString> arguments, const char* workDir, int show, DWORD flags,
                  const char* errorFile)
{
    PROCESS_INFORMATION info = {};
    const int id = LaunchProcessInfo(&info, program, std::move(arguments), workDir, show, flags, errorFile, nullptr);
    if (info.hProcess)
        CloseHandle(info.hProcess);
    return id;
}

int LaunchProcessEnv(const char* program, std::vector<CString> arguments, const char* workDir, int show,
                     DWORD flags, const char* errorFile, const char* environment)
{
    PROCESS_INFORMATION info = {};
    // The process handle is left open for the life of the caller: intended.
    return LaunchProcessInfo(&info, program, std::move(arguments), workDir, show, flags, errorFile, environment);
}

HANDLE LaunchProcessHandle(const char* program, const char* arguments, const char* workDir, WORD show,
                           const char* errorFile)
{
    CWaitCursor wait;
    CString name(program);
    name.Trim();
    const bool exists = FileExists(name);

    CString line;
    if (!exists || arguments) {
        line = Quoted(CString(program));
        if (arguments)
            line += CString(" ") + arguments;
    }
    line.Trim();
    std::vector<char> commandLine = WritableText(line, 1024);

    CString dir(workDir);
    dir.TrimRight("\\");
    if (dir.IsEmpty())
        dir = ".";

    SECURITY_ATTRIBUTES processAttributes = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    SECURITY_ATTRIBUTES threadAttributes = processAttributes;
    STARTUPINFOA startup = StartupRecord(show);
    const ErrorRedirection redirection(errorFile, startup);
    // Cleared first, so that a failed start hands back a null handle.
    PROCESS_INFORMATION info = {};
    if (!CreateProcessA(exists ? name.GetString() : nullptr, commandLine.data(), &processAttributes,
                        &threadAttributes, TRUE, LaunchCreationFlags(0), nullptr, dir, &startup, &info))
        info = PROCESS_INFORMATION{};
    if (info.hThread)
        CloseHandle(info.hThread);
    return info.hProcess;
}

BOOL ShellOpen(HWND owner, const char* file, const char* parameters)
{
    if (!file || !*file)
        return FALSE;
    const HINSTANCE result = ShellExecuteA(owner, "open", file, parameters, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32 ? TRUE : FALSE;
}
