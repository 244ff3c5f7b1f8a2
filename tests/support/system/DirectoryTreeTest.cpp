// Directory trees copied, deleted and made on real folders under the temporary directory.
#include "SystemTestHelpers.h"

#include <set>

namespace {

// Every entry under root as "relative path=content", a directory's content empty.
std::set<std::string> DumpTree(const std::string& root)
{
    std::set<std::string> entries;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::string content = entry.is_directory() ? "" : ReadFileText(entry.path().string());
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
    EXPECT_EQ(0, CopyTree((scratch / "src").c_str(), (scratch / "missing").c_str())) << "missing target";
    EXPECT_EQ(0, CopyTree((scratch / "none").c_str(), (scratch / "dst").c_str())) << "missing source";

    const std::string src = scratch / "src\\", masked = scratch / "masked\\";
    EXPECT_EQ(1, CopyFilesByMask(src.c_str(), masked.c_str(), "*.txt", 0));
    EXPECT_EQ(std::set<std::string>{"top.txt=masked\\top.txt"}, DumpTree(masked)) << "kept; hidden, system skipped";
    CopyFilesByMask(src.c_str(), masked.c_str(), "*.txt", 1);
    EXPECT_EQ(std::set<std::string>{"top.txt=src\\top.txt"}, DumpTree(masked)) << "overwriting";
}

// Read-only entries go, links are removed without entering them, a held file stays with its folder.
TEST(DirectoryTree, DeleteTreeRemovesReadOnlyEntriesAndLinksAndReportsWhatStays)
{
    const ScratchDir scratch("delete");
    for (const char* name : {"tree\\a\\b\\f.txt", "tree\\r.txt", "target\\keep.txt", "held\\open.txt"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "tree\\r.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    SetFileAttributesA((scratch / "tree\\a\\b").c_str(), FILE_ATTRIBUTE_READONLY);
    const bool linked = CreateSymbolicLinkA((scratch / "tree\\link").c_str(), (scratch / "target").c_str(),
                                            SYMBOLIC_LINK_FLAG_DIRECTORY | 0x2);
    EXPECT_EQ(0, DeleteTree((scratch / "tree\\").c_str()));
    EXPECT_EQ(0, DeleteTree((scratch / "tree").c_str())) << "missing directory";
    EXPECT_EQ(-1, DeleteTree("")) << "empty text: nothing removed";
    const HANDLE open = CreateFileA((scratch / "held\\open.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(-1, DeleteTreeWait((scratch / "held").c_str(), 1)) << "directory with a held file";
    const std::set<std::string> left = {"held=", "held\\open.txt=held\\open.txt", "target=",
                                        "target\\keep.txt=target\\keep.txt"};
    EXPECT_EQ(left, DumpTree(scratch.path)) << "links made: " << linked;
    CloseHandle(open);
    EXPECT_EQ(0, DeleteTreeWait((scratch / "held").c_str(), 1)) << "after closing";
}

// DeleteFiles takes matching files only; MakeDirTree makes the directory part only.
TEST(DirectoryTree, DeleteFilesTakesMatchingFilesAndMakeDirTreeTheDirectoryPartOnly)
{
    const ScratchDir scratch("files");
    for (const char* name : {"a.tmp", "b.tmp", "keep.txt", "dir.tmp\\inner.tmp", "m.txt", "file"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "b.tmp").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(0, DeleteFiles((scratch / "*.tmp").c_str()));
    EXPECT_EQ(0, DeleteFiles((scratch / "dir.tmp").c_str())) << "a directory";
    EXPECT_EQ(0, DeleteFilesWait((scratch / "keep.txt").c_str(), 2));
    EXPECT_NE(0, MoveFileWait((scratch / "m.txt").c_str(), (scratch / "n.txt").c_str(), 1));
    EXPECT_EQ(0, MoveFileWait((scratch / "none").c_str(), (scratch / "n2.txt").c_str(), 1)) << "missing source";
    EXPECT_EQ(1, MakeDirTree((scratch / "x\\y\\z.txt").c_str()));
    EXPECT_EQ(1, MakeDirTree((scratch / "p\\q").c_str())) << "no trailing backslash: q is a name";
    EXPECT_EQ(0, MakeDirTree((scratch / "file\\sub\\").c_str())) << "a level is a file";
    EXPECT_EQ(1, MakeDirTree("")) << "no directory part";
    EXPECT_EQ(0, MakeDirTreeWait((scratch / "w\\").c_str(), 0)) << "no time to try";
    EXPECT_EQ(1, MakeDirTreeWait((scratch / "v\\u\\").c_str(), 1));
    const std::set<std::string> left = {"dir.tmp=", "dir.tmp\\inner.tmp=dir.tmp\\inner.tmp", "file=file",
                                        "n.txt=m.txt", "p=", "v=", "v\\u=", "x=", "x\\y="};
    EXPECT_EQ(left, DumpTree(scratch.path));
}
