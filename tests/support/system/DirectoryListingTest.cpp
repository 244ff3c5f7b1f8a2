// Lists of files and sub-directories and the next free numbered names, on real folders.
#include "SystemTestHelpers.h"

#include <algorithm>

// ListFiles and ListSubdirs append visible entries (ListFiles dropping the system's short-name matches);
// ListFilesRecursive empties the list on entering each directory, keeping only the last one's entries.
TEST(DirectoryListing, ListsAppendVisibleEntriesAndTheRecursiveOneKeepsTheLastDirectory)
{
    const ScratchDir scratch("list"), deep("recursive");
    // page.html matches "*.htm" by its short name PAGE~1.HTM at the system's search.
    for (const char* name : {"page.htm", "page.html", "Other.HTM", "hidden.htm", "sub.htm\\f.htm", "run1\\f",
                             "run2\\f", "runfile", "hide\\f"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "hidden.htm").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesA((scratch / "hide").c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY);
    deep.Write("sub\\f.txt");
    const std::string sub = deep / "sub";
    using Lister = void (*)(const char*, std::vector<CString>&);
    struct Case { Lister list; std::string pattern; std::vector<std::string> sorted; };
    const Case cases[] = {
        {ListFiles, scratch / "*.htm", {"Other.HTM", "kept", "page.htm"}},
        {ListFiles, scratch / "page.*", {"kept", "page.htm", "page.html"}},
        {ListSubdirs, scratch / "run*", {"kept", "run1", "run2"}},
        {ListSubdirs, scratch / "run1", {"kept", "run1", "run2", "sub.htm"}},   // no wild card: its directory
        {ListFilesRecursive, deep.path + "\\\\", {sub + "\\.", sub + "\\..", sub + "\\f.txt"}},
        {ListFilesRecursive, "", {}},
    };
    for (const auto& c : cases) {
        std::vector<CString> list = {"kept"};
        c.list(c.pattern.c_str(), list);
        std::vector<std::string> sorted(list.begin(), list.end());
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(c.sorted, sorted) << "[" << c.pattern << "]";
    }
}

TEST(DirectoryListing, NextFreeNamesCountUp)
{
    const ScratchDir scratch("next");
    for (const char* name : {"data.txt", "data1.txt", "file007.txt", "12.txt", "13.TXT", "a.b.txt", "plain",
                             "run007\\f", "run999\\f", "run01\\f", "run02\\f", "run\\f", "hidden.txt"})
        scratch.Write(name);
    const std::string dir = scratch.path;
    SetFileAttributesA((scratch / "hidden.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
    struct Case { CString got; const char* expected; };
    const Case cases[] = {
        {NextFreeFileName(dir.c_str(), "data.txt"), "data2.txt"},
        {NextFreeFileName((dir + "\\").c_str(), "file007.txt"), "file8.txt"},
        {NextFreeFileName(dir.c_str(), "12.txt"), "14.txt"},           // 13.TXT is taken, in any case
        {NextFreeFileName(dir.c_str(), "a.b.txt"), "a.b1.txt"},        // split at the last dot
        {NextFreeFileName(dir.c_str(), "plain"), "plain1"},
        {NextFreeFileName(dir.c_str(), "hidden.txt"), "hidden.txt"},   // hidden files are not listed
        {NextFreeDirName(dir.c_str(), "run007"), "run008"},
        {NextFreeDirName(dir.c_str(), "run999"), "run1000"},
        {NextFreeDirName(dir.c_str(), "run01"), "run03"},
        {NextFreeDirName(dir.c_str(), "run"), "run1"},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].expected, std::string(cases[i].got)) << "row " << i;
}
