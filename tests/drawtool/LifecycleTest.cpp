#include "common/EmfRecording.h"

TEST(Lifecycle, InitializeSettersAndFinalizeRecordTheirStepsInOrder)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    RECT area = {0, 0, 100, 300};
    tool.SetOrgY(10);
    tool.SetScaleFact(2.0);
    tool.Initialize(&area, 2);
    tool.SetPen(PS_DASH, 3, RGB(255, 0, 0));
    EXPECT_EQ(0x000000FFu, tool.GetPenColor());
    tool.SetBrush(BS_HATCHED, RGB(0, 128, 0), HS_CROSS);
    tool.SetFont1A(20, 0, nullptr, 0);
    tool.Finalize();
    // Pen: solid, width 0, black; font 50 * 2 high; a hollow brush is GDI's
    // stock null brush (stock 5): no creation record. The pen keeps its width
    // in device units (3, not 6); the DC's own brush and font are selected
    // again before the tool's are replaced. Each tool object is deleted
    // before the DC's own is selected back; the text modes stay.
    EXPECT_EQ((Calls{"SETVIEWPORTORGEX 0 310", "CREATEPEN 1 0 0 0 0", "SELECTOBJECT 1",
                     "EXTCREATEFONTINDIRECTW 2 100 0 0 0 0", "SELECTOBJECT 2", "SELECTOBJECT stock 5",
                     "SETTEXTCOLOR 0", "SETBKMODE 1", "SETTEXTALIGN 0",
                     "DELETEOBJECT 1", "CREATEPEN 1 1 3 0 255", "SELECTOBJECT 1",
                     "SELECTOBJECT stock 0", "CREATEBRUSHINDIRECT 3 2 32768 4", "SELECTOBJECT 3",
                     "SELECTOBJECT stock 13", "DELETEOBJECT 2", "EXTCREATEFONTINDIRECTW 2 40 0 0 0 0", "SELECTOBJECT 2",
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
        EmfRecorder recorder;
        CMoruDrawTool tool(nullptr, &recorder.Dc());
        tool.SetOrgX(5);
        tool.SetOrgY(7);
        tool.SetScaleFactY(2.5);
        tool.Initialize(rect, mode);
        POINT device = {-1, -1};
        ::GetViewportOrgEx(recorder.Dc().m_hDC, &device);
        EXPECT_EQ(origin, DescribePoint(device)) << "mode " << mode;
        EXPECT_EQ(mode == 1 ? -2.5 : 2.5, tool.GetScaleFactY()) << "mode " << mode << " turns y round";
        tool.Finalize();
    }
}
