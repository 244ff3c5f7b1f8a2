#include "common/DibCanvas.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

TEST(DllEntry, HostFindsTheCEntryPointsByNameAndDraws)
{
    HMODULE module = ::LoadLibraryA("drawtool.dll");
    ASSERT_NE(nullptr, module);
    auto create = reinterpret_cast<CMoruDrawTool* (*)(CWnd*, CDC*)>(reinterpret_cast<void*>(::GetProcAddress(module, "CreateDrawTool")));
    auto destroy = reinterpret_cast<void (*)(CMoruDrawTool*)>(reinterpret_cast<void*>(::GetProcAddress(module, "DestroyDrawTool")));
    ASSERT_NE(nullptr, create) << "CreateDrawTool must be exported unmangled";
    ASSERT_NE(nullptr, destroy) << "DestroyDrawTool must be exported unmangled";

    DibCanvas canvas(32, 32);
    CMoruDrawTool* tool = create(nullptr, &canvas.Dc());
    ASSERT_NE(nullptr, tool);
    tool->Initialize(nullptr, 0);
    tool->SetScaleFactX(2.0);
    tool->SetPen(PS_SOLID, 1, RGB(255, 0, 0));
    tool->MoveTo(2, 10);
    tool->LineTo(12, 10);
    tool->Finalize();
    destroy(tool);
    EXPECT_EQ(20, canvas.CountPixels(RGB(255, 0, 0), 0, 10, 32, 11)) << "device x 4 to 24 on row 10";
    EXPECT_EQ(20, canvas.CountPixels(RGB(255, 0, 0))) << "and nothing else";
    ::FreeLibrary(module);
}

TEST(DllEntry, ModuleCarriesTheProjectVersion)
{
    DWORD ignored = 0;
    std::string block(::GetFileVersionInfoSizeA("drawtool.dll", &ignored), '\0');
    ASSERT_FALSE(block.empty());
    ASSERT_TRUE(::GetFileVersionInfoA("drawtool.dll", 0, static_cast<DWORD>(block.size()), &block[0]));
    char* version = nullptr;
    UINT length = 0;
    ASSERT_TRUE(::VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\FileVersion",
                                 reinterpret_cast<void**>(&version), &length));
    EXPECT_STREQ("1.0.0", version);
}
