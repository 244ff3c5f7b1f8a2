// Paths taken apart and put together, on real folders under the temporary directory.
#include "SystemTestHelpers.h"

TEST(Paths, SplitPathGivesDriveDirectoryNameAndExtension)
{
    const std::string n255(255, 'n'), n256(256, 'n');
    const std::string longest = n255 + ".e", longName = n256 + ".e", longDir = "C:\\" + n256 + "\\f";
    const std::string longExt = "f." + n255;
    struct Case { const char* path; std::string expected; };   // expected: drive|dir|name|ext|conditions raised
    const Case cases[] = {
        {"C:\\dir\\file.ext", "C:|\\dir\\|file|.ext|0"},
        {" ..\\ ", "|..\\|||0"},   // trimmed before the special texts
        {nullptr, "||||0"},
        {longest.c_str(), "||" + n255 + "|.e|0"},
        {longName.c_str(), "||||1"},   // a name of 256 characters
        {longDir.c_str(), "||||1"},    // a directory of 258 characters
        {longExt.c_str(), "||||1"},    // an extension of 256 characters
    };
    for (const auto& c : cases) {
        CString drive("old"), dir("old"), name("old"), ext("old");
        const int raised = ConditionsRaised([&] { SplitPath(c.path, drive, dir, name, ext); });
        EXPECT_EQ(c.expected, std::string(drive) + "|" + dir.GetString() + "|" + name.GetString() + "|" +
                                  ext.GetString() + "|" + std::to_string(raised))
            << (c.path ? c.path : "(null)");
    }
}

TEST(Paths, SplitDirAndNameKeepsAnExistingDirectoryWhole)
{
    const ScratchDir scratch("split");
    scratch.Write("sub\\");
    const std::string sub = scratch / "sub";
    struct Case { std::string path, expected; };   // expected: result|directory part|name part
    const Case cases[] = {
        {sub + "  ", "0|" + sub + "\\|kept"},   // not split, trimmed; the name part is left alone
        {sub + "\\*", "1|" + sub + "\\|*"},     // a pattern is split even where it matches "."
        {" C:\\x\\ y.txt ", "1|C:\\x\\|y.txt"},
    };
    for (const auto& c : cases) {
        CString dir("kept"), name("kept");
        const int result = SplitDirAndName(c.path.c_str(), dir, name);
        EXPECT_EQ(c.expected, std::to_string(result) + "|" + dir.GetString() + "|" + name.GetString()) << c.path;
    }
}

// JoinPath by the shell's rules within MAX_PATH, MakeRelativePathSimple by comparing texts, the
// absolute forms against a base entered for the call only, short forms of existing files only.
TEST(Paths, JoinedRelativeAbsoluteAndShortFormsFollowTheirBase)
{
    const ScratchDir scratch("forms");
    scratch.Write("sub\\a long name.text");
    const std::string root = scratch.path, sub = scratch / "sub", longPath = "C:\\" + std::string(300, 'p');
    const std::string dir258(258, 'd'), dir259(259, 'd'), current = std::filesystem::current_path().string();
    char shortName[MAX_PATH] = "";
    ASSERT_NE(0u, GetShortPathNameA((sub + "\\a long name.text").c_str(), shortName, MAX_PATH));
    CString err("stale");
    struct Case { CString got; std::string expected; };
    const Case cases[] = {
        {JoinPath("name", "C:\\dir"), "C:\\dir\\name"},
        {JoinPath("..\\name", "C:\\dir\\sub"), "C:\\dir\\name"},
        {JoinPath("", "C:\\dir"), ""},
        {JoinPath("n", dir258.c_str()), dir258 + "\\n"},   // the backslash fills the buffer
        {JoinPath("n", dir259.c_str()), ""},               // no room for the backslash
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b\\"), "..\\x\\f.txt"},
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b"), ".\\x\\f.txt"},   // b counts only with its backslash
        {MakeRelativePathSimple(" C:\\a\\b\\c.txt ", "C:\\a\\"), ".\\b\\c.txt"},
        {MakeRelativePathSimple("C:\\a\\b\\", "C:\\a\\b\\c\\d\\"), "..\\..\\"},
        {MakeRelativePathSimple("c:\\a\\f", "C:\\a\\"), "c:\\a\\f"},   // drive letters differ in case
        {MakeRelativePathSimple("Cx\\f", "Cx\\"), "Cx\\f"},             // no colon after the letter
        {MakeRelativePathSimple(nullptr, "C:\\"), ""},
        {MakeRelativePath("C:\\a\\b\\f.txt", "C:\\a\\c"), "..\\b\\f.txt"},
        {MakeRelativePath("b\\f.txt", "C:\\a"), "b\\f.txt"},
        {MakeAbsolutePathFrom(" f.txt ", (root + "\\").c_str()), root + "\\f.txt"},
        {MakeAbsolutePathFrom("..\\g", sub.c_str()), root + "\\g"},
        {MakeAbsolutePathFrom(longPath.c_str(), root.c_str()), longPath},   // no short form
        {MakeAbsolutePath("a\\..\\b/c"), current + "\\b\\c"},
        {GetShortPath((sub + "\\a long name.text").c_str(), &err), shortName},
        {GetShortPath((sub + "\\missing name.text").c_str(), &err), sub + "\\missing name.text"},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].expected, std::string(cases[i].got)) << "row " << i;
    EXPECT_EQ("", std::string(err)) << "the error text of a short form";
    EXPECT_EQ(current, std::filesystem::current_path().string()) << "the current directory after the calls";
}
