// Paths taken apart and put together, on real folders under the temporary directory.
#include "SystemTestHelpers.h"

// Each component holds at most 255 characters; a longer one empties all four and raises the condition.
TEST(Paths, SplitPathGivesDriveDirectoryNameAndExtension)
{
    const std::string n255(255, 'n'), n256(256, 'n');
    struct Case { std::string path, expected; };   // expected: drive|dir|name|ext|conditions raised
    const Case cases[] = {
        {"C:\\dir\\file.ext", "C:|\\dir\\|file|.ext|0"},
        {" ..\\ ", "|..\\|||0"},   // trimmed before the special texts
        {n255 + ".e", "||" + n255 + "|.e|0"},
        {n256 + ".e", "||||1"},
        {"C:\\" + n256 + "\\f", "||||1"},
        {"f." + n255, "||||1"},
    };
    for (const auto& c : cases) {
        CString drive("old"), dir("old"), name("old"), ext("old");
        Raised = 0;
        SplitPath(c.path.c_str(), drive, dir, name, ext);
        EXPECT_EQ(c.expected, std::string(drive) + "|" + dir.GetString() + "|" + name.GetString() + "|" +
                                  ext.GetString() + "|" + std::to_string(Raised));
    }
}

// SplitDirAndName keeps an existing directory whole, yet splits a pattern; JoinPath follows the shell's
// rules within MAX_PATH, MakeRelativePathSimple compares texts, the absolute forms resolve against a
// base entered for the call only, and only existing files have short forms.
TEST(Paths, ExistingDirectoriesStayWholeAndOtherFormsFollowTheirBase)
{
    const ScratchDir scratch("forms");
    scratch.Write("sub\\a long name.text");
    const std::string root = scratch.path, sub = scratch / "sub", longPath = "C:\\" + std::string(300, 'p');
    const std::string current = std::filesystem::current_path().string();
    char shortName[MAX_PATH] = "";
    ASSERT_NE(0u, GetShortPathNameA((sub + "\\a long name.text").c_str(), shortName, MAX_PATH));
    const auto split = [](const std::string& path) {
        CString dir("kept"), name("kept");
        const int result = SplitDirAndName(path.c_str(), dir, name);
        return CString(std::to_string(result).c_str()) + "|" + dir + "|" + name;
    };
    CString err("stale");
    const struct { CString got; std::string expected; } cases[] = {
        {split(sub + "  "), "0|" + sub + "\\|kept"},   // not split, trimmed; the name part is left alone
        {split(sub + "\\*"), "1|" + sub + "\\|*"},     // a pattern is split even where it matches "."
        {split(" C:\\x\\ y.txt "), "1|C:\\x\\|y.txt"},
        {JoinPath("name", "C:\\dir"), "C:\\dir\\name"},
        {JoinPath("", "C:\\dir"), ""},
        {JoinPath("n", std::string(258, 'd').c_str()), std::string(258, 'd') + "\\n"},   // fills the buffer
        {JoinPath("n", std::string(259, 'd').c_str()), ""},                              // no room for "\"
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b\\"), "..\\x\\f.txt"},
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b"), ".\\x\\f.txt"},   // b counts only with its "\"
        {MakeRelativePathSimple(" C:\\a\\b\\", "C:\\a\\b\\c\\d\\"), "..\\..\\"},
        {MakeRelativePathSimple("c:\\a\\f", "C:\\a\\"), "c:\\a\\f"},   // drive letters differ in case
        {MakeRelativePathSimple("Cx\\f", "Cx\\"), "Cx\\f"},             // no colon after the letter
        {MakeRelativePath("C:\\a\\b\\f.txt", "C:\\a\\c"), "..\\b\\f.txt"},
        {MakeAbsolutePathFrom(" ..\\f.txt ", (sub + "\\").c_str()), root + "\\f.txt"},
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
