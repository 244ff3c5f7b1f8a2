// Runs system_peer.exe, the second process of the system tests, with its
// standard input and output on pipes.
#pragma once

#include <windows.h>

#include <string>

class PeerProcess {
public:
    /// Starts system_peer.exe (beside this program) with the arguments.
    explicit PeerProcess(const std::string& arguments);
    ~PeerProcess();
    PeerProcess(const PeerProcess&) = delete;
    PeerProcess& operator=(const PeerProcess&) = delete;

    bool Started() const { return m_process != nullptr; }
    /// Reads up to count bytes of output, fewer when the peer ends first.
    std::string Read(size_t count);
    /// Closes the peer's standard input, waits for it and returns its exit
    /// code (-1 when it did not start or end within ten seconds); the
    /// remaining output is appended to output.
    int Finish(std::string* output = nullptr);

private:
    HANDLE m_process = nullptr;
    HANDLE m_input = nullptr;
    HANDLE m_output = nullptr;
};

/// Runs the peer to its end; output receives what it printed.
int RunPeer(const std::string& arguments, std::string& output);

/// The folder of this program, with a trailing backslash.
std::string ProgramDir();
