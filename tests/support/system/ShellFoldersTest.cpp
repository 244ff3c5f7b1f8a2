// Shell folders of the test prefix (its HOME is a scratch folder), compared with its environment.
#include "support/system/ShellFolders.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

std::string Environment(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "(unset)";
}

} // namespace

// Known folders give the prefix's paths; an unknown id and a folder the prefix does not have give empty
// text, and the missing folder is not created.
TEST(ShellFolders, PathsOfThePrefixAndEmptyForUnknownOrMissingFolders)
{
    const std::string profile = Environment("USERPROFILE");
    char desktop[MAX_PATH] = "stale";
    IMalloc* allocator = nullptr;
    ASSERT_EQ(SHGetMalloc(&allocator), S_OK);
    const int released = static_cast<int>(allocator->Release());   // what a balanced release answers here
    EXPECT_EQ(GetDesktopPath(desktop), released) << "the allocator's release count";
    EXPECT_EQ(std::string(desktop), profile + "\\Desktop");
    EXPECT_EQ(GetDesktopPath(nullptr), E_POINTER);

    char windows[MAX_PATH] = "", burn[MAX_PATH] = "";
    GetWindowsDirectoryA(windows, MAX_PATH);
    SHGetFolderPathA(nullptr, CSIDL_CDBURN_AREA | CSIDL_FLAG_DONT_VERIFY, nullptr, 0, burn);
    ASSERT_EQ(GetFileAttributesA(burn), INVALID_FILE_ATTRIBUTES) << burn << " is missing in the prefix";
    const struct {
        int csidl;
        std::string path;
    } rows[] = {
        {CSIDL_PERSONAL, profile + "\\Documents"},
        {CSIDL_APPDATA, Environment("APPDATA")},
        {CSIDL_WINDOWS, windows},
        {CSIDL_CDBURN_AREA, ""},
        {0x7fff, ""},
        {-1, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(std::string(GetSpecialFolderPath(row.csidl)), row.path) << "CSIDL " << row.csidl;
    EXPECT_EQ(GetFileAttributesA(burn), INVALID_FILE_ATTRIBUTES) << burn << " was created";
    EXPECT_EQ(std::string(GetCommonFilesPath()), Environment("CommonProgramFiles"));
}
