// Shell folders of the test prefix (its HOME is a scratch folder), compared with its environment.
#include "SystemTestHelpers.h"

// Known folders give the prefix's paths; an unknown id and a folder the prefix lacks give empty text.
TEST(ShellFolders, PathsOfThePrefixAndEmptyForUnknownOrMissingFolders)
{
    char desktop[MAX_PATH] = "stale";
    EXPECT_EQ(1, GetDesktopPath(desktop)) << "what releasing Wine's shell allocator, a static one, answers";
    EXPECT_EQ(std::string(getenv("USERPROFILE")) + "\\Desktop", desktop);
    EXPECT_EQ(getenv("APPDATA"), std::string(GetSpecialFolderPath(CSIDL_APPDATA)));
    EXPECT_EQ("", std::string(GetSpecialFolderPath(0x7fff))) << "an unknown id";
    EXPECT_EQ(getenv("CommonProgramFiles"), std::string(GetCommonFilesPath()));
}
