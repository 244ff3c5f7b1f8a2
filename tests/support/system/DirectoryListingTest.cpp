// Lists of files and sub-directories and the next free numbered names, on real folders.
#include "SystemTestHelpers.h"

#include <algorithm>

// ListFiles and ListSubdirs append visible entries (ListFiles dropping the system's short-name matches:
// page.html matches "*.htm" by its short name PAGE~1.HTM); ListFilesRecursive empties the list on
// entering each directory, keeping only the last one's entries. Next free names count up past the
// visible files and directories.
TEST(DirectoryListing, ListsAppendVisibleEntriesAndNextFreeNamesCountUp)
{
    const ScratchDir scratch("list");
    for (const char* name : {"page.htm", "page.html", "Other.HTM", "hidden.htm", "sub.htm\\f.htm", "run1\\f",
                             "run2\\f", "runfile", "deep\\sub\\f.txt", "data.txt", "data1.txt", "file007.txt",
                             "9.txt", "10.TXT", "a.b.txt", "run007\\f", "run999\\f", "run01\\f", "run02\\f"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "hidden.htm").c_str(), FILE_ATTRIBUTE_HIDDEN);
    const std::string sub = scratch / "deep\\sub\\";
    const struct {
        void (*list)(const char*, std::vector<CString>&);
        std::string pattern;
        std::vector<std::string> sorted;
    } cases[] = {
        {ListFiles, scratch / "*.htm", {"Other.HTM", "kept", "page.htm"}},
        {ListFiles, scratch / "page.*", {"kept", "page.htm", "page.html"}},
        {ListSubdirs, scratch / "*1", {"kept", "run01", "run1"}},
        {ListSubdirs, scratch / "deep", {"deep", "kept", "run007", "run01", "run02", "run1", "run2", "run999",
                                         "sub.htm"}},   // no wild card: all of its directory
        {ListFilesRecursive, scratch / "deep\\\\", {sub + ".", sub + "..", sub + "f.txt"}},
    };
    for (const auto& c : cases) {
        std::vector<CString> list = {"kept"};
        c.list(c.pattern.c_str(), list);
        std::vector<std::string> sorted(list.begin(), list.end());
        std::sort(sorted.begin(), sorted.end());
        EXPECT_EQ(c.sorted, sorted) << c.pattern;
    }
    const char* dir = scratch.path.c_str();
    const std::pair<CString, const char*> names[] = {
        {NextFreeFileName(dir, "data.txt"), "data2.txt"},
        {NextFreeFileName((scratch.path + "\\").c_str(), "file007.txt"), "file8.txt"},
        {NextFreeFileName(dir, "9.txt"), "11.txt"},            // 10.TXT is taken, in any case
        {NextFreeFileName(dir, "a.b.txt"), "a.b1.txt"},        // split at the last dot
        {NextFreeFileName(dir, "hidden.htm"), "hidden.htm"},   // hidden files are not listed
        {NextFreeDirName(dir, "run007"), "run008"},
        {NextFreeDirName(dir, "run999"), "run1000"},
        {NextFreeDirName(dir, "run01"), "run03"},
    };
    for (const auto& [got, expected] : names)
        EXPECT_EQ(expected, std::string(got));
}
