/*
 * A host written in C89, linked only against the drawing DLL's import
 * library and system libraries. Run as
 *     drawtool_c_host <output folder>
 * it draws the test chart through the C interface into "chart.emf" (a
 * metafile) and "chart.dib" (the 32-bit pixels of a 160 x 120 top-down DIB
 * section, row by row), writes the values the calls returned to
 * "results.txt", then loads the DLL again by name, as a script binding
 * would, and draws through a few entry points found with GetProcAddress.
 * Exit code 0 when every file was written.
 */
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "drawtool/DrawToolC.h"

#define CHART_WIDTH 160
#define CHART_HEIGHT 120

static void WritePoint(FILE* results, const char* what, POINT point)
{
    fprintf(results, "%s %ld,%ld\n", what, (long)point.x, (long)point.y);
}

/* The test chart; its twin drawn through the class is in DrawToolCTest.cpp. */
static void DrawChart(HDC dc, FILE* results)
{
    static const wchar_t label[] = {'T', 'e', 'm', 'p', ' ', 0x00B0, 'C', 0};
    RECT area = {0, 0, CHART_WIDTH, CHART_HEIGHT};
    RECT plot = {0, 0, 45, 70};
    RECT key = {2, 2, 8, 8};
    RECT pie = {30, 50, 44, 64};
    RECT note = {0, 75, 40, 95};
    POINT curve[5] = {{0, 10}, {10, 40}, {20, 25}, {30, 60}, {40, 50}};
    POINT origin = {0, 0};
    POINT start = {44, 57};
    POINT end = {37, 64};
    POINT centre = {25, 15};
    int weight = -1;
    int italic = -1;
    DrawToolHandle tool = DrawTool_Create(NULL, dc);

    DrawTool_SetScaleFact(tool, 0.5);
    DrawTool_SetScaleFactX(tool, 3.0);
    DrawTool_SetScaleFactY(tool, 1.5);
    DrawTool_SetOffsetX(tool, 15.0);
    DrawTool_SetOrgY(tool, 110);
    DrawTool_Initialize(tool, &area, 1);
    fprintf(results, "scaleFactY %.17g scaleFact2 %.17g\n", DrawTool_GetScaleFactY(tool), DrawTool_GetScaleFact2(tool));

    DrawTool_SetPen(tool, PS_SOLID, 1, RGB(0, 0, 255));
    DrawTool_SetBrush(tool, BS_SOLID, RGB(255, 255, 160), 0);
    DrawTool_RectangleRect(tool, &plot);
    DrawTool_FillRect(tool, &key, (HBRUSH)GetStockObject(GRAY_BRUSH));
    DrawTool_SetPen(tool, PS_SOLID, 2, RGB(255, 0, 0));
    fprintf(results, "pen color %06lx\n", (unsigned long)DrawTool_GetPenColor(tool));
    fprintf(results, "polyline %d\n", DrawTool_Polyline(tool, curve, 5));
    WritePoint(results, "moved from", DrawTool_MoveToPt(tool, origin));
    DrawTool_LineTo(tool, 45, 0);
    WritePoint(results, "tick", DrawTool_DrawTick(tool, 10, 0, 6, 1));
    WritePoint(results, "tick pt", DrawTool_DrawTickPt(tool, centre, 8, 0));
    WritePoint(results, "position", DrawTool_GetCurrentPosition(tool));
    DrawTool_Arrow(tool, 0, 0, 30, -60.0, 8, 20.0, 12);
    DrawTool_SetPen(tool, PS_SOLID, 1, RGB(0, 128, 0));
    fprintf(results, "circle %d\n", DrawTool_CirclePt(tool, centre, 20));
    fprintf(results, "pie %d\n", DrawTool_PieRect(tool, &pie, start, end));
    fprintf(results, "arch %d\n", DrawTool_Arch(tool, 25, 15, 12, 0.0, 90.0));

    DrawTool_SetFontStyle(tool, FW_BOLD, 0);
    DrawTool_SetFont1A(tool, 24, 0.0, "Arial", 0.0);
    DrawTool_GetFontStyle(tool, &weight, &italic);
    fprintf(results, "font style %d %d\n", weight, italic);
    fprintf(results, "text width %.17g\n", DrawTool_GetTextWidthA(tool, "p = 5 bar"));
    fprintf(results, "align %u\n", DrawTool_SetTextAlignEx(tool, TA_BASELINE | TA_LEFT));
    DrawTool_SetTextColor(tool, RGB(128, 0, 128));
    fprintf(results, "text %d\n", DrawTool_TextOutA(tool, 2, 68, "p = 5 bar"));
    fprintf(results, "text w %d\n", DrawTool_TextOutPtW(tool, start, label));
    fprintf(results, "draw text %d\n", DrawTool_DrawTextA(tool, "max", &note, DT_LEFT | DT_SINGLELINE));

    DrawTool_Finalize(tool);
    DrawTool_Destroy(tool);
}

static int DrawMetafile(const char* folder, FILE* results)
{
    char path[MAX_PATH];
    HDC dc;
    sprintf(path, "%s\\chart.emf", folder);
    dc = CreateEnhMetaFileA(NULL, path, NULL, NULL);
    if (!dc)
        return 0;
    DrawChart(dc, results);
    return DeleteEnhMetaFile(CloseEnhMetaFile(dc));
}

