// Scratch directories for the system tests: real folders under the temporary
// directory, emptied when made and removed again at the end of the test.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

class ScratchDir {
public:
    explicit ScratchDir(const std::string& name)
        : m_path(std::filesystem::temp_directory_path() / ("system_tests_" + name))
    {
        Clear();
        std::filesystem::create_directories(m_path);
    }
    ~ScratchDir() { Clear(); }
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

    /// The directory without a trailing backslash ("C:\...\system_tests_x").
    std::string Path() const { return m_path.string(); }
    /// A path inside the directory.
    std::string operator/(const std::string& relative) const { return Path() + "\\" + relative; }

    /// Writes a file (making its folders) holding text.
    void Write(const std::string& relative, const std::string& text = "x") const
    {
        const std::filesystem::path file = m_path / relative;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
    }

private:
    void Clear()
    {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::all, ignored);
        for (auto it = std::filesystem::recursive_directory_iterator(m_path, ignored);
             it != std::filesystem::recursive_directory_iterator(); it.increment(ignored))
            std::filesystem::permissions(it->path(), std::filesystem::perms::owner_write,
                                         std::filesystem::perm_options::add, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path m_path;
};
