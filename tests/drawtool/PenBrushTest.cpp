#include "common/DibCanvas.h"
#include "common/EmfRecording.h"

TEST(PenBrush, PenWidthStaysInDeviceUnitsAndTheBrushIsHollowUntilSet)
{
    DibCanvas canvas(64, 64);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetScaleFact(2.5);
    tool.SetScaleFactX(2.5);
    tool.SetScaleFactY(2.5);
    tool.Initialize(nullptr, 0);
    tool.SetPen(PS_SOLID, 3, RGB(255, 0, 0));
    tool.MoveTo(1, 2);
    tool.LineTo(5, 2);
    EXPECT_EQ(3, canvas.CountPixels(RGB(255, 0, 0), 7, 0, 8, 64)) << "rows inked at x 7 by a pen 3 wide";
    tool.SetPen(PS_SOLID, 0, RGB(0, 0, 0));
    tool.Rectangle(2, 10, 10, 20);
    EXPECT_EQ(RGB(255, 255, 255), canvas.Pixel(15, 35)) << "the inside stays untouched";
    EXPECT_EQ(RGB(0, 0, 0), canvas.Pixel(5, 35)) << "the outline is drawn";
    tool.SetBrush(BS_SOLID, RGB(0, 0, 255), 0);
    tool.Rectangle(12, 10, 20, 20);
    EXPECT_EQ(RGB(0, 0, 255), canvas.Pixel(40, 35));
    tool.Finalize();
}

TEST(PenBrush, SettersCreateTheObjectsTheyDescribe)
{
    RecordingTool t;
    t.tool.SetPen(PS_DASH, 0, RGB(255, 0, 0));
    EXPECT_EQ(0x000000FFu, t.tool.GetPenColor());
    t.tool.SetBrush(BS_HATCHED, RGB(0, 128, 0), HS_CROSS);
    t.tool.SetBrush(BS_SOLID, RGB(1, 2, 3), -1);
    Calls created;
    for (const std::string& record : DescribeRecords(t.Finish()))
        if (record.find("CREATE") == 0)
            created.push_back(record);
    // Id, style, width (x and y), colour; id, style, colour, hatch.
    EXPECT_EQ((Calls{"CREATEPEN 1 0 0 0 0", "CREATEPEN 1 1 0 0 255", "CREATEBRUSHINDIRECT 3 2 32768 4",
                     "CREATEBRUSHINDIRECT 3 0 197121 0"}), created)
        << "Initialize's pen; PS_DASH, red (0x00BBGGRR); BS_HATCHED, HS_CROSS; solid 0x030201";
}
