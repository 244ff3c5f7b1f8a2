// The child program the process, clipboard and version tests start (built beside the test
// program), and waits on it that never hang the suite.
#pragma once

#include "support/system/ProcessLaunch.h"

#include "SystemTestHelpers.h"

#include <windows.h>

#include <string>
#include <vector>

/// The full path of the child program.
inline std::string ChildProgram()
{
    return ProgramDir() + "child.exe";
}

/// Waits up to 10 s for the process to end; true when it has (or is gone).
inline bool WaitForExit(int processId)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(processId));
    const bool ended = !process || WaitForSingleObject(process, 10000) == WAIT_OBJECT_0;
    if (process)
        CloseHandle(process);
    return ended;
}

/// The exit code behind a handle after waiting up to timeoutMs; STILL_ACTIVE while it runs.
inline DWORD ExitCodeAfterWait(HANDLE process, DWORD timeoutMs = 10000)
{
    WaitForSingleObject(process, timeoutMs);
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    return code;
}

/// The lines the echo child wrote: command line, current directory, CHILD_ECHO_MARK,
/// start-up record, its own executable.
inline std::vector<std::string> EchoLines(const std::string& path)
{
    std::vector<std::string> lines;
    std::istringstream text(ReadFileText(path));
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
    lines.resize(5);
    return lines;
}

/// Runs the child with the arguments to its end (at most 10 s), its standard error going to
/// a file; its exit code, and in output what it wrote there.
inline int RunChild(const char* arguments, std::string& output)
{
    const std::string file = (std::filesystem::temp_directory_path() / "system_tests_child.txt").string();
    const HANDLE child = LaunchProcessHandle(ChildProgram().c_str(), arguments, "", SW_HIDE, file.c_str());
    const int code = child ? static_cast<int>(ExitCodeAfterWait(child)) : -1;
    if (child)
        CloseHandle(child);
    output = ReadFileText(file);
    return code;
}
