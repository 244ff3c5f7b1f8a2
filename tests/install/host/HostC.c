/* A C host built against the installed package: draws one mapped line
 * through the C interface. */
#include <drawtool/DrawToolC.h>

int main(void)
{
    HDC dc = CreateCompatibleDC(NULL);
    DrawToolHandle tool = DrawTool_Create(NULL, dc);
    RECT area = {0, 0, 100, 100};
    DrawTool_Initialize(tool, &area, 1);
    DrawTool_LineTo(tool, 10, 20);
    DrawTool_Finalize(tool);
    DrawTool_Destroy(tool);
    DeleteDC(dc);
    return 0;
}
