#include "common/DibCanvas.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using CreateFunction = CMoruDrawTool* (*)(CWnd*, CDC*);
using DestroyFunction = void (*)(CMoruDrawTool*);

std::string VersionString(const char* module, const char* key)
{
    DWORD ignored = 0;
    const DWORD size = ::GetFileVersionInfoSizeA(module, &ignored);
    if (!size)
        return "";
    std::string block(size, '\0');
    if (!::GetFileVersionInfoA(module, 0, size, &block[0]))
        return "";
    char* value = nullptr;
    UINT length = 0;
    const std::string path = std::string("\\StringFileInfo\\040904B0\\") + key;
    if (!::VerQueryValueA(block.data(), path.c_str(), reinterpret_cast<void**>(&value), &length) || !value)
        return "";
    return value;
}

} // namespace

TEST(DllEntry, HostFindsTheCEntryPointsByNameAndDraws)
{
    HMODULE module = ::LoadLibraryA("drawtool.dll");
    ASSERT_NE(nullptr, module);
    auto create = reinterpret_cast<CreateFunction>(::GetProcAddress(module, "CreateDrawTool"));
    auto destroy = reinterpret_cast<DestroyFunction>(::GetProcAddress(module, "DestroyDrawTool"));
    ASSERT_NE(nullptr, create) << "CreateDrawTool must be exported unmangled";
    ASSERT_NE(nullptr, destroy) << "DestroyDrawTool must be exported unmangled";

    DibCanvas canvas(32, 32);
    CMoruDrawTool* tool = create(nullptr, &canvas.Dc());
    ASSERT_NE(nullptr, tool);
    EXPECT_EQ(&canvas.Dc(), tool->GetDCPointer());
    tool->Initialize(nullptr, 0);
    tool->SetScaleFactX(2.0);
    tool->SetPen(PS_SOLID, 1, RGB(255, 0, 0));
    tool->MoveTo(2, 10);
    tool->LineTo(12, 10);
    tool->Finalize();
    destroy(tool);

    EXPECT_EQ(20, canvas.CountPixels(RGB(255, 0, 0), 0, 10, 32, 11)) << "device x 4 to 24 on row 10";
    EXPECT_EQ(20, canvas.CountPixels(RGB(255, 0, 0))) << "nothing else";
    ::FreeLibrary(module);
}

TEST(DllEntry, ModuleCarriesTheProjectVersion)
{
    EXPECT_EQ("1.0.0", VersionString("drawtool.dll", "FileVersion"));
    EXPECT_EQ("drawtool.dll", VersionString("drawtool.dll", "OriginalFilename"));
}
