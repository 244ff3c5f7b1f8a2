// The gallery host run as a user runs it: its files and pixels of its pages that must be ink or paper.
// Expected positions are written down from the pages' layouts (pixels), not computed by their code.
#include "common/DibCanvas.h"

#include <process.h>

#include <algorithm>
using std::max;   // the GDI+ headers use min and max unqualified
using std::min;
#include <gdiplus.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

const COLORREF kInk = RGB(0, 0, 0), kPaper = RGB(255, 255, 255), kRim = RGB(200, 40, 40);
const struct Page { const char* name; int width, height; } kPageSizes[] = {
    {"chart", 1000, 700}, {"shapes", 1000, 760}, {"map", 900, 760}};
// Pixels that the layouts fix, one per line: page, x, y, colour, what.
const struct Probe { const char* page; int x, y; COLORREF color; const char* what; } kProbes[] = {
    {"chart", 110, 300, kInk, "the force axis, on the plot's left edge"},
    {"shapes", 115, 185, kInk, "the tip of arrow style 10 (head lines meet there)"},
    {"shapes", 119, 185, kPaper, "just beyond that tip"},
    // Circle(33, 120, 36) under x scale 2: the box [375, 447) x [144, 216), its rim on the box's edge pixels.
    {"shapes", 411, 144, kRim, "Circle's rim, top"},
    {"shapes", 375, 180, kRim, "Circle's rim, left"},
    {"map", 480, 375, kRim, "the reference marker at the map's centre"},
    {"map", 880, 375, kPaper, "right of the map's frame"},
};

TEST(Gallery, WritesEveryPageAsAPngOfItsSizeAndAnEmfThatPlaysBackWithInkAndPaperWhereTheLayoutPutsThem)
{
    namespace fs = std::filesystem;
    const fs::path pages = fs::temp_directory_path() / "gallery_tests" / "pages";   // a nested folder
    fs::remove_all(pages.parent_path());
    char self[MAX_PATH];
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string exe = (fs::path(self).parent_path() / "gallery.exe").string();
    const std::string folder = "\"" + pages.string() + "\"";
    ASSERT_EQ(_spawnl(_P_WAIT, exe.c_str(), "gallery", folder.c_str(), nullptr), 0);
    ULONG_PTR gdiplus = 0;
    const Gdiplus::GdiplusStartupInput startup;
    ASSERT_EQ(Gdiplus::GdiplusStartup(&gdiplus, &startup, nullptr), Gdiplus::Ok);
    for (const Page& page : kPageSizes) {
        Gdiplus::Bitmap png((pages / (page.name + std::string(".png"))).wstring().c_str());
        ASSERT_TRUE(png.GetLastStatus() == Gdiplus::Ok) << page.name << ".png does not decode";
        EXPECT_TRUE(png.GetWidth() == UINT(page.width) && png.GetHeight() == UINT(page.height)) << page.name;
        for (const Probe& p : kProbes) {
            Gdiplus::Color got;
            if (std::string(p.page) != page.name)
                continue;
            EXPECT_TRUE(png.GetPixel(p.x, p.y, &got) == Gdiplus::Ok && got.ToCOLORREF() == p.color)
                << page.name << ": " << p.what << ", got 0x" << std::hex << got.ToCOLORREF();
        }
        // The recording draws the page again: it must play back with ink on it.
        HENHMETAFILE emf = ::GetEnhMetaFileA((pages / (page.name + std::string(".emf"))).string().c_str());
        DibCanvas canvas(page.width, page.height, RGB(0, 0, 255));
        const RECT all = {0, 0, page.width, page.height};
        EXPECT_TRUE(::PlayEnhMetaFile(canvas.Dc().m_hDC, emf, &all)) << page.name << ".emf does not play back";
        ::GdiFlush();
        ::DeleteEnhMetaFile(emf);
        EXPECT_GT(canvas.CountPixels(kInk, 0, 0, page.width, page.height), 1000) << page.name << ".emf draws ink";
    }
    Gdiplus::GdiplusShutdown(gdiplus);
}
