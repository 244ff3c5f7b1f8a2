#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

TEST(PenBrush, PenWidthStaysInDeviceUnitsAndTheBrushIsHollowUntilSet)
{
    for (double scale : {1.0, 2.5, 10.0}) {
        DibCanvas canvas(64, 64);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        tool.SetScaleFact(scale);
        tool.SetScaleFactX(scale);
        tool.SetScaleFactY(scale);
        tool.Initialize(nullptr, 0);
        tool.SetPen(PS_SOLID, 3, RGB(255, 0, 0));
        tool.MoveTo(1, 2);
        tool.LineTo(5, 2);
        tool.Finalize();
        const int x = static_cast<int>(3 * scale);
        EXPECT_EQ(3, canvas.CountPixels(RGB(255, 0, 0), x, 0, x + 1, 64)) << "rows inked at scale " << scale;
    }
    DibCanvas canvas(40, 20);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.Rectangle(2, 2, 18, 18);
    EXPECT_EQ(RGB(255, 255, 255), canvas.Pixel(10, 10)) << "the inside stays untouched";
    EXPECT_EQ(RGB(0, 0, 0), canvas.Pixel(2, 10)) << "the outline is drawn";
    tool.SetBrush(BS_SOLID, RGB(0, 0, 255), 0);
    tool.Rectangle(22, 2, 38, 18);
    EXPECT_EQ(RGB(0, 0, 255), canvas.Pixel(30, 10));
    tool.Finalize();
}

TEST(PenBrush, SettersCreateTheObjectsTheyDescribe)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetPen(PS_DASH, 0, RGB(255, 0, 0));
    EXPECT_EQ(0x000000FFu, tool.GetPenColor());
    tool.SetBrush(BS_HATCHED, RGB(0, 128, 0), HS_CROSS);
    tool.SetBrush(BS_SOLID, RGB(1, 2, 3), -1);
    tool.Finalize();
    std::vector<std::string> created;
    for (const EmfRecord& record : recorder.Finish())
        if (record.type == EMR_CREATEPEN || record.type == EMR_CREATEBRUSHINDIRECT)
            created.push_back(DescribeRecord(record));
    const std::vector<std::string> expected = {
        "CREATEPEN 1 style 0 width 0 color 0x000000",             // Initialize's pen
        "CREATEPEN 1 style 1 width 0 color 0x0000ff",             // PS_DASH, red (0x00BBGGRR)
        "CREATEBRUSHINDIRECT 3 style 2 color 0x008000 hatch 4",   // BS_HATCHED, HS_CROSS
        "CREATEBRUSHINDIRECT 3 style 0 color 0x030201 hatch 0",
    };
    EXPECT_EQ(expected, created);
}

TEST(PenBrush, ModesPassThroughAndReportThePreviousValue)
{
    DibCanvas canvas(8, 8);
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
    tool.SetBkColor(RGB(255, 0, 0));
    EXPECT_EQ(RGB(255, 0, 0), tool.GetBkColor());
    EXPECT_EQ(RGB(0, 0, 0), tool.SetTextColor(RGB(0, 0, 255)));
    EXPECT_EQ(RGB(0, 0, 255), tool.GetTextColor());
    EXPECT_NE(0, tool.SaveDC());
    tool.SetROP2(R2_NOT);
    EXPECT_NE(0, tool.RestoreDC(-1));
    EXPECT_EQ(R2_XORPEN, tool.GetROP2());
    tool.Finalize();
}
