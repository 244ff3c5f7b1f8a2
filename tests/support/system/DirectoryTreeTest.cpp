// Directory trees copied, deleted and made on real folders under the temporary directory.
#include "support/system/DirectoryTree.h"
#include "SystemTestHelpers.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

namespace {

// Every entry under root: relative path -> file content, or "<dir>".
std::map<std::string, std::string> DumpTree(const std::string& root)
{
    std::map<std::string, std::string> entries;
    std::error_code ignored;
    for (auto it = std::filesystem::recursive_directory_iterator(root, ignored);
         it != std::filesystem::recursive_directory_iterator(); it.increment(ignored)) {
        std::ostringstream content;
        if (!it->is_directory())
            content << std::ifstream(it->path(), std::ios::binary).rdbuf();
        entries[std::filesystem::relative(it->path(), root).string()] = it->is_directory() ? "<dir>" : content.str();
    }
    return entries;
}

bool Exists(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

} // namespace

TEST(DirectoryTree, CopiesTakeHiddenSystemAndReadOnlyFilesAndMasksOnlyVisibleOnes)
{
    const ScratchDir scratch("copy");
    for (const char* name : {"src\\top.txt", "src\\a\\b\\deep.txt", "src\\h.txt", "src\\s.txt", "src\\a\\r.txt",
                             "src\\c.dat", "src\\empty\\", "dst\\top.txt", "masked\\"})
        scratch.Write(name, name);
    SetFileAttributesA((scratch / "src\\h.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
    SetFileAttributesA((scratch / "src\\s.txt").c_str(), FILE_ATTRIBUTE_SYSTEM);
    SetFileAttributesA((scratch / "src\\a\\r.txt").c_str(), FILE_ATTRIBUTE_READONLY);

    EXPECT_EQ(CopyTree((scratch / "src").c_str(), (scratch / "dst\\").c_str()), 1);
    const std::map<std::string, std::string> copied = {
        {"a", "<dir>"}, {"a\\b", "<dir>"}, {"a\\b\\deep.txt", "src\\a\\b\\deep.txt"}, {"a\\r.txt", "src\\a\\r.txt"},
        {"c.dat", "src\\c.dat"}, {"empty", "<dir>"}, {"h.txt", "src\\h.txt"}, {"s.txt", "src\\s.txt"},
        {"top.txt", "src\\top.txt"}, // overwritten
    };
    EXPECT_EQ(DumpTree(scratch / "dst"), copied);
    EXPECT_EQ(CopyTree((scratch / "src").c_str(), (scratch / "missing").c_str()), 0) << "missing target";
    EXPECT_FALSE(Exists(scratch / "missing")) << "missing target made";
    EXPECT_EQ(CopyTree((scratch / "none").c_str(), (scratch / "dst").c_str()), 0) << "missing source";

    const std::string src = scratch / "src\\", masked = scratch / "masked\\";
    scratch.Write("masked\\top.txt", "old");
    EXPECT_EQ(CopyFilesByMask(src.c_str(), masked.c_str(), "*.txt", 0), 1);
    EXPECT_EQ(DumpTree(masked), (std::map<std::string, std::string>{{"top.txt", "old"}})) << "hidden, system skipped";
    EXPECT_EQ(CopyFilesByMask(src.c_str(), masked.c_str(), "*.txt", 1), 1);
    EXPECT_EQ(DumpTree(masked), (std::map<std::string, std::string>{{"top.txt", "src\\top.txt"}})) << "overwriting";
}

TEST(DirectoryTree, DeleteTreeRemovesReadOnlyEntriesAndReportsWhatStays)
{
    const ScratchDir scratch("delete");
    for (const char* name : {"tree\\a\\b\\f.txt", "tree\\r.txt", "outside.txt", "held\\open.txt", "held\\other.txt"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "tree\\r.txt").c_str(), FILE_ATTRIBUTE_READONLY);
    SetFileAttributesA((scratch / "tree\\a\\b").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(DeleteTree((scratch / "tree\\").c_str()), 0);
    EXPECT_FALSE(Exists(scratch / "tree")) << "tree removed";
    EXPECT_TRUE(Exists(scratch / "outside.txt")) << "neighbour kept";
    EXPECT_EQ(DeleteTree((scratch / "tree").c_str()), 0) << "missing directory";
    EXPECT_EQ(DeleteTree(""), -1) << "empty text: nothing removed";

    // A file held open without delete sharing stays, and so does its directory.
    const HANDLE open = CreateFileA((scratch / "held\\open.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    EXPECT_EQ(DeleteTreeWait((scratch / "held").c_str(), 1), -1) << "directory with a held file";
    EXPECT_EQ(DumpTree(scratch / "held"), (std::map<std::string, std::string>{{"open.txt", "x"}})) << "left";
    CloseHandle(open);
    EXPECT_EQ(DeleteTreeWait((scratch / "held").c_str(), 1), 0) << "after closing";
}

TEST(DirectoryTree, DeleteTreeRemovesLinksWithoutEnteringThem)
{
    const ScratchDir scratch("links");
    scratch.Write("target\\keep.txt");
    scratch.Write("tree\\f.txt");
    const std::string link = scratch / "tree\\link";
    CreateSymbolicLinkA(link.c_str(), (scratch / "target").c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY | 0x2);
    if (!(GetFileAttributesA(link.c_str()) & FILE_ATTRIBUTE_REPARSE_POINT) || !Exists(link))
        GTEST_SKIP() << "the system makes no directory links here";
    EXPECT_EQ(DeleteTree((scratch / "tree").c_str()), 0);
    EXPECT_FALSE(Exists(scratch / "tree")) << "tree with its link";
    EXPECT_TRUE(Exists(scratch / "target\\keep.txt")) << "file behind the link";
}

TEST(DirectoryTree, DeleteFilesAndMoveFileWaitWorkOnMatchingFilesOnly)
{
    const ScratchDir scratch("files");
    for (const char* name : {"a.tmp", "b.tmp", "keep.txt", "dir.tmp\\inner.tmp", "m.txt"})
        scratch.Write(name);
    SetFileAttributesA((scratch / "b.tmp").c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(DeleteFiles((scratch / "*.tmp").c_str()), 0);
    EXPECT_EQ(DeleteFiles((scratch / "dir.tmp").c_str()), 0) << "a directory";
    EXPECT_EQ(DeleteFilesWait((scratch / "keep.txt").c_str(), 2), 0);
    EXPECT_NE(MoveFileWait((scratch / "m.txt").c_str(), (scratch / "n.txt").c_str(), 1), 0);
    EXPECT_EQ(MoveFileWait((scratch / "none").c_str(), (scratch / "n2.txt").c_str(), 1), 0) << "missing source";
    const std::map<std::string, std::string> left = {{"dir.tmp", "<dir>"}, {"dir.tmp\\inner.tmp", "x"}, {"n.txt", "x"}};
    EXPECT_EQ(DumpTree(scratch.Path()), left);
}

TEST(DirectoryTree, MakeDirTreeMakesTheDirectoryPartOnly)
{
    const ScratchDir scratch("make");
    scratch.Write("file");
    const struct { std::string path; int result; } cases[] = {
        {scratch / "x\\y\\z.txt", 1},
        {scratch / "p\\q", 1},          // no trailing backslash: q is a name
        {scratch / "file\\sub\\", 0},   // a level is a file
        {"", 1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(MakeDirTree(c.path.c_str()), c.result) << c.path;
    EXPECT_EQ(MakeDirTreeWait((scratch / "w\\").c_str(), 0), 0) << "no time to try";
    EXPECT_EQ(MakeDirTreeWait((scratch / "v\\u\\").c_str(), 1), 1);
    const std::map<std::string, std::string> made = {{"file", "x"}, {"p", "<dir>"}, {"v", "<dir>"}, {"v\\u", "<dir>"},
                                                     {"x", "<dir>"}, {"x\\y", "<dir>"}};
    EXPECT_EQ(DumpTree(scratch.Path()), made);
}
