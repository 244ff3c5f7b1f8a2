// Directory trees copied, deleted and made on real folders under the temporary directory.
#include "SystemTestHelpers.h"

#include <set>

namespace {

// Every entry under root as "relative path=content", a directory's content empty.
std::set<std::string> DumpTree(const std::string& root)
{
    std::set<std::string> entries;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        std::string content;
        std::ifstream(entry.path()) >> content;   // a directory's stays empty; the names hold no blanks
        entries.insert(std::filesystem::relative(entry.path(), root).string() + "=" + content);
    }
    return entries;
}

} // namespace

TEST(DirectoryTree, CopiesTakeHiddenSystemAndReadOnlyFilesAndMasksOnlyVisibleOnes)
{
    const ScratchDir scratch("copy");
    for (const char* name : {"src\\top.txt", "src\\a\\b\\deep.txt", "src\\h.txt", "src\\s.txt", "src\\a\\r.txt",
                             "src\\empty\\", "dst\\top.txt", "masked\\top.txt"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "src\\h.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesA((scratch / "src\\s.txt").c_str(), FILE_ATTRIBUTE_SYSTEM);
    SetFileAttributesA((scratch / "src\\a\\r.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(1, CopyTree((scratch / "src").c_str(), (scratch / "dst\\").c_str()));
    const std::set<std::string> copied = {"a=", "a\\b=", "a\\b\\deep.txt=src\\a\\b\\deep.txt", "a\\r.txt=src\\a\\r.txt",
                                          "empty=", "h.txt=src\\h.txt", "s.txt=src\\s.txt", "top.txt=src\\top.txt"};
    EXPECT_EQ(copied, DumpTree(scratch / "dst")) << "top.txt overwritten";

    EXPECT_EQ(1, CopyFilesByMask((scratch / "src\\").c_str(), (scratch / "masked\\").c_str(), "*.txt", 0));
    EXPECT_EQ(std::set<std::string>{"top.txt=masked\\top.txt"}, DumpTree(scratch / "masked")) << "visible only";
}

// DeleteTree removes read-only entries and links without entering them; DeleteFiles takes matching
// files only; MakeDirTree makes the directory part only, and its wait without seconds not even that.
TEST(DirectoryTree, DeletionsTakeOnlyTheirEntriesAndMakeDirTreeMakesTheDirectoryPartOnly)
{
    const ScratchDir scratch("delete");
    for (const char* name : {"tree\\a\\b\\f.txt", "tree\\r.txt", "target\\keep.txt", "a.tmp", "b.tmp", "keep.txt",
                             "dir.tmp\\inner.tmp", "m.txt", "file"})
        scratch.Write(name);
    for (const char* name : {"tree\\r.txt", "tree\\a\\b", "b.tmp"})
        SetFileAttributesA((scratch / name).c_str(), FILE_ATTRIBUTE_READONLY);
    const bool linked = CreateSymbolicLinkA((scratch / "tree\\link").c_str(), (scratch / "target").c_str(),
                                            SYMBOLIC_LINK_FLAG_DIRECTORY | 0x2);
    // The waits end as soon as the change shows, long before their 3-second limits.
    const ULONGLONG start = GetTickCount64();
    EXPECT_EQ(0, DeleteTreeWait((scratch / "tree\\").c_str(), 3));
    EXPECT_EQ(0, DeleteFilesWait((scratch / "keep.txt").c_str(), 3));
    EXPECT_NE(0, MoveFileWait((scratch / "m.txt").c_str(), (scratch / "n.txt").c_str(), 3));
    EXPECT_GT(1500u, GetTickCount64() - start) << "milliseconds the three waits took";
    EXPECT_EQ(-1, DeleteTree("")) << "empty text: nothing removed";
    EXPECT_EQ(0, DeleteFiles((scratch / "*.tmp").c_str()));
    EXPECT_EQ(0, DeleteFiles((scratch / "dir.tmp").c_str())) << "a directory";
    EXPECT_EQ(1, MakeDirTree((scratch / "x\\y\\z.txt").c_str()));
    EXPECT_EQ(1, MakeDirTree((scratch / "p\\q").c_str())) << "no trailing backslash: q is a name";
    EXPECT_EQ(0, MakeDirTree((scratch / "file\\sub\\").c_str())) << "a level is a file";
    EXPECT_EQ(1, MakeDirTree("")) << "no directory part";
    EXPECT_EQ(0, MakeDirTreeWait((scratch / "never\\").c_str(), 0)) << "no second to wait: no try";
    const std::set<std::string> left = {"dir.tmp=", "dir.tmp\\inner.tmp=dir.tmp\\inner.tmp", "file=file", "n.txt=m.txt",
                                        "p=", "target=", "target\\keep.txt=target\\keep.txt", "x=", "x\\y="};
    EXPECT_EQ(left, DumpTree(scratch.path)) << "links made: " << linked;
}
