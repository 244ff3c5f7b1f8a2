#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

namespace {

const COLORREF kWhite = RGB(255, 255, 255);
const COLORREF kRed = RGB(255, 0, 0);
const COLORREF kBlue = RGB(0, 0, 255);

// Rows of column `x` painted in `color`.
int InkInColumn(const DibCanvas& canvas, int x, COLORREF color)
{
    return canvas.CountPixels(color, x, 0, x + 1, canvas.Height());
}

} // namespace

TEST(PenBrush, PenWidthIsInDeviceUnitsWhateverTheScale)
{
    const double scales[] = {1.0, 2.5, 10.0};
    for (double scale : scales) {
        DibCanvas canvas(64, 64);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        tool.SetScaleFact(scale);
        tool.SetScaleFactX(scale);
        tool.SetScaleFactY(scale);
        tool.Initialize(nullptr, 0);
        tool.SetPen(PS_SOLID, 3, kRed);
        tool.MoveTo(1, 2);
        tool.LineTo(5, 2);
        tool.Finalize();
        const int column = static_cast<int>(3 * scale);
        EXPECT_EQ(3, InkInColumn(canvas, column, kRed)) << "scale " << scale;
    }
}

TEST(PenBrush, BrushIsHollowUntilSetBrush)
{
    DibCanvas canvas(40, 20);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.Rectangle(2, 2, 18, 18);
    EXPECT_EQ(kWhite, canvas.Pixel(10, 10)) << "the inside stays untouched";
    EXPECT_EQ(RGB(0, 0, 0), canvas.Pixel(2, 10)) << "the outline is drawn";
    tool.SetBrush(BS_SOLID, kBlue, 0);
    tool.Rectangle(22, 2, 38, 18);
    EXPECT_EQ(kBlue, canvas.Pixel(30, 10));
    tool.Finalize();
}

TEST(PenBrush, SettersRecordTheObjectsTheyCreate)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetPen(PS_DASH, 0, RGB(255, 0, 0));
    EXPECT_EQ(0x000000FFu, tool.GetPenColor());
    tool.SetBrush(BS_HATCHED, RGB(0, 128, 0), HS_CROSS);
    tool.SetBrush(BS_SOLID, RGB(1, 2, 3), -1);
    ASSERT_NE(nullptr, tool.GetPen());
    ASSERT_NE(nullptr, tool.GetBrush());
    LOGBRUSH brush = {};
    ::GetObjectA(tool.GetBrush()->m_hObject, sizeof brush, &brush);
    EXPECT_EQ(static_cast<UINT>(BS_SOLID), brush.lbStyle);
    tool.Finalize();

    std::vector<std::string> creations;
    for (const EmfRecord& record : recorder.Finish())
        if (record.type == EMR_CREATEPEN || record.type == EMR_CREATEBRUSHINDIRECT)
            creations.push_back(DescribeRecord(record));
    const std::vector<std::string> expected = {
        "CREATEPEN 1 style 0 width 0 color 0x000000",     // Initialize's pen
        "CREATEPEN 1 style 1 width 0 color 0x0000ff",     // PS_DASH, red (0x00BBGGRR)
        "CREATEBRUSHINDIRECT 3 style 2 color 0x008000 hatch 4",  // BS_HATCHED, HS_CROSS
        "CREATEBRUSHINDIRECT 3 style 0 color 0x030201 hatch 0",
    };
    EXPECT_EQ(expected, creations);
}

TEST(PenBrush, ModesPassThroughAndReportThePreviousValue)
{
    DibCanvas canvas(8, 8);
    HDC hdc = canvas.Dc().m_hDC;
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    EXPECT_EQ(R2_COPYPEN, tool.SetROP2(R2_XORPEN));
    EXPECT_EQ(R2_XORPEN, tool.GetROP2());
    EXPECT_EQ(ALTERNATE, tool.SetPolyFillMode(WINDING));
    EXPECT_EQ(WINDING, tool.GetPolyFillMode());
    EXPECT_EQ(AD_COUNTERCLOCKWISE, tool.SetArcDirection(AD_CLOCKWISE));
    EXPECT_EQ(AD_CLOCKWISE, tool.GetArcDirection());
    EXPECT_EQ(TRANSPARENT, tool.SetBkMode(OPAQUE));
    EXPECT_EQ(OPAQUE, tool.GetBkMode());
    tool.SetBkColor(kRed);
    EXPECT_EQ(kRed, tool.GetBkColor());
    EXPECT_EQ(RGB(0, 0, 0), tool.SetTextColor(kBlue));
    EXPECT_EQ(kBlue, tool.GetTextColor());

    const int saved = tool.SaveDC();
    EXPECT_NE(0, saved);
    tool.SetROP2(R2_NOT);
    EXPECT_NE(0, tool.RestoreDC(-1));
    EXPECT_EQ(R2_XORPEN, ::GetROP2(hdc));
    tool.Finalize();
}
