// The gallery: draws the library's pages through the drawing tool and
// writes each as PNG and EMF, printing one line per page.
//
//   gallery.exe [--keep] [output folder]
//
// The folder (default "gallery") is made with every missing level. --keep
// leaves earlier files alone and writes under the next free names
// (chart1.png, ...); without it the files are replaced. The chart's
// parameters go to chart.nml as a namelist and every step to gallery.log.
#include "GalleryOutput.h"
#include "GalleryPages.h"
#include "PictureFiles.h"

#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

namespace {

struct Page {
    const char* name;
    int width;
    int height;
    std::function<void(CDC&)> draw;
};

// Draws a page into a white 32-bit DIB and writes it as PNG, then records
// it again in an enhanced metafile.
bool WritePage(const Page& page, const std::string& png, const std::string& emf)
{
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = page.width;
    info.bmiHeader.biHeight = -page.height;  // top-down rows
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    HBITMAP bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap)
        return false;
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    HGDIOBJ oldBitmap = ::SelectObject(memory.m_hDC, bitmap);
    RECT all = {0, 0, page.width, page.height};
    ::FillRect(memory.m_hDC, &all, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
    page.draw(memory);
    ::GdiFlush();
    const std::wstring widePng(png.begin(), png.end());
    const bool pngWritten = WritePng(widePng.c_str(), bits, page.width, page.height);
    ::SelectObject(memory.m_hDC, oldBitmap);
    ::DeleteObject(bitmap);

    const bool emfWritten = WriteEmf(emf.c_str(), page.width, page.height, [&page](HDC hdc) {
        CBorrowedDC dc(hdc);
        RECT all = {0, 0, page.width, page.height};
        ::FillRect(hdc, &all, static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH)));
        page.draw(dc);
    });
    return pngWritten && emfWritten;
}

} // namespace

int main(int argc, char** argv)
{
    bool keep = false;
    std::string folder = "gallery";
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--keep") == 0)
            keep = true;
        else
            folder = argv[i];
    }

    GalleryOutput output(folder, keep);
    if (!output.Ready()) {
        std::printf("FAILED to make the folder %s\n", folder.c_str());
        return 1;
    }
    const ChartModel chart = MakeChartModel();
    const Page pages[] = {
        {"chart", ChartModel::kWidth, ChartModel::kHeight, [&chart](CDC& dc) { DrawChartPage(dc, chart); }},
        {"shapes", kShapesWidth, kShapesHeight, DrawShapesPage},
        {"map", kMapWidth, kMapHeight, DrawMapPage},
    };

    bool allWritten = true;
    int number = 0;
    for (const Page& page : pages) {
        ++number;
        const std::string png = output.FileName(std::string(page.name) + ".png");
        const std::string emf = output.FileName(std::string(page.name) + ".emf");
        const bool written = WritePage(page, png, emf);
        allWritten = allWritten && written;
        output.Log(number, "%s %s (%d x %d) and %s\n", written ? "wrote" : "FAILED to write", png.c_str(), page.width,
                   page.height, emf.c_str());
        std::printf("page %d, %-6s %s %s and %s\n", number, page.name, written ? "wrote" : "FAILED to write",
                    png.c_str(), emf.c_str());
    }

    ++number;
    const std::string parameters = output.FileName("chart.nml");
    const bool parametersWritten = WriteChartParameters(parameters, chart);
    allWritten = allWritten && parametersWritten;
    output.Log(number, "%s %s\n", parametersWritten ? "wrote" : "FAILED to write", parameters.c_str());
    std::printf("page %d, files  %s %s; log in %s\n", number, parametersWritten ? "wrote" : "FAILED to write",
                parameters.c_str(), output.LogName().c_str());
    return allWritten ? 0 : 1;
}
