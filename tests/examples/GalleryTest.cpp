// The gallery host run as a user runs it: its files and pixels of its pages that must be ink or paper.
// Expected positions are written down from the pages' layouts (pixels), not computed by their code.
#include "common/DibCanvas.h"

#include <process.h>
#include <wincodec.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

const COLORREF kInk = RGB(0, 0, 0), kPaper = RGB(255, 255, 255), kRim = RGB(200, 40, 40);
const struct Page { const char* name; int width, height; } kPageSizes[] = {
    {"chart", 1000, 700}, {"shapes", 1000, 760}, {"map", 900, 760}};
// Pixels that the layouts fix, one per line: page, x, y, colour, what.
const struct Probe { const char* page; int x, y; COLORREF color; const char* what; } kProbes[] = {
    {"chart", 110, 300, kInk, "the force axis, on the plot's left edge"},
    {"chart", 110, 614, kInk, "the first time tick, below the axis"},
    {"chart", 900, 400, kPaper, "the plot's lower right, where no data runs"},
    {"shapes", 115, 185, kInk, "the tip of arrow style 10 (head lines meet there)"},
    {"shapes", 119, 185, kPaper, "just beyond that tip"},
    // Circle(33, 120, 36) under x scale 2: the box [375, 447) x [144, 216), its rim on the box's edge pixels.
    {"shapes", 411, 144, kRim, "Circle's rim, top"},
    {"shapes", 375, 180, kRim, "Circle's rim, left"},
    {"shapes", 411, 141, kPaper, "above Circle's rim"},
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
    const std::string exe = (fs::path(self).parent_path() / "gallery.exe").string(), folder = "\"" + pages.string() + "\"";
    ASSERT_EQ(_spawnl(_P_WAIT, exe.c_str(), "gallery", folder.c_str(), nullptr), 0);
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    IWICImagingFactory* wic = nullptr;
    ASSERT_HRESULT_SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                                IID_IWICImagingFactory, reinterpret_cast<void**>(&wic)));
    for (const Page& page : kPageSizes) {
        IWICBitmapDecoder* decoder = nullptr;
        IWICBitmapFrameDecode* frame = nullptr;
        IWICBitmapSource* bgr = nullptr;   // 32-bit BGRX rows
        const std::wstring png = (pages / (page.name + std::string(".png"))).wstring();
        ASSERT_HRESULT_SUCCEEDED(wic->CreateDecoderFromFilename(png.c_str(), nullptr, GENERIC_READ,
                                                                WICDecodeMetadataCacheOnDemand, &decoder)) << page.name;
        ASSERT_HRESULT_SUCCEEDED(decoder->GetFrame(0, &frame));
        ASSERT_HRESULT_SUCCEEDED(::WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame, &bgr));
        UINT width = 0, height = 0;
        bgr->GetSize(&width, &height);
        ASSERT_TRUE(width == UINT(page.width) && height == UINT(page.height)) << page.name << ": " << width << "x" << height;
        std::vector<DWORD> pixels(static_cast<size_t>(width) * height);
        ASSERT_HRESULT_SUCCEEDED(bgr->CopyPixels(nullptr, width * 4, width * height * 4,
                                                 reinterpret_cast<BYTE*>(pixels.data())));
        for (IUnknown* object : std::vector<IUnknown*>{bgr, frame, decoder})
            object->Release();
        for (const Probe& p : kProbes) {
            if (std::string(p.page) != page.name)
                continue;
            const DWORD got = pixels[static_cast<size_t>(p.y) * width + p.x];
            EXPECT_EQ(RGB(got >> 16 & 0xFF, got >> 8 & 0xFF, got & 0xFF), p.color) << page.name << ": " << p.what;
        }
        // The recording draws the page again: it must play back with ink on it.
        HENHMETAFILE emf = ::GetEnhMetaFileA((pages / (page.name + std::string(".emf"))).string().c_str());
        DibCanvas canvas(page.width, page.height, RGB(0, 0, 255));
        const RECT all = {0, 0, page.width, page.height};
        EXPECT_TRUE(::PlayEnhMetaFile(canvas.Dc().m_hDC, emf, &all)) << page.name << ".emf does not play back";
        ::GdiFlush();
        ::DeleteEnhMetaFile(emf);
        EXPECT_GT(canvas.CountPixels(kInk), 1000) << page.name << ".emf draws ink";
    }
    wic->Release();
}

} // namespace
