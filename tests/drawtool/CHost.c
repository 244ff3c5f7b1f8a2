/*
 * A host written in C89, linked only against the drawing DLL's import
 * library and system libraries. Run as
 *     drawtool_c_host <output folder>
 * it draws the test chart (Chart.h) into "chart.emf" (a metafile) through
 * the functions it links, and into "chart.dib" (the 32-bit pixels of a
 * top-down DIB section, row by row) through the same functions found again
 * by name with LoadLibrary and GetProcAddress, as a script binding would.
 * The values the calls return go to "results.txt". Exit code 0 when all
 * went well, 1 when a function is not exported by name.
 */
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "Chart.h"

typedef void (*AnyFunction)(void);
typedef int (*VersionFunction)(int*, int*, int*, int*);

/* A white DIB section of the chart's size in a memory DC (freed on exit). */
static HDC CreateCanvas(DWORD** bits)
{
    BITMAPINFO info = {{sizeof(BITMAPINFOHEADER), CHART_WIDTH, -CHART_HEIGHT, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {{0}}};
    HDC dc = CreateCompatibleDC(NULL);
    int i;
    SelectObject(dc, CreateDIBSection(dc, &info, DIB_RGB_COLORS, (void**)bits, NULL, 0));
    for (i = 0; i < CHART_WIDTH * CHART_HEIGHT; ++i)
        (*bits)[i] = 0x00FFFFFF;
    return dc;
}

/* Writes `size` bytes to `name` in `folder`; 0 on failure. */
static int SaveFile(const char* folder, const char* name, const void* bytes, size_t size)
{
    char path[MAX_PATH];
    FILE* file;
    sprintf(path, "%s\\%s", folder, name);
    file = fopen(path, "wb");
    if (!file)
        return 0;
    size = fwrite(bytes, 1, size, file);
    return !fclose(file) && size;
}

int main(int argc, char** argv)
{
    static char results[8192];
    char path[MAX_PATH];
    ChartCalls linked, found;
    HMODULE module = LoadLibraryA("drawtool.dll");
    VersionFunction version = (VersionFunction)(AnyFunction)GetProcAddress(module, "DrawTool_GetVersion");
    int parts[4] = {0, 0, 0, 0};
    DWORD* bits = NULL;
    const char* missing = NULL;
    HDC dc;
    if (argc != 2 || strlen(argv[1]) > MAX_PATH - 20 || !module || !version)
        return 2;
#define LINK(Ret, Name, Method, Params, Args) \
    linked.Name = DrawTool_##Name; \
    found.Name = (Ret(*) Params)(AnyFunction)GetProcAddress(module, "DrawTool_" #Name); \
    missing = found.Name ? missing : "DrawTool_" #Name;
    DRAWTOOL_METHODS(LINK)
#undef LINK
    if (missing) {
        fprintf(stderr, "%s is not exported by name\n", missing);
        return 1;
    }
    linked.Create = DrawTool_Create;
    linked.Destroy = DrawTool_Destroy;
    found.Create = (DrawToolHandle(*)(HWND, HDC))(AnyFunction)GetProcAddress(module, "DrawTool_Create");
    found.Destroy = (void (*)(DrawToolHandle))(AnyFunction)GetProcAddress(module, "DrawTool_Destroy");

    sprintf(path, "%s\\chart.emf", argv[1]);
    dc = CreateEnhMetaFileA(NULL, path, NULL, NULL);
    DrawChart(&linked, dc, results);
    DeleteEnhMetaFile(CloseEnhMetaFile(dc));
    DrawChart(&found, CreateCanvas(&bits), results + strlen(results));
    GdiFlush();
    if (!version(&parts[0], &parts[1], &parts[2], &parts[3]))
        return 4;
    sprintf(results + strlen(results), "version %d.%d.%d.%d\n", parts[0], parts[1], parts[2], parts[3]);
    if (!SaveFile(argv[1], "chart.dib", bits, CHART_WIDTH * CHART_HEIGHT * sizeof(DWORD)))
        return 3;
    return SaveFile(argv[1], "results.txt", results, strlen(results)) ? 0 : 3;
}
