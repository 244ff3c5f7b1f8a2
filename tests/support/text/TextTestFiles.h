// Scratch directory and whole-file byte access for the text tests.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

struct TempDir {
    static inline int count = 0;
    const std::string path = (std::filesystem::temp_directory_path() /
        ("text_tests_" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++count))).string();
    TempDir() { std::filesystem::remove_all(path); std::filesystem::create_directories(path); }
    ~TempDir() { std::error_code ignored; std::filesystem::remove_all(path, ignored); }
    std::string File(const char* name) const { return path + "\\" + name; }
};

inline std::string ReadBytes(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return in ? std::string(std::istreambuf_iterator<char>(in), {}) : "<missing>";
}