/* A white top-down 32-bit DIB section selected into a memory DC. */
static HBITMAP CreateCanvas(HDC dc, int width, int height, DWORD** bits)
{
    BITMAPINFO info;
    HBITMAP bitmap;
    int i;
    memset(&info, 0, sizeof info);
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, (void**)bits, NULL, 0);
    if (!bitmap)
        return NULL;
    for (i = 0; i < width * height; ++i)
        (*bits)[i] = 0x00FFFFFF;
    SelectObject(dc, bitmap);
    return bitmap;
}

static int DrawPixels(const char* folder, FILE* results)
{
    char path[MAX_PATH];
    DWORD* bits = NULL;
    HDC dc = CreateCompatibleDC(NULL);
    HGDIOBJ original = GetCurrentObject(dc, OBJ_BITMAP);
    HBITMAP bitmap = CreateCanvas(dc, CHART_WIDTH, CHART_HEIGHT, &bits);
    FILE* file;
    size_t written = 0;
    if (bitmap) {
        DrawChart(dc, results);
        GdiFlush();
        sprintf(path, "%s\\chart.dib", folder);
        file = fopen(path, "wb");
        if (file) {
            written = fwrite(bits, sizeof(DWORD), CHART_WIDTH * CHART_HEIGHT, file);
            fclose(file);
        }
        SelectObject(dc, original);
        DeleteObject(bitmap);
    }
    DeleteDC(dc);
    return written == CHART_WIDTH * CHART_HEIGHT;
}

/* GetProcAddress's answer as a generic function pointer, which C converts to
 * the entry point's own type. */
typedef void (*AnyFunction)(void);
static AnyFunction Find(HMODULE module, const char* name)
{
    return (AnyFunction)GetProcAddress(module, name);
}

typedef DrawToolHandle (*CreateFunction)(HWND, HDC);
typedef void (*HandleFunction)(DrawToolHandle);
typedef void (*InitializeFunction)(DrawToolHandle, RECT*, int);
typedef void (*ScaleFunction)(DrawToolHandle, double);
typedef void (*PenFunction)(DrawToolHandle, int, int, COLORREF);
typedef POINT (*MoveToFunction)(DrawToolHandle, int, int);
typedef int (*LineToFunction)(DrawToolHandle, int, int);
typedef int (*VersionFunction)(int*, int*, int*, int*);

/* A green line from virtual (2, 10) to (12, 10) at ScaleFactX 2 on a 32 x 32
 * canvas, through entry points looked up by name. */
static int DrawDynamically(FILE* results)
{
    HMODULE module = LoadLibraryA("drawtool.dll");
    CreateFunction create;
    HandleFunction destroy, finalize;
    InitializeFunction initialize;
    ScaleFunction scaleX;
    PenFunction setPen;
    MoveToFunction moveTo;
    LineToFunction lineTo;
    VersionFunction version;
    DrawToolHandle tool;
    HDC dc;
    HBITMAP bitmap;
    DWORD* bits = NULL;
    int parts[4] = {0, 0, 0, 0};
    int i, green = 0;
    if (!module)
        return 0;
    create = (CreateFunction)Find(module, "DrawTool_Create");
    destroy = (HandleFunction)Find(module, "DrawTool_Destroy");
    finalize = (HandleFunction)Find(module, "DrawTool_Finalize");
    initialize = (InitializeFunction)Find(module, "DrawTool_Initialize");
    scaleX = (ScaleFunction)Find(module, "DrawTool_SetScaleFactX");
    setPen = (PenFunction)Find(module, "DrawTool_SetPen");
    moveTo = (MoveToFunction)Find(module, "DrawTool_MoveTo");
    lineTo = (LineToFunction)Find(module, "DrawTool_LineTo");
    version = (VersionFunction)Find(module, "DrawTool_GetVersion");
    if (!create || !destroy || !finalize || !initialize || !scaleX || !setPen || !moveTo || !lineTo || !version)
        return 0;

    fprintf(results, "dynamic version %d", version(&parts[0], &parts[1], &parts[2], &parts[3]));
    fprintf(results, " %d.%d.%d.%d\n", parts[0], parts[1], parts[2], parts[3]);
    dc = CreateCompatibleDC(NULL);
    bitmap = CreateCanvas(dc, 32, 32, &bits);
    tool = create(NULL, dc);
    initialize(tool, NULL, 0);
    scaleX(tool, 2.0);
    setPen(tool, PS_SOLID, 1, RGB(0, 255, 0));
    moveTo(tool, 2, 10);
    fprintf(results, "dynamic line %d", lineTo(tool, 12, 10));
    finalize(tool);
    destroy(tool);
    GdiFlush();
    for (i = 0; i < 32 * 32; ++i)
        green += bits[i] == 0x0000FF00;
    fprintf(results, " green %d row 10 from x %d\n", green, (int)(bits[10 * 32 + 4] == 0x0000FF00));
    fprintf(results, "dynamic after destroy %d\n", lineTo(tool, 1, 1));
    DeleteDC(dc);
    DeleteObject(bitmap);
    FreeLibrary(module);
    return 1;
}

int main(int argc, char** argv)
{
    char path[MAX_PATH];
    FILE* results;
    int ok;
    if (argc != 2 || strlen(argv[1]) > MAX_PATH - 20) {
        fputs("usage: drawtool_c_host <output folder>\n", stderr);
        return 2;
    }
    sprintf(path, "%s\\results.txt", argv[1]);
    results = fopen(path, "w");
    if (!results)
        return 3;
    ok = DrawMetafile(argv[1], results) && DrawPixels(argv[1], results) && DrawDynamically(results);
    fclose(results);
    return ok ? 0 : 1;
}
