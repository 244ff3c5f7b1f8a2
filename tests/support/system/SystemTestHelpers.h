// Helpers of the system tests: scratch folders, whole files, the child program (children/Child.cpp,
// built beside this program), the invalid-parameter conditions raised, and an application object that
// records its message boxes.
#pragma once

#include "AfxWinApp.h"
#include "support/Support.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// The temporary folder (with a trailing backslash), this program's folder and the child program.
inline const std::string TempDir = (std::filesystem::temp_directory_path() / "").string();
inline const std::string ProgramDir = std::filesystem::path(_pgmptr).remove_filename().string();
inline const std::string ChildExe = ProgramDir + "child.exe";

/// A folder under the temporary folder, made empty on construction and removed on destruction (by
/// DeleteTree: read-only entries included, links not followed).
struct ScratchDir {
    explicit ScratchDir(const std::string& name) : path(TempDir + "system_tests_" + name)
    {
        DeleteTree(path.c_str());
        CreateDirectoryA(path.c_str(), nullptr);
    }
    ~ScratchDir() { DeleteTree(path.c_str()); }
    std::string operator/(const std::string& relative) const { return path + "\\" + relative; }

    /// Writes a file holding its own name, making its folders; a name ending in a backslash makes only folders.
    void Write(const std::string& relative) const
    {
        std::filesystem::create_directories(std::filesystem::path(*this / relative).parent_path());
        if (relative.back() != '\\')
            std::ofstream(*this / relative, std::ios::binary) << relative;
    }

    const std::string path;   // without a trailing backslash
};

/// The lines the echo child wrote to EchoFile, its standard-error file (command line, current directory,
/// CHILD_ECHO_MARK, its own legal notice), once the child with this id ended. Every launch with it
/// truncates the file first, also one that starts nothing.
inline const std::string EchoFile = TempDir + "system_tests_echo.txt";
inline std::vector<std::string> Echo(int processId)
{
    const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(processId));
    WaitForSingleObject(process, 10000);
    CloseHandle(process);
    std::vector<std::string> lines(4);
    std::ifstream text(EchoFile, std::ios::binary);
    for (std::string& line : lines)
        std::getline(text, line);
    return lines;
}

/// The echo of the child started by LaunchProcess with these arguments.
inline std::vector<std::string> EchoOf(std::vector<CString> arguments, const char* workDir = "",
                                       const char* program = ChildExe.c_str())
{
    return Echo(LaunchProcess(program, arguments, workDir, SW_HIDE, 0, EchoFile.c_str()));
}

/// Wine hands out the lowest free handle slots and its GetProcessHandleCount answers 0: a handle left
/// open moves the 64th free slot, which 64 events show (the first free slot alone misses holes).
inline HANDLE SixtyFourthFreeHandleSlot()
{
    std::vector<HANDLE> events(64);
    for (HANDLE& event : events)
        event = CreateEventA(nullptr, FALSE, FALSE, nullptr);
    for (HANDLE event : events)
        CloseHandle(event);
    return events.back();
}

/// The invalid-parameter conditions raised, counted by a handler, installed for the whole program, that
/// returns as a host's would.
inline int Raised = 0;
inline const auto RaisedCounter = _set_invalid_parameter_handler(
    [](const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) { ++Raised; });

/// Records each message box as "prompt|type|help id" and answers IDRETRY.
struct RecordingApp : CWinApp {
    int DoMessageBox(const char* prompt, UINT type, UINT help) override
    {
        boxes.push_back(std::string(prompt) + "|" + std::to_string(type) + "|" + std::to_string(help));
        return IDRETRY;
    }
    std::vector<std::string> boxes;
};
