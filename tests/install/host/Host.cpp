// A host built against the installed package: draws one mapped line.
#include <drawtool/DrawTool.h>
#include <support/Support.h>

int main()
{
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CMoruDrawTool* tool = CreateDrawTool(nullptr, &dc);
    RECT area = {0, 0, 100, 100};
    tool->Initialize(&area, 1);
    tool->LineTo(RoundToInt(10.5), 20);
    tool->Finalize();
    DestroyDrawTool(tool);
    return 0;
}
