// The child programs the process tests start (built beside the test
// program), and waits on them that never hang the suite.
#pragma once

#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// The full path of a child program in the test program's folder.
inline std::string ChildPath(const char* fileName)
{
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string path = self;
    return path.substr(0, path.find_last_of('\\') + 1) + fileName;
}

/// Waits up to 10 s for the process to end; true when it has (or is gone).
inline bool WaitForExit(int processId)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(processId));
    if (!process)
        return true;
    const bool ended = WaitForSingleObject(process, 10000) == WAIT_OBJECT_0;
    CloseHandle(process);
    return ended;
}

/// The exit code behind a handle after waiting up to 10 s; STILL_ACTIVE when
/// the process runs on.
inline DWORD ExitCodeAfterWait(HANDLE process, DWORD timeoutMs = 10000)
{
    WaitForSingleObject(process, timeoutMs);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

/// The number of top-level windows of a process.
inline int WindowCount(int processId)
{
    struct Search {
        DWORD id;
        int count;
    } search = {static_cast<DWORD>(processId), 0};
    EnumWindows(
        [](HWND window, LPARAM lParam) -> BOOL {
            auto* s = reinterpret_cast<Search*>(lParam);
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            s->count += owner == s->id;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.count;
}

/// Waits up to 10 s for a process to show `count` top-level windows.
inline bool WaitForWindows(int processId, int count)
{
    for (int i = 0; i < 1000 && WindowCount(processId) < count; ++i)
        Sleep(10);
    return WindowCount(processId) >= count;
}

/// A whole file's bytes, "" when it cannot be read.
inline std::string ReadFileText(const std::string& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

/// The lines of what child_echo wrote: command line, current directory,
/// CHILD_ECHO_MARK, start-up record, its own executable.
inline std::vector<std::string> EchoLines(const std::string& path)
{
    std::vector<std::string> lines;
    std::istringstream text(ReadFileText(path));
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    lines.resize(5);
    return lines;
}
