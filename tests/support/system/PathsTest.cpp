// Paths taken apart and put together, on real folders under the temporary directory.
#include "support/InvalidParameter.h"
#include "support/system/Paths.h"
#include "ScratchDir.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

// Counts the invalid-parameter conditions raised while it lives.
class InvalidParameterCounter {
public:
    InvalidParameterCounter() : m_previous(_set_invalid_parameter_handler(&Count)) { s_count = 0; }
    ~InvalidParameterCounter() { _set_invalid_parameter_handler(m_previous); }
    int Raised() const { return s_count; }

private:
    static void Count(const wchar_t*, const wchar_t*, const wchar_t*, unsigned, uintptr_t) { ++s_count; }
    static inline int s_count = 0;
    _invalid_parameter_handler m_previous;
};

std::string Joined(const CString& a, const CString& b, const CString& c, const CString& d)
{
    return std::string(a) + "|" + b.GetString() + "|" + c.GetString() + "|" + d.GetString();
}

} // namespace

TEST(Paths, SplitPathGivesDriveDirectoryNameAndExtension)
{
    const std::string n255(255, 'n'), n256(256, 'n');
    const std::string longName = n256 + ".e", longDir = "C:\\" + n256 + "\\f", longestName = n255 + ".e";
    const struct {
        const char* path;
        std::string expected; // drive|dir|name|ext
        int raised;
    } cases[] = {
        {"C:\\dir\\file.ext", "C:|\\dir\\|file|.ext", 0},
        {"..", "|..\\||", 0},
        {" ..\\ ", "|..\\||", 0},                  // trimmed before the special texts
        {".", "|.\\||", 0},
        {".\\", "|.\\||", 0},
        {"...", "||..|.", 0},                      // not special: split by the runtime
        {"a.b.c", "||a.b|.c", 0},
        {"C:file", "C:||file|", 0},
        {"/x/y.tar/", "|/x/y.tar/||", 0},
        {"\\\\srv\\share\\f", "|\\\\srv\\share\\|f|", 0},
        {"", "|||", 0},
        {nullptr, "|||", 0},
        {longestName.c_str(), "||" + n255 + "|.e", 0},
        {longName.c_str(), "|||", 1},              // name of 256 characters
        {longDir.c_str(), "|||", 1},               // directory of 258 characters
    };
    for (const auto& c : cases) {
        InvalidParameterCounter counter;
        CString drive("old"), dir("old"), name("old"), ext("old");
        SplitPath(c.path, drive, dir, name, ext);
        EXPECT_EQ(Joined(drive, dir, name, ext), c.expected) << "path " << (c.path ? c.path : "(null)");
        EXPECT_EQ(counter.Raised(), c.raised) << "conditions raised for " << (c.path ? c.path : "(null)");
    }
}

TEST(Paths, SplitDirAndNameKeepsAnExistingDirectoryWhole)
{
    const ScratchDir scratch("split");
    scratch.Write("sub\\f.txt");
    const std::string sub = scratch / "sub";
    const struct {
        std::string path;
        std::string dir, name;
        int result;
    } cases[] = {
        {sub + "  ", sub + "\\", "kept", 0},      // the system ignores trailing blanks; the part is trimmed
        {sub, sub + "\\", "kept", 0},             // an existing directory is not split
        {sub + "\\f.txt", sub + "\\", "f.txt", 1},
        {sub + "\\*", sub + "\\", "*", 1},         // a pattern is split even where it matches "."
        {" C:\\x\\ y.txt ", "C:\\x\\", "y.txt", 1},
        {"", "", "", 0},
    };
    for (const auto& c : cases) {
        CString dir("kept"), name("kept");
        const int result = SplitDirAndName(c.path.c_str(), dir, name);
        EXPECT_EQ(result, c.result) << "path " << c.path;
        EXPECT_EQ(std::string(dir), c.dir) << "directory part of " << c.path;
        EXPECT_EQ(std::string(name), c.name) << "name part of " << c.path;
    }
}

TEST(Paths, JoinPathAppendsBareNamesAndResolvesOthersByTheShell)
{
    const std::string dir259(259, 'd');
    const struct {
        const char* name;
        std::string dir, expected;
    } cases[] = {
        {"name", "C:\\dir", "C:\\dir\\name"},
        {"name", "C:\\dir\\", "C:\\dir\\name"},
        {"sub\\name", "C:\\dir", "C:\\dir\\sub\\name"},
        {"..\\name", "C:\\dir\\sub", "C:\\dir\\name"},
        {"D:\\name", "C:\\dir", "D:\\name"},
        {"", "C:\\dir", ""},
        {nullptr, "C:\\dir", ""},
        {"name", "", "name"},
        {"name", dir259, ""},                     // no room for the backslash
    };
    for (const auto& c : cases)
        EXPECT_EQ(std::string(JoinPath(c.name, c.dir.c_str())), c.expected)
            << "name " << (c.name ? c.name : "(null)") << " in " << c.dir.substr(0, 20);
}

