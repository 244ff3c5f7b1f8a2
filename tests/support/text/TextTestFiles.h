// Scratch files for the text tests: a fresh temporary directory per test,
// whole-file byte reads and readable dumps of bytes for failure messages.
#pragma once

#include <string>

class TempDirectory {
public:
    /// Creates "<GetTempPath>\text_tests_<pid>_<counter>_<ticks>".
    TempDirectory();
    /// Deletes the directory with everything in it (read-only files too).
    ~TempDirectory();
    TempDirectory(const TempDirectory&) = delete;
    TempDirectory& operator=(const TempDirectory&) = delete;

    const std::string& Path() const { return m_path; }
    /// Path() + "\" + name.
    std::string File(const std::string& name) const;

private:
    std::string m_path;
};

/// The file's bytes; "<missing>" when it cannot be opened.
std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, const std::string& bytes);

/// The bytes with CR, LF, tab and other control bytes shown as escapes.
std::string DumpBytes(const std::string& bytes);

/// Compares the file's bytes with the expected bytes, dumping both on failure.
void ExpectFileBytes(const std::string& path, const std::string& expected);

/// Z:\dev\full under Wine: a file on which every write fails with a full
/// disk. Empty when the platform has none.
std::string FullDevicePath();
