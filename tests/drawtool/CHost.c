/*
 * A host written in C89, linked only against the drawing DLL's import
 * library and system libraries. Run as
 *     drawtool_c_host <output folder>
 * it draws the test chart (Chart.h) into "chart.emf" through the functions
 * found by name with LoadLibrary and GetProcAddress, as a script binding
 * would, each checked to be the function it links, and writes the values the
 * calls return and the module's version to "results.txt". Exit code 0 when
 * all went well, 1 when a function is not exported by name.
 */
#include <stdio.h>
#include <string.h>
#include <windows.h>

#include "Chart.h"

typedef void (*AnyFunction)(void);

int main(int argc, char** argv)
{
    static char results[1024];
    char path[MAX_PATH];
    ChartCalls found;
    HMODULE module = LoadLibraryA("drawtool.dll");
    int parts[5] = {-1, -1, -1, -1, -1};
    DrawToolHandle tool;
    FILE* file;
    if (argc != 2 || strlen(argv[1]) > MAX_PATH - 20 || !module)
        return 2;
#define FIND(Ret, Name, Method, Params, Args) \
    found.Name = (Ret(*) Params)(AnyFunction)GetProcAddress(module, "DrawTool_" #Name); \
    if ((AnyFunction)found.Name != (AnyFunction)DrawTool_##Name) \
        return 1;
    DRAWTOOL_METHODS(FIND)
#undef FIND
    sprintf(path, "%s\\chart.emf", argv[1]);
    tool = DrawTool_Create(NULL, CreateEnhMetaFileA(NULL, path, NULL, NULL));
    DrawChart(&found, tool, results);
    DeleteEnhMetaFile(CloseEnhMetaFile(DrawTool_GetDCPointer(tool)));
    DrawTool_Destroy(tool);
    parts[0] = DrawTool_GetVersion(&parts[1], &parts[2], NULL, &parts[4]);
    sprintf(results + strlen(results), "version %d %d.%d.%d.%d\n", parts[0], parts[1], parts[2], parts[3], parts[4]);
    sprintf(path, "%s\\results.txt", argv[1]);
    file = fopen(path, "wb");
    return file && fputs(results, file) >= 0 && !fclose(file) ? 0 : 3;
}
