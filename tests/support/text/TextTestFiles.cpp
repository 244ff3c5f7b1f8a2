#include "TextTestFiles.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

void DeleteTree(const std::string& path)
{
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((path + "\\*").c_str(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        do {
            const std::string name = found.cFileName;
            if (name == "." || name == "..")
                continue;
            const std::string child = path + "\\" + name;
            SetFileAttributesA(child.c_str(), FILE_ATTRIBUTE_NORMAL);
            if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
                DeleteTree(child);
            else
                DeleteFileA(child.c_str());
        } while (FindNextFileA(search, &found));
        FindClose(search);
    }
    RemoveDirectoryA(path.c_str());
}

} // namespace

TempDirectory::TempDirectory()
{
    static int counter = 0;
    char base[MAX_PATH + 1] = {};
    GetTempPathA(MAX_PATH, base);
    char name[96];
    std::snprintf(name, sizeof(name), "text_tests_%lu_%d_%lu", GetCurrentProcessId(), ++counter, GetTickCount());
    m_path = std::string(base) + name;
    if (!CreateDirectoryA(m_path.c_str(), nullptr))
        ADD_FAILURE() << "cannot create the scratch directory " << m_path << ", error " << GetLastError();
}

TempDirectory::~TempDirectory()
{
    DeleteTree(m_path);
}

std::string TempDirectory::File(const std::string& name) const
{
    return m_path + "\\" + name;
}

std::string ReadBytes(const std::string& path)
{
    FILE* file = std::fopen(path.c_str(), "rb");
    if (!file)
        return "<missing>";
    std::string bytes;
    char buffer[4096];
    size_t got;
    while ((got = std::fread(buffer, 1, sizeof(buffer), file)) > 0)
        bytes.append(buffer, got);
    std::fclose(file);
    return bytes;
}

void WriteBytes(const std::string& path, const std::string& bytes)
{
    FILE* file = std::fopen(path.c_str(), "wb");
    ASSERT_NE(file, nullptr) << "cannot create " << path;
    std::fwrite(bytes.data(), 1, bytes.size(), file);
    std::fclose(file);
}

std::string DumpBytes(const std::string& bytes)
{
    std::string text = "\"";
    for (unsigned char c : bytes) {
        if (c == '\r')
            text += "\\r";
        else if (c == '\n')
            text += "\\n\n ";
        else if (c == '\t')
            text += "\\t";
        else if (c < 0x20 || c >= 0x7f) {
            char hex[8];
            std::snprintf(hex, sizeof(hex), "\\x%02X", c);
            text += hex;
        } else
            text += static_cast<char>(c);
    }
    return text + "\"";
}

void ExpectFileBytes(const std::string& path, const std::string& expected)
{
    const std::string actual = ReadBytes(path);
    EXPECT_EQ(actual, expected) << "file " << path << "\n expected " << DumpBytes(expected) << "\n got      "
                                << DumpBytes(actual);
}

std::string FullDevicePath()
{
    const char* path = "Z:\\dev\\full";
    const HANDLE handle = CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                      nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return std::string();
    DWORD written = 0;
    const bool full = !WriteFile(handle, "x", 1, &written, nullptr) && GetLastError() == ERROR_DISK_FULL;
    CloseHandle(handle);
    return full ? path : std::string();
}
