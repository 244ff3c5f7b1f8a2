// Paths taken apart and put together, against this program's own folder.
#include "SystemTestHelpers.h"

// Each component holds at most 255 characters; a longer one empties all four and raises the condition.
TEST(Paths, SplitPathGivesDriveDirectoryNameAndExtension)
{
    const std::string n255(255, 'n'), n256(256, 'n');
    struct Case { std::string path, expected; };   // expected: drive|dir|name|ext|conditions raised
    const Case cases[] = {
        {"C:\\dir\\file.ext", "C:|\\dir\\|file|.ext|0"},
        {" ..\\ ", "|..\\|||0"},   // trimmed before the special texts
        {".", "|.\\|||0"},
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
    const std::string bin = ProgramDir.substr(0, ProgramDir.size() - 1), build = bin.substr(0, bin.size() - 3);
    const std::string current = std::filesystem::current_path().string(), dir259(259, 'd');
    const auto split = [](const std::string& path) {
        CString dir("kept"), name("kept");
        const int result = SplitDirAndName(path.c_str(), dir, name);
        return CString(std::to_string(result).c_str()) + "|" + dir + "|" + name;
    };
    CString err("stale");
    const struct { CString got; std::string expected; } cases[] = {
        {split(bin + "  "), "0|" + bin + "\\|kept"},   // not split, trimmed; the name part is left alone
        {split(bin + "\\*"), "1|" + bin + "\\|*"},     // a pattern is split even where it matches "."
        {split("y.txt"), "1||y.txt"},                 // a name alone is a result too
        {JoinPath("name", "C:\\dir"), "C:\\dir\\name"},
        {JoinPath("n", dir259.c_str()), ""},   // no room for the backslash
        {JoinPath("D:\\f", ("C:\\" + dir259.substr(4) + "\\").c_str()), "D:\\f"},   // 259 with its own: room
        {MakeRelativePathSimple(" C:\\a\\x\\f.txt ", "C:\\a\\b\\"), "..\\x\\f.txt"},
        {MakeRelativePathSimple("C:\\a\\x\\f.txt", "C:\\a\\b"), ".\\x\\f.txt"},   // b counts only with its "\"
        {MakeRelativePathSimple("c:\\a\\f", "C:\\a\\"), "c:\\a\\f"},   // drive letters differ in case
        {MakeRelativePath("C:\\a\\b\\f.txt", "C:\\a\\c"), "..\\b\\f.txt"},
        {MakeAbsolutePathFrom(" ..\\f.txt ", ProgramDir.c_str()), build + "f.txt"},
        {MakeAbsolutePathFrom(("C:\\" + dir259).c_str(), bin.c_str()), "C:\\" + dir259},   // no short form
        {MakeAbsolutePath("a\\..\\b/c"), current + "\\b\\c"},
        {GetShortPath((bin + "\\missing name.text").c_str(), &err), bin + "\\missing name.text"},
    };
    for (size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(cases[i].expected, std::string(cases[i].got)) << "row " << i;
    EXPECT_EQ("", std::string(err)) << "the error text of a short form";
    EXPECT_EQ(current, std::filesystem::current_path().string()) << "the current directory after the calls";
}
