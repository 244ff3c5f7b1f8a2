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
    std::filesystem::remove_all(dir);
    std::filesystem::create_directories(dir / "sub");
    std::ofstream(dir / "a.txt") << "12345";
    std::filesystem::current_path(dir);
    CFileFind finder;
    ASSERT_TRUE(finder.FindFile("*.*"));
    std::vector<std::string> seen; // name|path|dots, directory|length; the last entry is read after a 0 answer
    for (BOOL more = TRUE; more;) {
        more = finder.FindNextFile();
        seen.push_back(std::string(finder.GetFileName()) + "|" + finder.GetFilePath().GetString() + "|"
                       + std::to_string(finder.IsDots() * 10 + finder.IsDirectory()) + "|"
                       + std::to_string(finder.GetLength()));
    }
    std::filesystem::current_path(previous);
    std::sort(seen.begin(), seen.end());
    const std::string root = dir.string();
    EXPECT_EQ(seen, (std::vector<std::string>{"..|" + root + "\\..|11|0", ".|" + root + "\\.|11|0",
                                              "a.txt|" + root + "\\a.txt|0|5", "sub|" + root + "\\sub|1|0"}));
    EXPECT_EQ(std::string(finder.GetRoot()), root);
    finder.Close();
    EXPECT_FALSE(finder.FindNextFile()) << "after Close";
    EXPECT_FALSE(finder.FindFile((root + "\\none\\*").c_str())) << "missing directory";
}
