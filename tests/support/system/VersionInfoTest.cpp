// Version numbers from real version resources (this program's, the drawing DLL's, a module without
// one) and names from the host executable's block.
#include "SystemTestHelpers.h"

// The fixed record of the resource module: this program's (SystemTests.rc), the DLL's (the project's
// version from CMake) and none from a module without a version resource; each 16-bit part on its own.
TEST(VersionInfo, PartsComeFromTheResourceModulesFixedRecord)
{
    const HMODULE dll = LoadLibraryExA((ProgramDir + "drawtool.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HMODULE bare = LoadLibraryExA((ProgramDir + "no_version.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(dll && bare) << "drawtool.dll and no_version.dll beside " << ProgramDir;
    const DWORD major = DRAWTOOL_VERSION_MAJOR, minor = DRAWTOOL_VERSION_MINOR, patch = DRAWTOOL_VERSION_PATCH;
    const struct {
        HMODULE module;
        int (*read)(DWORD (&)[4]);
        std::vector<DWORD> expected;   // found, then the four parts
    } rows[] = {
        {nullptr, GetFileVersionParts, {1, 2, 5, 1, 7}},
        {nullptr, GetProductVersionParts, {1, 3, 65535, 32768, 1}},
        {dll, GetFileVersionParts, {1, major, minor, patch, 0}},
        {bare, GetProductVersionParts, {0, 0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        AfxSetResourceHandle(row.module);
        DWORD parts[4] = {9, 9, 9, 9};
        const DWORD found = static_cast<DWORD>(row.read(parts));
        EXPECT_EQ(row.expected, (std::vector<DWORD>{found, parts[0], parts[1], parts[2], parts[3]}));
    }
    AfxSetResourceHandle(nullptr);
    FreeLibrary(dll);
    FreeLibrary(bare);
}

// Names come from the host executable's block in its translation's language (this program lists a
// German table first); the child's block has a product name and no LegalCopyright.
TEST(VersionInfo, NamesComeFromTheHostExecutableInItsTranslation)
{
    CString product = "stale", legal = "stale";
    const int found = GetAppProductName(product) * 10 + GetAppLegalNotice(legal);
    EXPECT_EQ("11|Moru system tests|Copyright (C) 2026 Moru",
              std::to_string(found) + "|" + product.GetString() + "|" + legal.GetString());
    EXPECT_EQ("1|Moru test child|0|", EchoOf({})[5]) << "product found|name|legal found|text";
}
