#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <memory>

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

// How many more pens the process can create: allocates until GDI refuses,
// then frees them all. A leak of n objects lowers it by n; unlike
// GetGuiResources, which answers 0 under Wine, this really fails on a leak.
int FreeGdiCapacity()
{
    std::vector<HPEN> pens;
    while (HPEN pen = pens.size() < 100000 ? ::CreatePen(PS_SOLID, 1, 0) : nullptr)
        pens.push_back(pen);
    for (HPEN pen : pens)
        ::DeleteObject(pen);
    return static_cast<int>(pens.size());
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
    const HGDIOBJ pen = ::GetCurrentObject(hdc, OBJ_PEN), font = ::GetCurrentObject(hdc, OBJ_FONT),
                  brush = ::GetCurrentObject(hdc, OBJ_BRUSH);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 1);
    tool.SetPen(PS_DASH, 1, RGB(0, 0, 255));
    tool.SetBrush(BS_SOLID, RGB(0, 255, 0), 0);
    tool.SetBrush(BS_HATCHED, RGB(0, 0, 255), HS_CROSS);  // OldBrush must survive two changes
    tool.SetFont1A(20, 0.0, nullptr, 0.0);
    tool.Initialize(nullptr, 1);  // documented: a second Initialize first puts the DC back
    tool.Finalize();

    POINT origin;
    ::GetViewportOrgEx(hdc, &origin);
    EXPECT_EQ(CPoint(3, 4), CPoint(origin));
    EXPECT_EQ(pen, ::GetCurrentObject(hdc, OBJ_PEN));
    EXPECT_EQ(font, ::GetCurrentObject(hdc, OBJ_FONT));
    EXPECT_EQ(brush, ::GetCurrentObject(hdc, OBJ_BRUSH));
    EXPECT_EQ(RGB(0, 0, 0), ::GetTextColor(hdc));
    EXPECT_EQ(TRANSPARENT, ::GetBkMode(hdc));
    EXPECT_EQ(0u, ::GetTextAlign(hdc));
}

TEST(Lifecycle, BrokenLifeCyclesHaveDefinedOutcomes)
{
    CMoruDrawTool* orphan = CreateDrawTool(nullptr, nullptr);  // a null DC: calls return, nothing drawn
    ASSERT_NE(nullptr, orphan);
    orphan->Initialize(nullptr, 2);
    orphan->SetPen(PS_SOLID, 2, RGB(1, 2, 3));
    EXPECT_EQ(0, orphan->LineTo(5, 5));
    EXPECT_EQ(CPoint(0, 0), orphan->GetCurrentPosition());
    orphan->Finalize();
    DestroyDrawTool(orphan);

    DibCanvas canvas(8, 8);
    const HGDIOBJ pen = ::GetCurrentObject(canvas.Dc().m_hDC, OBJ_PEN);
    auto tool = std::make_unique<CMoruDrawTool>(nullptr, &canvas.Dc());
    tool->Initialize(nullptr, 0);
    tool->Finalize();
    tool->SetPen(PS_SOLID, 5, RGB(255, 0, 0));  // after Finalize the object calls do nothing
    tool->SetBrush(BS_SOLID, RGB(255, 0, 0), 0);
    tool->SetFont1A(30, 0.0, nullptr, 0.0);
    EXPECT_EQ(pen, ::GetCurrentObject(canvas.Dc().m_hDC, OBJ_PEN));
    EXPECT_TRUE(!tool->GetPen() && !tool->GetBrush() && !tool->GetFont() && !tool->GetPenColor());
    tool->Finalize();  // a second Finalize does nothing
    tool.reset();      // and deleting through the destructor is safe
}

TEST(Lifecycle, TenThousandCyclesLeakNoGdiObject)
{
    // One leaked object per cycle would show as 10,000 missing handle-table
    // slots (or exhaust the table: Windows allows 10,000 per process).
    DibCanvas canvas(8, 8);
    const int before = FreeGdiCapacity();
    ASSERT_GT(before, 20000) << "the handle table is too small to measure";
    for (int cycle = 0; cycle < 10000; ++cycle) {
        CMoruDrawTool* tool = CreateDrawTool(nullptr, &canvas.Dc());
        tool->Initialize(nullptr, cycle % 3);
        tool->SetPen(PS_SOLID, 3, RGB(cycle & 0xff, 0, 0));
        tool->SetBrush(BS_SOLID, RGB(0, cycle & 0xff, 0), 0);
        tool->Finalize();
        DestroyDrawTool(tool);
    }
    EXPECT_EQ(before, FreeGdiCapacity()) << "GDI objects leaked";
}
