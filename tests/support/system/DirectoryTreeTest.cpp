// Directory trees copied, deleted and made on real folders under the temporary directory.
#include "support/system/DirectoryTree.h"
#include "ScratchDir.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
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
        const std::string relative = std::filesystem::relative(it->path(), root).string();
        if (it->is_directory()) {
            entries[relative] = "<dir>";
        } else {
            std::ostringstream content;
            content << std::ifstream(it->path(), std::ios::binary).rdbuf();
            entries[relative] = content.str();
        }
    }
    return entries;
}

bool Exists(const std::string& path)
{
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

void SetAttributes(const std::string& path, DWORD attributes)
{
    ASSERT_TRUE(SetFileAttributesA(path.c_str(), attributes)) << "attributes of " << path;
}

} // namespace

TEST(DirectoryTree, CopyTreeCopiesHiddenSystemAndReadOnlyEntries)
{
    const ScratchDir scratch("copy");
    scratch.Write("src\\top.txt", "top");
    scratch.Write("src\\a\\b\\deep.txt", "deep");
    scratch.Write("src\\hidden.txt", "h");
    scratch.Write("src\\system.txt", "s");
    scratch.Write("src\\a\\readonly.txt", "r");
    std::filesystem::create_directories(scratch / "src\\empty");
    std::filesystem::create_directories(scratch / "dst");
    scratch.Write("dst\\top.txt", "old");
    SetAttributes(scratch / "src\\hidden.txt", FILE_ATTRIBUTE_HIDDEN);
    SetAttributes(scratch / "src\\system.txt", FILE_ATTRIBUTE_SYSTEM);
    SetAttributes(scratch / "src\\a\\readonly.txt", FILE_ATTRIBUTE_READONLY);

    EXPECT_EQ(CopyTree((scratch / "src").c_str(), (scratch / "dst\\").c_str()), 1);
    const std::map<std::string, std::string> expected = {
        {"a", "<dir>"}, {"a\\b", "<dir>"}, {"a\\b\\deep.txt", "deep"}, {"a\\readonly.txt", "r"},
        {"empty", "<dir>"}, {"hidden.txt", "h"}, {"system.txt", "s"}, {"top.txt", "top"},
    };
    EXPECT_EQ(DumpTree(scratch / "dst"), expected) << "the copy, the older top.txt overwritten";
    EXPECT_NE(GetFileAttributesA((scratch / "dst\\hidden.txt").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u) << "attributes copied";

    EXPECT_EQ(CopyTree((scratch / "src").c_str(), (scratch / "missing").c_str()), 0) << "missing target";
    EXPECT_FALSE(Exists(scratch / "missing")) << "missing target not made";
    EXPECT_EQ(CopyTree((scratch / "none").c_str(), (scratch / "dst").c_str()), 0) << "missing source";
    EXPECT_EQ(CopyTree(nullptr, nullptr), 0) << "null texts";
}

TEST(DirectoryTree, CopyFilesByMaskCopiesOnlyVisiblePlainFiles)
{
    const ScratchDir scratch("mask");
    scratch.Write("src\\a.txt", "new");
    scratch.Write("src\\b.txt", "new");
    scratch.Write("src\\c.dat", "new");
    scratch.Write("src\\h.txt", "new");
    scratch.Write("src\\d.txt\\inner.txt", "new"); // a directory that matches the mask
    scratch.Write("dst\\b.txt", "old");
    SetAttributes(scratch / "src\\h.txt", FILE_ATTRIBUTE_HIDDEN);
    const std::string src = scratch / "src\\", dst = scratch / "dst\\";

    EXPECT_EQ(CopyFilesByMask(src.c_str(), dst.c_str(), "*.txt", 0), 1);
    const std::map<std::string, std::string> kept = {{"a.txt", "new"}, {"b.txt", "old"}};
    EXPECT_EQ(DumpTree(scratch / "dst"), kept) << "without overwriting";
    EXPECT_EQ(CopyFilesByMask(src.c_str(), dst.c_str(), "*.txt", 1), 1);
    const std::map<std::string, std::string> overwritten = {{"a.txt", "new"}, {"b.txt", "new"}};
    EXPECT_EQ(DumpTree(scratch / "dst"), overwritten) << "overwriting";
}

TEST(DirectoryTree, DeleteTreeRemovesReadOnlyEntriesAndReportsWhatStays)
{
    const ScratchDir scratch("delete");
    scratch.Write("tree\\a\\b\\f.txt");
    scratch.Write("tree\\r.txt");
    scratch.Write("outside.txt");
    SetAttributes(scratch / "tree\\r.txt", FILE_ATTRIBUTE_READONLY);
    SetAttributes(scratch / "tree\\a\\b", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(DeleteTree((scratch / "tree\\").c_str()), 0) << "trailing backslash";
    EXPECT_FALSE(Exists(scratch / "tree")) << "tree removed";
    EXPECT_TRUE(Exists(scratch / "outside.txt")) << "neighbour kept";
    EXPECT_EQ(DeleteTree((scratch / "tree").c_str()), 0) << "missing directory";

    // A file held open without delete sharing stays, and so does its directory.
    scratch.Write("held\\open.txt");
    scratch.Write("held\\other.txt");
    const HANDLE open = CreateFileA((scratch / "held\\open.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(open, INVALID_HANDLE_VALUE);
    EXPECT_EQ(DeleteTreeWait((scratch / "held").c_str(), 1), -1) << "directory with a held file";
    EXPECT_TRUE(Exists(scratch / "held\\open.txt")) << "held file";
    EXPECT_FALSE(Exists(scratch / "held\\other.txt")) << "the other file";
    CloseHandle(open);
    EXPECT_EQ(DeleteTreeWait((scratch / "held").c_str(), 1), 0) << "after closing";
    EXPECT_EQ(DeleteTree(""), -1) << "empty text: nothing searched is removed";
}

TEST(DirectoryTree, DeleteTreeRemovesLinksWithoutEnteringThem)
{
    const ScratchDir scratch("links");
    scratch.Write("target\\keep.txt");
    scratch.Write("tree\\f.txt");
    const std::string link = scratch / "tree\\link";
    CreateSymbolicLinkA(link.c_str(), (scratch / "target").c_str(), SYMBOLIC_LINK_FLAG_DIRECTORY | 0x2);
    const DWORD attributes = GetFileAttributesA(link.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        GTEST_SKIP() << "the system makes no directory links here";
    EXPECT_EQ(DeleteTree((scratch / "tree").c_str()), 0);
    EXPECT_FALSE(Exists(scratch / "tree")) << "tree with its link";
    EXPECT_TRUE(Exists(scratch / "target\\keep.txt")) << "file behind the link";
}

TEST(DirectoryTree, DeleteFilesRemovesMatchingFilesOnly)
{
    const ScratchDir scratch("files");
    scratch.Write("a.tmp");
    scratch.Write("b.tmp");
    scratch.Write("keep.txt");
    scratch.Write("dir.tmp\\inner.tmp");
    SetAttributes(scratch / "b.tmp", FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(DeleteFiles((scratch / "*.tmp").c_str()), 0);
    const std::map<std::string, std::string> left = {{"dir.tmp", "<dir>"}, {"dir.tmp\\inner.tmp", "x"}, {"keep.txt", "x"}};
    EXPECT_EQ(DumpTree(scratch.Path()), left) << "after deleting *.tmp";
    EXPECT_EQ(DeleteFilesWait((scratch / "keep.txt").c_str(), 2), 0);
    EXPECT_FALSE(Exists(scratch / "keep.txt")) << "single file";
    EXPECT_EQ(DeleteFiles((scratch / "dir.tmp").c_str()), 0) << "a directory";
    EXPECT_TRUE(Exists(scratch / "dir.tmp\\inner.tmp")) << "directory named by the pattern";
    EXPECT_EQ(DeleteFiles(nullptr), 0) << "null pattern";
}

TEST(DirectoryTree, MakeDirTreeMakesTheDirectoryPartOnly)
{
    const ScratchDir scratch("make");
    scratch.Write("file");
    const struct {
        std::string path;
        int result;
        std::string made, notMade;
    } cases[] = {
        {scratch / "x\\y\\z.txt", 1, "x\\y", "x\\y\\z.txt"},
        {scratch / "p\\q", 1, "p", "p\\q"},             // no trailing backslash: q is a name
        {scratch / "m\\n\\", 1, "m\\n", ""},
        {scratch / "file\\sub\\", 0, "", "file\\sub"},  // a level is a file
        {"", 1, "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MakeDirTree(c.path.c_str()), c.result) << c.path;
        if (!c.made.empty()) {
            EXPECT_TRUE(Exists(scratch / c.made)) << c.made << " made for " << c.path;
        }
        if (!c.notMade.empty()) {
            EXPECT_FALSE(Exists(scratch / c.notMade)) << c.notMade << " not made for " << c.path;
        }
    }
    EXPECT_EQ(MakeDirTreeWait((scratch / "w\\").c_str(), 0), 0) << "no time to try";
    EXPECT_FALSE(Exists(scratch / "w")) << "nothing tried";
    EXPECT_EQ(MakeDirTreeWait((scratch / "w\\v\\").c_str(), 1), 1);
    EXPECT_TRUE(Exists(scratch / "w\\v")) << "made within the wait";
}

TEST(DirectoryTree, MoveFileWaitMovesOnlyToAFreeName)
{
    const ScratchDir scratch("move");
    scratch.Write("a.txt", "a");
    scratch.Write("b.txt", "b");
    EXPECT_NE(MoveFileWait((scratch / "a.txt").c_str(), (scratch / "c.txt").c_str(), 1), 0);
    EXPECT_EQ(MoveFileWait((scratch / "b.txt").c_str(), (scratch / "c.txt").c_str(), 1), 0) << "target exists";
    const std::map<std::string, std::string> after = {{"b.txt", "b"}, {"c.txt", "a"}};
    EXPECT_EQ(DumpTree(scratch.Path()), after);
}
