// Paths taken apart and put together, on real folders under the temporary directory.
#include "support/system/Paths.h"
#include "SystemTestHelpers.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

TEST(Paths, SplitPathGivesDriveDirectoryNameAndExtension)
{
    const std::string n255(255, 'n'), n256(256, 'n');
    const std::string longestName = n255 + ".e", longName = n256 + ".e", longDir = "C:\\" + n256 + "\\f",
                      longExt = "f." + n255;
    const struct {
        const char* path;
        std::string expected; // drive|dir|name|ext
        int raised;
    } cases[] = {
        {"C:\\dir\\file.ext", "C:|\\dir\\|file|.ext", 0},
        {" ..\\ ", "|..\\||", 0},                    // trimmed before the special texts
        {".", "|.\\||", 0},
        {"...", "||..|.", 0},                        // not special: split by the runtime
        {"C:file", "C:||file|", 0},
        {"/x/y.tar/", "|/x/y.tar/||", 0},
        {nullptr, "|||", 0},
        {longestName.c_str(), "||" + n255 + "|.e", 0},
        {longName.c_str(), "|||", 1},                // a name of 256 characters
        {longDir.c_str(), "|||", 1},                 // a directory of 258 characters
        {longExt.c_str(), "|||", 1},                 // an extension of 256 characters
    };
    for (const auto& c : cases) {
        InvalidParameterCounter counter;
        CString drive("old"), dir("old"), name("old"), ext("old");
        SplitPath(c.path, drive, dir, name, ext);
        EXPECT_EQ(std::string(drive) + "|" + dir.GetString() + "|" + name.GetString() + "|" + ext.GetString(), c.expected)
            << (c.path ? c.path : "(null)");
        EXPECT_EQ(counter.Raised(), c.raised) << "conditions raised for " << (c.path ? c.path : "(null)");
    }
}

TEST(Paths, SplitDirAndNameKeepsAnExistingDirectoryWhole)
{
    const ScratchDir scratch("split");
    scratch.Write("sub\\f.txt");
    const std::string sub = scratch / "sub";
    const struct { std::string path, dir, name; int result; } cases[] = {
        {sub, sub + "\\", "kept", 0},             // not split; the name part is left alone
        {sub + "  ", sub + "\\", "kept", 0},      // the system ignores trailing blanks; the part is trimmed
        {sub + "\\*", sub + "\\", "*", 1},        // a pattern is split even where it matches "."
        {" C:\\x\\ y.txt ", "C:\\x\\", "y.txt", 1},
        {"", "", "", 0},
    };
    for (const auto& c : cases) {
        CString dir("kept"), name("kept");
        EXPECT_EQ(SplitDirAndName(c.path.c_str(), dir, name), c.result) << c.path;
        EXPECT_EQ(std::string(dir) + "|" + name.GetString(), c.dir + "|" + c.name) << c.path;
    }
}

TEST(Paths, JoinedAndRelativeTexts)
{
    const std::string dir258(258, 'd'), dir259(259, 'd');
    const struct { CString got; std::string expected; } cases[] = {
        {JoinPath("name", "C:\\dir"), "C:\\dir\\name"},
        {JoinPath("sub\\name", "C:\\dir\\"), "C:\\dir\\sub\\name"},
        {JoinPath("..\\name", "C:\\dir\\sub"), "C:\\dir\\name"},
        {JoinPath("D:\\name", "C:\\dir"), "D:\\name"},
        {JoinPath("", "C:\\dir"), ""},
        {JoinPath("name", ""), "name"},
        {JoinPath("n", dir258.c_str()), dir258 + "\\n"},             // the backslash fills the buffer
        {JoinPath("n", dir259.c_str()), ""},                         // no room for the backslash
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b\\"), "..\\x\\f.txt"},
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b"), ".\\x\\f.txt"}, // b counts only with its backslash
        {MakeRelativePathSimple(" C:\\a\\b\\c.txt ", "C:\\a\\"), ".\\b\\c.txt"},
        {MakeRelativePathSimple("C:\\a\\b\\", "C:\\a\\b\\c\\d\\"), "..\\..\\"},
        {MakeRelativePathSimple("c:\\a\\f", "C:\\a\\"), "c:\\a\\f"},   // drive letters differ in case
        {MakeRelativePathSimple("\\\\srv\\f", "\\\\srv\\"), "\\\\srv\\f"},
        {MakeRelativePathSimple(".\\f", ".\\"), ".\\f"},
        {MakeRelativePathSimple("Cx\\f", "Cx\\"), "Cx\\f"},           // no colon after the letter
        {MakeRelativePathSimple("C:\\f", ""), "C:\\f"},
        {MakeRelativePathSimple(nullptr, "C:\\"), ""},
        {MakeRelativePath("C:\\a\\b\\f.txt", "C:\\a\\c"), "..\\b\\f.txt"},
        {MakeRelativePath("D:\\a\\f.txt", "C:\\a"), "D:\\a\\f.txt"},
        {MakeRelativePath("b\\f.txt", "C:\\a"), "b\\f.txt"},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(std::string(cases[i].got), cases[i].expected) << "row " << i;
}

TEST(Paths, AbsoluteFormsRestoreTheCurrentDirectory)
{
    const ScratchDir scratch("absolute");
    scratch.Write("sub\\f.txt");
    char before[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, before);
    const std::string root = scratch.Path(), longPath = "C:\\" + std::string(300, 'p');
    EXPECT_EQ(std::string(MakeAbsolutePathFrom(" f.txt ", (root + "\\").c_str())), root + "\\f.txt");
    EXPECT_EQ(std::string(MakeAbsolutePathFrom("..\\g", (root + "\\sub").c_str())), root + "\\g");
    EXPECT_EQ(std::string(MakeAbsolutePathFrom(longPath.c_str(), root.c_str())), longPath) << "no short form";
    EXPECT_EQ(std::string(MakeAbsolutePath("a\\..\\b/c")), std::string(before) + "\\b\\c");
    EXPECT_EQ(std::string(MakeAbsolutePath(longPath.c_str())), longPath);
    char after[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, after);
    EXPECT_STREQ(after, before) << "current directory after the calls";
}

TEST(Paths, GetShortPathGivesTheSystemsShortNameOfExistingFiles)
{
    const ScratchDir scratch("short");
    scratch.Write("a long name.text");
    const std::string path = scratch / "a long name.text", missing = scratch / "missing name.text";
    char expected[MAX_PATH] = {};
    ASSERT_NE(GetShortPathNameA(path.c_str(), expected, MAX_PATH), 0u);
    CString err("stale");
    EXPECT_EQ(std::string(GetShortPath(path.c_str(), &err)) + "|" + err.GetString(), std::string(expected) + "|");
    err = "stale";
    EXPECT_EQ(std::string(GetShortPath(missing.c_str(), &err)) + "|" + err.GetString(), missing + "|") << "missing file";
}