TEST(Paths, MakeRelativePathSimpleComparesTheTextsOnly)
{
    const struct {
        const char *path, *base, *expected;
    } cases[] = {
        {"C:\\a\\x\\f.txt", "C:\\a\\b\\", "..\\x\\f.txt"},
        {"C:\\a\\x\\f.txt", "C:\\a\\b", ".\\x\\f.txt"},   // the base's last directory counts only with its backslash
        {" C:\\a\\b\\c.txt ", "C:\\a\\", ".\\b\\c.txt"},
        {"C:\\a\\b\\", "C:\\a\\b\\c\\d\\", "..\\..\\"},
        {"C:\\a\\", "C:\\a\\", ".\\"},
        {"c:\\a\\f", "C:\\a\\", "c:\\a\\f"},             // drive letters differ in case: given up
        {"D:\\a\\f", "C:\\a\\", "D:\\a\\f"},
        {"\\\\srv\\f", "\\\\srv\\", "\\\\srv\\f"},
        {".\\f", ".\\", ".\\f"},
        {"Cx\\f", "Cx\\", "Cx\\f"},                      // no colon after the drive letter
        {"C:\\f", "", "C:\\f"},
        {"", "C:\\", ""},
        {nullptr, nullptr, ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(std::string(MakeRelativePathSimple(c.path, c.base)), c.expected)
            << "path " << (c.path ? c.path : "(null)") << " base " << (c.base ? c.base : "(null)");
}

TEST(Paths, AbsoluteAndRelativeFormsRestoreTheCurrentDirectory)
{
    const ScratchDir scratch("absolute");
    scratch.Write("sub\\f.txt");
    char before[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, before);
    const std::string root = scratch.Path(), longPath = "C:\\" + std::string(300, 'p');
    const struct {
        std::string got, expected, what;
    } cases[] = {
        {MakeAbsolutePathFrom(" f.txt ", (root + "\\").c_str()).GetString(), root + "\\f.txt", "name against a base"},
        {MakeAbsolutePathFrom("..\\g", (root + "\\sub").c_str()).GetString(), root + "\\g", "parent of the base"},
        {MakeAbsolutePathFrom(longPath.c_str(), root.c_str()).GetString(), longPath, "long path without a short form"},
        {MakeAbsolutePath("a\\..\\b/c").GetString(), std::string(before) + "\\b\\c", "against the current directory"},
        {MakeAbsolutePath(longPath.c_str()).GetString(), longPath, "long path left alone"},
        {MakeRelativePath("C:\\a\\b\\f.txt", "C:\\a\\c").GetString(), "..\\b\\f.txt", "sibling directory"},
        {MakeRelativePath("D:\\a\\f.txt", "C:\\a").GetString(), "D:\\a\\f.txt", "other drive"},
        {MakeRelativePath("b\\f.txt", "C:\\a").GetString(), "b\\f.txt", "already relative"},
        {MakeRelativePath(longPath.c_str(), "C:\\").GetString(), longPath, "long path"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.got, c.expected) << c.what;
    char after[MAX_PATH] = {};
    GetCurrentDirectoryA(MAX_PATH, after);
    EXPECT_STREQ(after, before) << "current directory after the calls";
}

TEST(Paths, GetShortPathGivesTheSystemsShortNameOfExistingFiles)
{
    const ScratchDir scratch("short");
    scratch.Write("a long name.text");
    const std::string path = scratch / "a long name.text", missing = scratch / "missing name.text";
    CString err("stale");
    const CString shortPath = GetShortPath(path.c_str(), &err);
    char longAgain[MAX_PATH] = {};
    GetLongPathNameA(shortPath, longAgain, MAX_PATH);
    EXPECT_EQ(std::string(shortPath).find(' '), std::string::npos) << "short form " << shortPath.GetString();
    EXPECT_EQ(std::string(longAgain), path) << "long form of " << shortPath.GetString();
    EXPECT_EQ(std::string(err), "") << "error text for an existing file";
    err = "stale";
    EXPECT_EQ(std::string(GetShortPath(missing.c_str(), &err)), missing) << "missing file";
    EXPECT_EQ(std::string(err), "") << "error text for a missing file";
    EXPECT_EQ(std::string(GetShortPath(nullptr)), "") << "null path";
}
