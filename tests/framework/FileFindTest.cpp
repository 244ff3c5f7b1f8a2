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
    const std::filesystem::path dir = std::filesystem::temp_directory_path() / "framework_tests_find";
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir / "sub");
    std::ofstream(dir / "a.txt") << "12345";
    char previous[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, previous);
    ASSERT_TRUE(SetCurrentDirectoryA(dir.string().c_str()));

    CFileFind finder;
    EXPECT_EQ(std::string(finder.GetFileName()), "") << "name before the first step";
    ASSERT_TRUE(finder.FindFile("*.*"));
    std::vector<std::string> seen;
    BOOL more = TRUE;
    while (more) {
        more = finder.FindNextFile();
        // Each entry as name|path|dots|directory|length.
        seen.push_back(std::string(finder.GetFileName()) + "|" + finder.GetFilePath().GetString() + "|" +
                       std::to_string(finder.IsDots()) + std::to_string(finder.IsDirectory()) + "|" +
                       std::to_string(finder.GetLength()));
    }
    EXPECT_FALSE(finder.GetFileName().IsEmpty()) << "the last entry stays readable";
    SetCurrentDirectoryA(previous);
    std::sort(seen.begin(), seen.end());
    const std::string root = dir.string();
    const std::vector<std::string> expected = {
        "..|" + root + "\\..|11|0",
        ".|" + root + "\\.|11|0",
        "a.txt|" + root + "\\a.txt|00|5",
        "sub|" + root + "\\sub|01|0",
    };
    EXPECT_EQ(seen, expected);
    EXPECT_EQ(std::string(finder.GetRoot()), root);
    finder.Close();
    EXPECT_FALSE(finder.FindNextFile()) << "after Close";
    EXPECT_FALSE(finder.FindFile((root + "\\none\\*").c_str())) << "missing directory";
    ASSERT_TRUE(finder.FindFile((root + "\\a.txt").c_str()));
    EXPECT_FALSE(finder.FindNextFile()) << "the only entry is the last";
    EXPECT_EQ(std::string(finder.GetFileTitle()), "a");
    finder.Close();
    std::filesystem::remove_all(dir);
}
