#include "PeerProcess.h"

#include <vector>

std::string ProgramDir()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string dir = path;
    return dir.substr(0, dir.find_last_of('\\') + 1);
}

PeerProcess::PeerProcess(const std::string& arguments)
{
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    HANDLE childInput = nullptr, childOutput = nullptr;
    if (!CreatePipe(&childInput, &m_input, &inherit, 0))
        return;
    if (!CreatePipe(&m_output, &childOutput, &inherit, 0)) {
        CloseHandle(childInput);
        return;
    }
    SetHandleInformation(m_input, HANDLE_FLAG_INHERIT, 0);
    SetHandleInformation(m_output, HANDLE_FLAG_INHERIT, 0);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = childInput;
    startup.hStdOutput = childOutput;
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    std::string command = "\"" + ProgramDir() + "system_peer.exe\" " + arguments;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &process)) {
        CloseHandle(process.hThread);
        m_process = process.hProcess;
    }
    CloseHandle(childInput);
    CloseHandle(childOutput);
}

PeerProcess::~PeerProcess()
{
    Finish();
    if (m_output)
        CloseHandle(m_output);
}

std::string PeerProcess::Read(size_t count)
{
    std::string text;
    char chunk[4096];
    DWORD got = 0;
    while (m_output && text.size() < count &&
           ReadFile(m_output, chunk, static_cast<DWORD>(std::min(count - text.size(), sizeof chunk)), &got, nullptr) && got)
        text.append(chunk, got);
    return text;
}

int PeerProcess::Finish(std::string* output)
{
    if (m_input) {
        CloseHandle(m_input);
        m_input = nullptr;
    }
    if (!m_process)
        return -1;
    if (output)
        *output += Read(static_cast<size_t>(-1));
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(m_process, 10000) != WAIT_OBJECT_0)
        TerminateProcess(m_process, code);
    else
        GetExitCodeProcess(m_process, &code);
    CloseHandle(m_process);
    m_process = nullptr;
    return static_cast<int>(code);
}

int RunPeer(const std::string& arguments, std::string& output)
{
    output.clear();
    PeerProcess peer(arguments);
    return peer.Finish(&output);
}
