#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/HostDcState.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>


namespace {

// The viewport origin a tool sets first when initialized in `mode`.
CPoint ViewportOriginFor(int mode, RECT* rect, int orgX, int orgY)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    tool.SetOrgX(orgX);
    tool.SetOrgY(orgY);
    tool.Initialize(rect, mode);
    const POINTL origin = RecordsOfType(recorder.Finish(), EMR_SETVIEWPORTORGEX).at(0).As<EMRSETVIEWPORTORGEX>().ptlOrigin;
    return CPoint(origin.x, origin.y);
}

} // namespace

TEST(Lifecycle, InitializeAndFinalizeRecordTheirStepsInOrder)
{
    EmfRecorder recorder;
    char face[LF_FACESIZE] = {};
    ::GetTextFaceA(recorder.Dc().m_hDC, sizeof face, face);
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    RECT area = {0, 0, 100, 300};
    tool.SetOrgY(10);
    tool.SetScaleFact(2.0);
    tool.Initialize(&area, 2);
    tool.Finalize();
    // A hollow brush is GDI's stock null brush (stock 5): no creation record.
    // Each tool object is deleted before the DC's own is selected back.
    const std::vector<std::string> expected = {
        "SETVIEWPORTORGEX 0 310",
        "CREATEPEN 1 style 0 width 0 color 0x000000",
        "SELECTOBJECT 1",
        "EXTCREATEFONTINDIRECTW 2 height 100 escapement 0 orientation 0 weight 0 italic 0 charset 128 "
        "precision 4 clip 16 face '" + std::string(face) + "'",
        "SELECTOBJECT 2",
        "SELECTOBJECT stock 5",
        "SETTEXTCOLOR 0x000000",
        "SETBKMODE 1",
        "SETTEXTALIGN 0",
        "DELETEOBJECT 1",
        "SELECTOBJECT stock 7",   // the DC's pen
        "DELETEOBJECT 2",
        "SELECTOBJECT stock 13",  // the DC's font
        "SELECTOBJECT stock 0",   // the DC's brush
        "SETVIEWPORTORGEX 0 0",
    };
    EXPECT_EQ(expected, DescribeRecords(recorder.Finish()));
}

TEST(Lifecycle, ViewportOriginAndYAxisFollowTheMode)
{
    RECT area = {0, 0, 100, 300};
    EXPECT_EQ(CPoint(0, 0), ViewportOriginFor(0, nullptr, 5, 7));  // other modes never read the rectangle
    EXPECT_EQ(CPoint(5, 7), ViewportOriginFor(1, &area, 5, 7));
    EXPECT_EQ(CPoint(5, 310), ViewportOriginFor(2, &area, 5, 10));
    EXPECT_EQ(CPoint(5, 10), ViewportOriginFor(2, nullptr, 5, 10));  // documented: null counts as bottom 0

    CMoruDrawTool tool(nullptr, nullptr);
    tool.SetScaleFactY(2.5);
    tool.Initialize(nullptr, 1);
    EXPECT_EQ(-2.5, tool.GetScaleFactY());
    tool.Initialize(nullptr, 1);  // a second mode-1 Initialize flips it back
    EXPECT_EQ(2.5, tool.GetScaleFactY());
}

TEST(Lifecycle, FinalizeGivesBackTheDcObjectsButKeepsTheTextModes)
{
    DibCanvas canvas(8, 8);
    HDC hdc = canvas.Dc().m_hDC;
    ::SetViewportOrgEx(hdc, 3, 4, nullptr);
    ::SetTextColor(hdc, RGB(255, 0, 0));
    ::SetTextAlign(hdc, TA_BOTTOM);
    const HostDcState host = HostDcState::Of(hdc);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 1);
    tool.SetPen(PS_DASH, 1, RGB(0, 0, 255));
    tool.SetBrush(BS_SOLID, RGB(0, 255, 0), 0);
    tool.SetBrush(BS_HATCHED, RGB(0, 0, 255), HS_CROSS);  // OldBrush must survive two changes
    tool.SetFont1A(20, 0.0, nullptr, 0.0);
    tool.Initialize(nullptr, 1);  // documented: a second Initialize first puts the DC back
    tool.Finalize();
    EXPECT_EQ("", host.Differences(HostDcState::Of(hdc)));
    EXPECT_EQ(RGB(0, 0, 0), ::GetTextColor(hdc));
    EXPECT_EQ(TRANSPARENT, ::GetBkMode(hdc));
    EXPECT_EQ(0u, ::GetTextAlign(hdc));
    tool.SetPen(PS_SOLID, 5, RGB(255, 0, 0)), tool.SetBrush(BS_SOLID, 0, 0), tool.SetFont1A(30, 0.0, nullptr, 0.0);
    EXPECT_TRUE(!tool.GetPen() && !tool.GetBrush() && !tool.GetFont() && !tool.GetPenColor())
        << "after Finalize the tool holds no objects, and the object calls make none";
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
        tool->Finalize();
        DestroyDrawTool(tool);
    }
    EXPECT_EQ(before, table.FreeSlots()) << "free GDI handle slots before and after 30 cycles";
}
