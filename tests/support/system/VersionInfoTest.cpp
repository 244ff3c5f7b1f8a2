// Version numbers from real version resources (this program's, a module without one) and names from
// the host executable's block.
#include "SystemTestHelpers.h"

// The fixed record of the resource module: this program's (SystemTests.rc), and none from a module
// without a version resource or with one that ends inside the record; each 16-bit part on its own.
// Names come from the host executable's block in its translation's language (this program lists a
// German table first).
TEST(VersionInfo, PartsComeFromTheResourceModuleAndNamesFromTheHostsTranslation)
{
    const HMODULE bare = LoadLibraryExA((ProgramDir + "no_version.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const auto read = [](HMODULE module, int (*reader)(DWORD (&)[4])) {
        AfxSetResourceHandle(module);
        DWORD parts[4] = {9, 9, 9, 9};
        return std::vector<DWORD>{static_cast<DWORD>(reader(parts)), parts[0], parts[1], parts[2], parts[3]};
    };
    EXPECT_EQ((std::vector<DWORD>{1, 2, 5, 1, 7}), read(nullptr, GetFileVersionParts));
    EXPECT_EQ((std::vector<DWORD>{1, 3, 65535, 32768, 1}), read(nullptr, GetProductVersionParts));
    EXPECT_EQ((std::vector<DWORD>{0, 0, 0, 0, 0}), read(bare, GetProductVersionParts)) << "no version resource";
    const HMODULE cut = LoadLibraryExA((ProgramDir + "cut_version.dll").c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    EXPECT_EQ((std::vector<DWORD>{0, 0, 0, 0, 0}), read(cut, GetFileVersionParts)) << "a record cut off by the end";
    AfxSetResourceHandle(nullptr);

    CString product = "stale", legal = "stale";
    const int found = GetAppProductName(product) * 10 + GetAppLegalNotice(legal);
    EXPECT_EQ("11|Moru system tests|Copyright (C) 2026 Moru",
              std::to_string(found) + "|" + product.GetString() + "|" + legal.GetString());
    EXPECT_EQ("0|", EchoOf({})[3]) << "a program without a version block reads an empty notice";
}
