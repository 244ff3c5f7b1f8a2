// Helpers of the system tests: scratch folders under the temporary directory, whole files,
// this program's folder, a count of the invalid-parameter conditions raised, and an
// application object that records its message boxes and wait cursors.
#pragma once

#include "AfxWinApp.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// A whole file's bytes, "" when it cannot be read.
inline std::string ReadFileText(const std::string& path)
{
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return bytes.str();
}

/// The folder of this program, with a trailing backslash.
inline std::string ProgramDir()
{
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    const std::string dir = path;
    return dir.substr(0, dir.find_last_of('\\') + 1);
}

/// A folder made empty on construction and removed, read-only entries
/// included, on destruction.
class ScratchDir {
public:
    explicit ScratchDir(const std::string& name) : m_path(std::filesystem::temp_directory_path() / ("system_tests_" + name))
    {
        Clear();
        std::filesystem::create_directories(m_path);
    }
    ~ScratchDir() { Clear(); }

    /// The folder, without a trailing backslash.
    std::string Path() const { return m_path.string(); }
    std::string operator/(const std::string& relative) const { return Path() + "\\" + relative; }

    /// Writes a file holding text, making its folders; a name ending in a
    /// backslash makes only the folders.
    void Write(const std::string& relative, const std::string& text = "x") const
    {
        std::filesystem::create_directories((m_path / relative).parent_path());
        if (relative.back() != '\\')
            std::ofstream(m_path / relative, std::ios::binary) << text;
    }

private:
    void Clear()
    {
        std::error_code ignored;
        for (auto it = std::filesystem::recursive_directory_iterator(m_path, ignored);
             it != std::filesystem::recursive_directory_iterator(); it.increment(ignored))
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path m_path;
};

/// Counts the invalid-parameter conditions raised while it lives, through a
/// handler that returns as a host's would.
class InvalidParameterCounter {
public:
    InvalidParameterCounter() : m_previous(_set_invalid_parameter_handler(&Count)) { s_count = 0; }
    ~InvalidParameterCounter() { _set_invalid_parameter_handler(m_previous); }
    int Raised() const { return s_count; }

private:
    static void Count(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) { ++s_count; }
    static inline int s_count = 0;
    _invalid_parameter_handler m_previous;
};

/// Records each message box as "prompt|type|help id" and answers IDRETRY; counts the wait cursors
/// shown and the balance of shown minus ended.
struct RecordingApp : CWinApp {
    RecordingApp() : CWinApp("Recorder") {}
    int DoMessageBox(const char* prompt, UINT type, UINT help) override
    {
        boxes.push_back(std::string(prompt) + "|" + std::to_string(type) + "|" + std::to_string(help));
        return IDRETRY;
    }
    void DoWaitCursor(int code) override
    {
        cursor += code;
        shown += code > 0;
        CWinApp::DoWaitCursor(code);
    }
    std::vector<std::string> boxes;
    int cursor = 0, shown = 0;
};
