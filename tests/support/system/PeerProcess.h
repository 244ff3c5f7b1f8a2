// Runs system_peer.exe, the second process of the system tests, with its standard output
// going to a file.
#pragma once

#include "SystemTestHelpers.h"

#include <windows.h>

#include <string>

/// Starts system_peer.exe (beside this program) with the arguments, its standard output
/// written to outputFile; the process handle, null when it did not start.
inline HANDLE StartPeer(const std::string& arguments, const std::string& outputFile)
{
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    const HANDLE output = CreateFileA(outputFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS,
                                      0, nullptr);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = output;
    std::string command = "\"" + ProgramDir() + "system_peer.exe\" " + arguments;
    PROCESS_INFORMATION process{};
    CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process);
    CloseHandle(output);
    if (process.hThread)
        CloseHandle(process.hThread);
    return process.hProcess;
}

/// Waits up to 10 s for the peer (ending it after that) and closes its handle; its exit
/// code, -1 when it did not start or end in time.
inline int FinishPeer(HANDLE peer)
{
    DWORD code = static_cast<DWORD>(-1);
    if (peer && WaitForSingleObject(peer, 10000) == WAIT_OBJECT_0)
        GetExitCodeProcess(peer, &code);
    else if (peer)
        TerminateProcess(peer, code);
    if (peer)
        CloseHandle(peer);
    return static_cast<int>(code);
}

/// Runs the peer to its end; output receives what it printed.
inline int RunPeer(const std::string& arguments, std::string& output)
{
    const std::string file = (std::filesystem::temp_directory_path() / "system_tests_peer.txt").string();
    const int code = FinishPeer(StartPeer(arguments, file));
    output = ReadFileText(file);
    DeleteFileA(file.c_str());
    return code;
}
