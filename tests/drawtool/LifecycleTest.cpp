#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

std::string DefaultFace(HDC hdc)
{
    char face[LF_FACESIZE] = {};
    ::GetTextFaceA(hdc, sizeof face, face);
    return face;
}

void ExpectRecords(const std::vector<std::string>& expected, const std::vector<EmfRecord>& records)
{
    const std::vector<std::string> got = DescribeRecords(records);
    std::string table;
    for (const std::string& line : got)
        table += "    \"" + line + "\",\n";
    EXPECT_EQ(expected, got) << "recorded:\n" << table;
}

// The first viewport origin a tool sets when initialized in `mode`.
POINT ViewportOriginFor(int mode, RECT* rect, int orgX, int orgY)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    tool.SetOrgX(orgX);
    tool.SetOrgY(orgY);
    tool.Initialize(rect, mode);
    tool.Finalize();
    const std::vector<EmfRecord> origins = RecordsOfType(recorder.Finish(), EMR_SETVIEWPORTORGEX);
    if (origins.empty())
        return POINT{-1, -1};
    const POINTL origin = origins.front().As<EMRSETVIEWPORTORGEX>().ptlOrigin;
    return POINT{origin.x, origin.y};
}

// How many more pens the process can create now: allocates until GDI
// refuses (or `limit`), then frees them all. A leak of n objects lowers it
// by n; unlike GetGuiResources, which answers 0 under Wine, this really
// fails on a leak.
int FreeGdiCapacity(int limit)
{
    std::vector<HPEN> pens;
    pens.reserve(limit);
    while (static_cast<int>(pens.size()) < limit) {
        HPEN pen = ::CreatePen(PS_SOLID, static_cast<int>(pens.size() % 7), RGB(pens.size() & 0xff, 0, 0));
        if (!pen)
            break;
        pens.push_back(pen);
    }
    for (HPEN pen : pens)
        ::DeleteObject(pen);
    return static_cast<int>(pens.size());
}

} // namespace

TEST(Lifecycle, FreshToolHasTheDefaultFrame)
{
    CMoruDrawTool tool(nullptr, nullptr);
    EXPECT_EQ(1.0, tool.GetScaleFact());
    EXPECT_EQ(0.0, tool.GetScaleFact2());  // zero on purpose: the first SetScaleFact fills it
    EXPECT_EQ(1.0, tool.GetScaleFactX());
    EXPECT_EQ(1.0, tool.GetScaleFactY());
    EXPECT_EQ(0.0, tool.GetOffsetX());
    EXPECT_EQ(0.0, tool.GetOffsetY());
    EXPECT_EQ(0, tool.GetOrgX());
    EXPECT_EQ(0, tool.GetOrgY());
    EXPECT_EQ(0, tool.GetFontWeight());
    EXPECT_EQ(0, tool.IsFontItalic());
    EXPECT_EQ(nullptr, tool.GetDCPointer());
}

TEST(Lifecycle, InitializeAndFinalizeRecordTheirStepsInOrder)
{
    EmfRecorder recorder;
    const std::string face = DefaultFace(recorder.Dc().m_hDC);
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    RECT area = {0, 0, 100, 300};
    tool.SetOrgY(10);
    tool.SetScaleFact(2.0);
    tool.Initialize(&area, 2);
    tool.Finalize();
    // A hollow brush is GDI's stock null brush (stock 5), so it has no
    // creation record; each tool object is deleted before the DC's own
    // (stock pen 7, font 13, brush 0) is selected back.
    ExpectRecords(
        {
            "SETVIEWPORTORGEX 0 310",
            "CREATEPEN 1 style 0 width 0 color 0x000000",
            "SELECTOBJECT 1",
            "EXTCREATEFONTINDIRECTW 2 height 100 escapement 0 orientation 0 weight 0 italic 0 charset 128 "
            "precision 4 clip 16 face '" + face + "'",
            "SELECTOBJECT 2",
            "SELECTOBJECT stock 5",
            "SETTEXTCOLOR 0x000000",
            "SETBKMODE 1",
            "SETTEXTALIGN 0",
            "DELETEOBJECT 1",
            "SELECTOBJECT stock 7",
            "DELETEOBJECT 2",
            "SELECTOBJECT stock 13",
            "SELECTOBJECT stock 0",
            "SETVIEWPORTORGEX 0 0",
        },
        recorder.Finish());
}

TEST(Lifecycle, ViewportOriginFollowsTheMode)
{
    RECT area = {0, 0, 100, 300};
    const struct { int mode; RECT* rect; int orgX, orgY; POINT expected; } cases[] = {
        {0, nullptr, 5, 7, {0, 0}},    // any other mode: (0, 0), the rectangle is not read
        {3, &area, 5, 7, {0, 0}},
        {1, &area, 5, 7, {5, 7}},      // y up: (OrgX, OrgY)
        {2, &area, 5, 10, {5, 310}},   // (OrgX, OrgY + bottom)
        {2, nullptr, 5, 10, {5, 10}},  // a null rectangle counts as bottom 0
    };
    for (const auto& c : cases) {
        const POINT got = ViewportOriginFor(c.mode, c.rect, c.orgX, c.orgY);
        EXPECT_EQ(c.expected.x, got.x) << "mode " << c.mode;
        EXPECT_EQ(c.expected.y, got.y) << "mode " << c.mode;
    }
}

TEST(Lifecycle, ModeOneFlipsTheYAxisEachTime)
{
    DibCanvas canvas(16, 16);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetScaleFactY(2.5);
    tool.Initialize(nullptr, 1);
    EXPECT_EQ(-2.5, tool.GetScaleFactY());
    tool.Initialize(nullptr, 1);  // a second Initialize flips it back
    EXPECT_EQ(2.5, tool.GetScaleFactY());
    tool.Finalize();
}

