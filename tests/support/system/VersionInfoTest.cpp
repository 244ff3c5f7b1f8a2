// Version numbers from real version resources (this program's, the drawing
// DLL's, a module without one) and names from the host executable's block.
#include "AfxWinApp.h"
#include "ProcessChildren.h"
#include "support/system/VersionInfo.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::vector<DWORD> PartsOf(int (*read)(DWORD (&)[4]), int& found)
{
    DWORD parts[4] = {99, 99, 99, 99};
    found = read(parts);
    return std::vector<DWORD>(parts, parts + 4);
}

} // namespace

// The fixed record of the resource module: this program's (SystemTests.rc), the DLL's (the project's
// version from CMake) and none from a module without a version resource; each 16-bit part on its own.
TEST(VersionInfo, PartsComeFromTheResourceModulesFixedRecord)
{
    const std::string dir = ProgramDir();
    const HMODULE dll = LoadLibraryExA((dir + "drawtool.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HMODULE bare = LoadLibraryExA((dir + "no_version.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(dll && bare) << "drawtool.dll and no_version.dll beside " << dir;
    const std::vector<DWORD> project = {DRAWTOOL_VERSION_MAJOR, DRAWTOOL_VERSION_MINOR, DRAWTOOL_VERSION_PATCH, 0};
    const struct {
        HMODULE module;
        int (*read)(DWORD (&)[4]);
        int found;
        std::vector<DWORD> parts;
    } rows[] = {
        {nullptr, GetFileVersionParts, 1, {2, 5, 1, 7}},
        {nullptr, GetProductVersionParts, 1, {3, 65535, 32768, 1}},
        {dll, GetFileVersionParts, 1, project},
        {dll, GetProductVersionParts, 1, project},
        {bare, GetFileVersionParts, 0, {0, 0, 0, 0}},
        {bare, GetProductVersionParts, 0, {0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        AfxSetResourceHandle(row.module);
        int found = -1;
        const std::vector<DWORD> parts = PartsOf(row.read, found);
        EXPECT_EQ(std::make_pair(found, parts), std::make_pair(row.found, row.parts))
            << "module " << row.module << (row.read == GetFileVersionParts ? " file" : " product");
    }
    AfxSetResourceHandle(nullptr);
    FreeLibrary(dll);
    FreeLibrary(bare);
}

// Names come from the host executable's block in its translation's language (this program lists a German
// table first); the child's block has a product name and no LegalCopyright.
TEST(VersionInfo, NamesComeFromTheHostExecutableInItsTranslation)
{
    CString product = "stale", legal = "stale";
    EXPECT_EQ(GetAppProductName(product), 1);
    EXPECT_STREQ(product, "Moru system tests");
    EXPECT_EQ(GetAppLegalNotice(legal), 1);
    EXPECT_STREQ(legal, "Copyright (C) 2026 Moru");

    std::string output;
    EXPECT_EQ(RunChild("names", output), 0);
    EXPECT_EQ(output, "1|Moru test child|0|") << "product found|name|legal found|text";
}
