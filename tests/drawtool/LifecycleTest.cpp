#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/HostDcState.h"

TEST(Lifecycle, InitializeAndFinalizeRecordTheirStepsInOrder)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    RECT area = {0, 0, 100, 300};
    tool.SetOrgY(10);
    tool.SetScaleFact(2.0);
    tool.Initialize(&area, 2);
    tool.SetBrush(BS_SOLID, RGB(1, 2, 3), 0);
    tool.Finalize();
    // Pen: solid, width 0, black; font 50 * 2 high; a hollow brush is GDI's
    // stock null brush (stock 5): no creation record; the solid brush that
    // replaces it. Each tool object is deleted before the DC's own is
    // selected back; the text modes stay.
    EXPECT_EQ((Calls{"SETVIEWPORTORGEX 0 310", "CREATEPEN 1 0 0 0 0", "SELECTOBJECT 1",
                     "EXTCREATEFONTINDIRECTW 2 100 0 0 0 0", "SELECTOBJECT 2", "SELECTOBJECT stock 5", "SETTEXTCOLOR 0", "SETBKMODE 1", "SETTEXTALIGN 0",
                     "SELECTOBJECT stock 0", "CREATEBRUSHINDIRECT 3 0 197121 0", "SELECTOBJECT 3",
                     "DELETEOBJECT 1", "SELECTOBJECT stock 7", "DELETEOBJECT 2", "SELECTOBJECT stock 13",
                     "DELETEOBJECT 3", "SELECTOBJECT stock 0", "SETVIEWPORTORGEX 0 0"}),
              DescribeRecords(recorder.Finish()));
    EXPECT_TRUE(!tool.GetPen() && !tool.GetBrush() && !tool.GetFont() && !tool.GetPenColor())
        << "after Finalize the tool holds no objects";
}

TEST(Lifecycle, ViewportOriginAndYAxisFollowTheMode)
{
    // Other modes never read the rectangle; mode 2 counts a null one as bottom 0.
    RECT area = {0, 0, 100, 300};
    for (const auto& [mode, rect, origin] : {std::tuple{0, &area, "0,0"}, {1, &area, "5,7"}, {2, nullptr, "5,7"}}) {
        DibCanvas canvas(8, 8);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        tool.SetOrgX(5);
        tool.SetOrgY(7);
        tool.SetScaleFactY(2.5);
        tool.Initialize(rect, mode);
        EXPECT_EQ(origin, DescribePoint(HostDcState::Of(canvas.Dc().m_hDC).origin)) << "mode " << mode;
        EXPECT_EQ(mode == 1 ? -2.5 : 2.5, tool.GetScaleFactY()) << "mode " << mode << " turns y round";
        tool.Finalize();
    }
}

TEST(Lifecycle, CyclesOfEveryModeLeakNoGdiObject)
{
    // Thirty cycles: one leaked object per cycle shows as 30 missing slots.
    DibCanvas canvas(8, 8);
    const GdiHandleTable table;
    const int before = table.FreeSlots();
    for (int cycle = 0; cycle < 30; ++cycle) {
        CMoruDrawTool* tool = CreateDrawTool(nullptr, &canvas.Dc());
        tool->Initialize(nullptr, cycle % 3);
        tool->SetPen(PS_SOLID, 3, RGB(cycle, 0, 0));
        tool->SetBrush(BS_SOLID, RGB(0, cycle, 0), 0);
        tool->SetFont1A(20 + cycle, 0.0, nullptr, 0.0);
        tool->SetPointFont0A(100 + cycle, 0.0, nullptr, 0.0);
        tool->Finalize();
        DestroyDrawTool(tool);
    }
    EXPECT_EQ(before, table.FreeSlots()) << "free GDI handle slots before and after 30 cycles";
}
