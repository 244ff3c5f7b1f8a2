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
