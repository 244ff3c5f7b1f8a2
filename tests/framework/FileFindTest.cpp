// CFileFind over a real folder under the temporary directory.
#include "framework/afxwin.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

TEST(FileFind, StepsOntoEachEntryAndGivesFullPathsForRelativePatterns)
{
    const std::filesystem::path dir = std::filesystem::temp_directory_path() / "framework_tests_find", previous =
        std::filesystem::current_path();
    const std::string file = (dir / "a.txt").string();
    ::SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_NORMAL);   // a read-only file left by an earlier run
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir / "sub");
    std::ofstream(file) << "12345";
    ::SetFileAttributesA(file.c_str(), FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY);
    std::filesystem::current_path(dir);
    CFileFind finder;
    ASSERT_TRUE(finder.FindFile("*.*"));
    // name|path|dots, directory, read-only, system, hidden|length; the last entry is read after a 0 answer
    std::vector<std::string> seen;
    for (BOOL more = TRUE; more;) {
        more = finder.FindNextFile();
        seen.push_back(std::string(finder.GetFileName()) + "|" + finder.GetFilePath().GetString() + "|"
                       + std::to_string(finder.IsDots() * 10000 + finder.IsDirectory() * 1000
                                        + finder.IsReadOnly() * 100 + finder.IsSystem() * 10 + finder.IsHidden()) + "|"
                       + std::to_string(finder.GetLength()));
    }
    FILETIME times[3] = {};   // of the last entry
    EXPECT_TRUE(finder.GetCreationTime(times) && finder.GetLastAccessTime(times + 1) &&
                finder.GetLastWriteTime(times + 2) && !finder.GetCreationTime(nullptr) && times[2].dwHighDateTime);
    std::filesystem::current_path(previous);
    EXPECT_EQ(dir.string(), std::string(finder.GetRoot())) << "the folder, without its trailing backslash";
    std::sort(seen.begin(), seen.end());
    const std::string root = dir.string();
    EXPECT_EQ(seen, (std::vector<std::string>{"..|" + root + "\\..|11000|0", ".|" + root + "\\.|11000|0",
                                              "a.txt|" + root + "\\a.txt|111|5", "sub|" + root + "\\sub|1000|0"}));
    ASSERT_TRUE(finder.FindFile("C:\\*"));
    EXPECT_STREQ("C:\\", finder.GetRoot().GetString()) << "a drive's root keeps its backslash";
    finder.FindNextFile();
    EXPECT_EQ(std::string(finder.GetFilePath()), "C:\\" + std::string(finder.GetFileName())) << "one backslash";
    // Patterns of MAX_PATH - 1 characters are searched, of MAX_PATH refused.
    EXPECT_TRUE(finder.FindFile(("C:\\" + std::string(MAX_PATH - 4, '*')).c_str()));
    ::SetLastError(0);
    EXPECT_FALSE(finder.FindFile(("C:\\" + std::string(MAX_PATH - 3, '*')).c_str()));
    EXPECT_EQ(DWORD(ERROR_BAD_ARGUMENTS), ::GetLastError()) << "why the pattern was refused";
}