TEST(Lifecycle, FinalizeGivesBackTheDcObjectsButKeepsTheTextModes)
{
    DibCanvas canvas(16, 16);
    HDC hdc = canvas.Dc().m_hDC;
    ::SetViewportOrgEx(hdc, 3, 4, nullptr);
    ::SetTextColor(hdc, RGB(255, 0, 0));
    ::SetBkMode(hdc, OPAQUE);
    ::SetTextAlign(hdc, TA_BOTTOM | TA_RIGHT);
    const HGDIOBJ pen = ::GetCurrentObject(hdc, OBJ_PEN);
    const HGDIOBJ font = ::GetCurrentObject(hdc, OBJ_FONT);
    const HGDIOBJ brush = ::GetCurrentObject(hdc, OBJ_BRUSH);

    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 1);
    tool.SetPen(PS_DASH, 1, RGB(0, 0, 255));
    tool.SetBrush(BS_SOLID, RGB(0, 255, 0), 0);
    tool.SetBrush(BS_HATCHED, RGB(0, 0, 255), HS_CROSS);  // OldBrush must survive two changes
    tool.SetFont1A(20, 0.0, nullptr, 0.0);
    EXPECT_NE(pen, ::GetCurrentObject(hdc, OBJ_PEN));
    tool.Finalize();

    POINT origin;
    ::GetViewportOrgEx(hdc, &origin);
    EXPECT_EQ(pen, ::GetCurrentObject(hdc, OBJ_PEN));
    EXPECT_EQ(font, ::GetCurrentObject(hdc, OBJ_FONT));
    EXPECT_EQ(brush, ::GetCurrentObject(hdc, OBJ_BRUSH));
    EXPECT_EQ(3, origin.x);
    EXPECT_EQ(4, origin.y);
    EXPECT_EQ(RGB(0, 0, 0), ::GetTextColor(hdc));
    EXPECT_EQ(TRANSPARENT, ::GetBkMode(hdc));
    EXPECT_EQ(static_cast<UINT>(TA_TOP | TA_LEFT | TA_NOUPDATECP), ::GetTextAlign(hdc));
}

TEST(Lifecycle, BrokenLifeCyclesHaveDefinedOutcomes)
{
    // A null DC: every call returns, nothing is drawn.
    CMoruDrawTool* orphan = CreateDrawTool(nullptr, nullptr);
    ASSERT_NE(nullptr, orphan);
    orphan->Initialize(nullptr, 2);
    orphan->SetPen(PS_SOLID, 2, RGB(1, 2, 3));
    orphan->SetBrush(BS_SOLID, RGB(1, 2, 3), 0);
    EXPECT_EQ(0, orphan->SetBkMode(OPAQUE));
    EXPECT_EQ(0, orphan->GetCurrentPosition().x);
    orphan->Finalize();
    DestroyDrawTool(orphan);

    // After Finalize: the tool has no objects; setters leave the DC alone.
    DibCanvas canvas(16, 16);
    HDC hdc = canvas.Dc().m_hDC;
    const HGDIOBJ pen = ::GetCurrentObject(hdc, OBJ_PEN);
    auto tool = std::make_unique<CMoruDrawTool>(nullptr, &canvas.Dc());
    tool->Initialize(nullptr, 0);
    tool->Finalize();
    tool->SetPen(PS_SOLID, 5, RGB(255, 0, 0));
    tool->SetBrush(BS_SOLID, RGB(255, 0, 0), 0);
    tool->SetFont1A(30, 0.0, nullptr, 0.0);
    EXPECT_EQ(nullptr, tool->GetPen());
    EXPECT_EQ(nullptr, tool->GetBrush());
    EXPECT_EQ(nullptr, tool->GetFont());
    EXPECT_EQ(0u, tool->GetPenColor());
    EXPECT_EQ(pen, ::GetCurrentObject(hdc, OBJ_PEN));
    tool->Finalize();  // a second Finalize does nothing
    tool.reset();      // and deleting through the destructor is safe too

    // Initialize twice without Finalize: the DC's own objects still return.
    CMoruDrawTool twice(nullptr, &canvas.Dc());
    twice.Initialize(nullptr, 0);
    twice.SetPen(PS_SOLID, 3, RGB(0, 0, 255));
    twice.Initialize(nullptr, 0);
    twice.Finalize();
    EXPECT_EQ(pen, ::GetCurrentObject(hdc, OBJ_PEN));
}

TEST(Lifecycle, ManyCyclesLeakNoGdiObject)
{
    // Each cycle creates four objects (pen, font, a replaced pen, a solid
    // brush). The probe counts the free handle-table slots before and after:
    // a single leaked object per cycle would show as 10,000 missing slots or
    // exhaust the table outright (Windows allows 10,000 per process).
    DibCanvas canvas(8, 8);
    const int limit = 100000;
    const int before = FreeGdiCapacity(limit);
    ASSERT_GT(before, 1000) << "GDI handle table too small to measure";
    for (int cycle = 0; cycle < 10000; ++cycle) {
        CMoruDrawTool* tool = CreateDrawTool(nullptr, &canvas.Dc());
        tool->Initialize(nullptr, cycle % 3);
        tool->SetPen(PS_SOLID, 3, RGB(cycle & 0xff, 0, 0));
        tool->SetBrush(BS_SOLID, RGB(0, cycle & 0xff, 0), 0);
        tool->Finalize();
        DestroyDrawTool(tool);
    }
    const int after = FreeGdiCapacity(limit);
    EXPECT_EQ(before, after) << "GDI objects leaked: " << before - after;
    EXPECT_NE(nullptr, ::CreateSolidBrush(RGB(1, 2, 3))) << "objects can still be created";
}
