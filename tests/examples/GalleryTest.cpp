// The gallery host run as a user runs it: its files and pixels of its pages that must be ink or paper.
// Expected positions are written down from the pages' layouts (pixels), not computed by their code.
#include "common/DibCanvas.h"

#include <process.h>
#include <wincodec.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
const fs::path kPages = fs::temp_directory_path() / "gallery_tests" / "pages";   // a nested folder

// Runs bin\gallery.exe (beside this program) on the folder; its exit status.
intptr_t RunGallery()
{
    char self[MAX_PATH];
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string exe = (fs::path(self).parent_path() / "gallery.exe").string();
    const std::string folder = "\"" + kPages.string() + "\"";
    return _spawnl(_P_WAIT, exe.c_str(), "gallery", folder.c_str(), nullptr);
}

// A PNG decoded by the Windows Imaging Component into 32-bit BGRX rows; no pixels if it does not decode.
std::vector<DWORD> DecodePng(const fs::path& path, UINT& width, UINT& height)
{
    IWICImagingFactory* factory = nullptr;
    IWICBitmapDecoder* decoder = nullptr;
    IWICBitmapFrameDecode* frame = nullptr;
    IWICBitmapSource* converter = nullptr;
    std::vector<DWORD> pixels;
    if (SUCCEEDED(::CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER, IID_IWICImagingFactory,
                                     reinterpret_cast<void**>(&factory)))
        && SUCCEEDED(factory->CreateDecoderFromFilename(path.wstring().c_str(), nullptr, GENERIC_READ,
                                                         WICDecodeMetadataCacheOnDemand, &decoder))
        && SUCCEEDED(decoder->GetFrame(0, &frame)) && SUCCEEDED(frame->GetSize(&width, &height))
        && SUCCEEDED(::WICConvertBitmapSource(GUID_WICPixelFormat32bppBGR, frame, &converter))) {
        pixels.resize(static_cast<size_t>(width) * height);
        if (FAILED(converter->CopyPixels(nullptr, width * 4, width * height * 4, reinterpret_cast<BYTE*>(pixels.data()))))
            pixels.clear();
    }
    for (IUnknown* object : std::vector<IUnknown*>{converter, frame, decoder, factory})
        if (object)
            object->Release();
    return pixels;
}

const COLORREF kInk = RGB(0, 0, 0), kPaper = RGB(255, 255, 255), kRim = RGB(200, 40, 40);
const struct Page { const char* name; int width, height; } kPageSizes[] = {
    {"chart", 1000, 700}, {"shapes", 1000, 760}, {"map", 900, 760}};
// Pixels that the layouts fix, one per line: page, x, y, colour, what.
const struct Probe { const char* page; int x, y; COLORREF color; const char* what; } kProbes[] = {
    {"chart", 110, 300, kInk, "the force axis, on the plot's left edge"},
    {"chart", 500, 610, kInk, "the time axis, on the plot's bottom edge"},
    {"chart", 110, 614, kInk, "the first time tick, below the axis"},
    {"chart", 900, 400, kPaper, "the plot's lower right, where no data runs"},
    {"chart", 60, 100, kPaper, "the left margin above the axis title"},
    {"shapes", 115, 185, kInk, "the tip of arrow style 10 (head lines meet there)"},
    {"shapes", 119, 185, kPaper, "just beyond that tip"},
    // Circle(33, 120, 36) under x scale 2: the box [375, 447) x [144, 216), its rim on the box's edge pixels.
    {"shapes", 411, 144, kRim, "Circle's rim, top"},
    {"shapes", 375, 180, kRim, "Circle's rim, left"},
    {"shapes", 411, 180, RGB(255, 225, 225), "Circle's fill, centre"},
    {"shapes", 411, 141, kPaper, "above Circle's rim"},
    {"map", 480, 375, kRim, "the reference marker at the map's centre"},
    {"map", 880, 375, kPaper, "right of the map's frame"},
};

TEST(Gallery, WritesEveryPageAsAPngOfItsSizeAndAnEmfThatPlaysBackWithInkAndPaperWhereTheLayoutPutsThem)
{
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    fs::remove_all(kPages.parent_path());
    ASSERT_EQ(RunGallery(), 0);
    for (const Page& page : kPageSizes) {
        UINT width = 0, height = 0;
        const std::vector<DWORD> png = DecodePng(kPages / (page.name + std::string(".png")), width, height);
        ASSERT_FALSE(png.empty()) << page.name << ".png does not decode";
        EXPECT_EQ(std::make_pair(width, height), std::make_pair(UINT(page.width), UINT(page.height))) << page.name;
        HENHMETAFILE emf = ::GetEnhMetaFileA((kPages / (page.name + std::string(".emf"))).string().c_str());
        DibCanvas canvas(page.width, page.height, RGB(0, 0, 255));
        const RECT all = {0, 0, page.width, page.height};
        EXPECT_TRUE(::PlayEnhMetaFile(canvas.Dc().m_hDC, emf, &all)) << page.name << ".emf does not play back";
        ::GdiFlush();
        ::DeleteEnhMetaFile(emf);
        for (const Probe& p : kProbes) {
            if (std::string(p.page) != page.name)
                continue;
            const DWORD bgr = png[static_cast<size_t>(p.y) * width + p.x];
            const COLORREF got = RGB(bgr >> 16 & 0xFF, bgr >> 8 & 0xFF, bgr & 0xFF);
            EXPECT_EQ(got, p.color) << page.name << ".png (" << p.x << ", " << p.y << "), " << p.what << std::hex
                                    << ": expected 0x" << p.color << ", got 0x" << got;
            // The recording clears its page white, so paper covers the blue canvas. Its frame is kept in
            // hundredths of a millimetre, so playback may scale the page by a fraction of a pixel: the colour
            // must appear within one pixel.
            EXPECT_GT(canvas.CountPixels(p.color, p.x - 1, p.y - 1, p.x + 2, p.y + 2), 0)
                << page.name << ".emf (" << p.x << ", " << p.y << "), " << p.what << std::hex << ": expected 0x"
                << p.color << " within a pixel, got 0x" << canvas.Pixel(p.x, p.y);
        }
    }
}

} // namespace
