// Lists of files and sub-directories and the next free numbered names, on real folders.
#include "support/system/DirectoryListing.h"
#include "SystemTestHelpers.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::vector<std::string> Sorted(const std::vector<CString>& list)
{
    std::vector<std::string> texts(list.begin(), list.end());
    std::sort(texts.begin(), texts.end());
    return texts;
}

} // namespace

TEST(DirectoryListing, ListFilesDropsTheSystemsShortNameMatches)
{
    const ScratchDir scratch("list");
    for (const char* name : {"page.htm", "page.html", "Other.HTM", "hidden.htm", "notes.txt", "sub.htm\\f.htm"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "hidden.htm").c_str(), FILE_ATTRIBUTE_HIDDEN);
    scratch.Write("alone\\page.html");
    WIN32_FIND_DATAA found;
    const HANDLE search = FindFirstFileA((scratch / "alone\\*.htm").c_str(), &found);
    EXPECT_NE(search, INVALID_HANDLE_VALUE) << "the system matches page.html by its short name PAGE~xxx.HTM";
    FindClose(search);
    std::vector<CString> list = {"kept"};
    ListFiles((scratch / "*.htm").c_str(), list);
    EXPECT_EQ(Sorted(list), (std::vector<std::string>{"Other.HTM", "kept", "page.htm"})) << "*.htm";
    list.clear();
    ListFiles((scratch / "page.*").c_str(), list);
    EXPECT_EQ(Sorted(list), (std::vector<std::string>{"page.htm", "page.html"})) << "page.*";
    list.clear();
    ListFiles(nullptr, list);
    ListFiles((scratch / "none\\*.*").c_str(), list);
    EXPECT_EQ(list.size(), 0u) << "null pattern and missing directory";
}

TEST(DirectoryListing, ListSubdirsListsVisibleDirectories)
{
    const ScratchDir scratch("subdirs");
    for (const char* name : {"run1\\f", "run2\\f", "data\\f", "hidden\\f", "runfile"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "hidden").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY);
    const struct { std::string pattern; std::vector<std::string> expected; } cases[] = {
        {scratch / "run*", {"run1", "run2"}},
        {scratch / "*1", {"run1"}},                  // a wild card first
        {scratch / "data", {"data", "run1", "run2"}}, // no wild card: the directory part is listed
        {scratch / "none\\*", {}},
    };
    for (const auto& c : cases) {
        std::vector<CString> list;
        ListSubdirs(c.pattern.c_str(), list);
        EXPECT_EQ(Sorted(list), c.expected) << c.pattern;
    }
}

TEST(DirectoryListing, ListFilesRecursiveKeepsOnlyWhatFollowsTheLastSubdirectory)
{
    const ScratchDir scratch("recursive");
    scratch.Write("sub\\f1.txt");
    scratch.Write("sub\\f2.txt");
    const std::string sub = scratch / "sub";
    std::vector<CString> list = {"stale"};
    ListFilesRecursive((scratch.Path() + "\\\\").c_str(), list);
    // The root's own "." and ".." were gathered and then dropped on entering sub.
    EXPECT_EQ(Sorted(list), (std::vector<std::string>{sub + "\\.", sub + "\\..", sub + "\\f1.txt", sub + "\\f2.txt"}));
    ListFilesRecursive("", list);
    EXPECT_EQ(list.size(), 0u) << "empty directory text";
}

TEST(DirectoryListing, NextFreeNamesCountUp)
{
    const ScratchDir scratch("next");
    for (const char* name : {"data.txt", "data1.txt", "file007.txt", "12.txt", "13.TXT", "plain", "a.b.txt",
                             "run007\\f", "run999\\f", "run01\\f", "run02\\f", "run\\f", "hidden.txt"})
        scratch.Write(name);
    const std::string dir = scratch.Path();
    SetFileAttributesA((scratch / "hidden.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
    const struct { CString got; const char* expected; } cases[] = {
        {NextFreeFileName(dir.c_str(), "data.txt"), "data2.txt"},
        {NextFreeFileName((dir + "\\").c_str(), "file007.txt"), "file8.txt"},
        {NextFreeFileName(dir.c_str(), "12.txt"), "14.txt"},          // 13.TXT is taken, in any case
        {NextFreeFileName(dir.c_str(), "plain"), "plain1"},
        {NextFreeFileName(dir.c_str(), "a.b.txt"), "a.b1.txt"},       // split at the last dot
        {NextFreeFileName(dir.c_str(), "new.txt"), "new.txt"},
        {NextFreeFileName(dir.c_str(), "hidden.txt"), "hidden.txt"},  // hidden files are not listed
        {NextFreeDirName(dir.c_str(), "run007"), "run008"},
        {NextFreeDirName(dir.c_str(), "run999"), "run1000"},
        {NextFreeDirName(dir.c_str(), "run01"), "run03"},
        {NextFreeDirName(dir.c_str(), "run"), "run1"},
        {NextFreeDirName(dir.c_str(), "fresh"), "fresh"},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(std::string(cases[i].got), cases[i].expected) << "row " << i;
}
