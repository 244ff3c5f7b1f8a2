#include "common/DibCanvas.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(Mapping, RulesScaleThenOffsetThenPushAwayFromZero)
{
    CoordinateFrame frame;
    const struct { double scale, offset, v; int expected; } perAxis[] = {
        {1.5, 0.25, 3, 5},   // RoundToInt(4.75)
        {1.5, 0.0, 3, 5},    // RoundToInt(4.5)
        {1.1, 0.0, 3, 4},    // RoundToInt(3.3000000000000003)
        {1.1, 0.0, -3, -4},  // away from zero below it too
        {2.5, 10.0, 100, 260},
        {-2.5, 0.0, 50, -125},
    };
    for (const auto& c : perAxis) {
        frame.scaleFactX = frame.scaleFactY = c.scale;
        frame.offsetX = frame.offsetY = c.offset;
        EXPECT_EQ(c.expected, MapX(frame, c.v)) << c.scale << " * " << c.v << " + " << c.offset;
        EXPECT_EQ(c.expected, MapY(frame, c.v)) << c.scale << " * " << c.v << " + " << c.offset;
    }
    // The uniform rules ignore the per-axis scales but share the offsets.
    frame = CoordinateFrame{};
    frame.scaleFact = 3.0;
    frame.scaleFactX = 100.0;
    frame.scaleFactY = -100.0;
    frame.offsetX = 1.0;
    frame.offsetY = -1.0;
    EXPECT_EQ(31, MapX2(frame, 10));
    EXPECT_EQ(29, MapY2(frame, 10));
}

TEST(Mapping, ConversionsEachKeepTheirOwnRounding)
{
    CMoruDrawTool tool(nullptr, nullptr);
    EXPECT_EQ(-1, tool.VtoLP_X(-2.3));  // -2.3 + 0.5 truncates toward zero
    EXPECT_EQ(3, tool.VtoLP_X(2.5));
    EXPECT_EQ(2, tool.VtoLP_X(2.4));
    EXPECT_EQ(INT_MIN, tool.VtoLP_Y(std::nan("")));  // documented: out of range
    tool.SetScaleFactX(2.0);
    tool.SetOffsetX(4.0);
    EXPECT_EQ(3.0, tool.LPtoV_X(10));  // subtracts the offset first
    tool.SetScaleFactY(0.0);
    EXPECT_TRUE(std::isinf(tool.LPtoV_Y(5))) << "a zero scale divides by zero";
}

TEST(Mapping, CurrentPositionDividesBeforeSubtractingTheOffset)
{
    DibCanvas canvas(8, 8);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetScaleFactX(2.0);
    tool.SetOffsetX(4.0);
    tool.SetScaleFactY(2.0);
    tool.SetOffsetY(100.0);
    ::MoveToEx(canvas.Dc().m_hDC, 10, 300, nullptr);
    const CPoint at = tool.GetCurrentPosition();
    EXPECT_EQ(1, at.x);   // 10 / 2 - 4, while LPtoV_X(10) is 3
    EXPECT_EQ(50, at.y);  // 300 / 2 - 100, while LPtoV_Y(300) is 100
    tool.SetScaleFactY(0.0);
    EXPECT_EQ(0, tool.GetCurrentPosition().y) << "an infinite quotient reads as 0";
    tool.Finalize();
}

TEST(Mapping, SetScaleFactFillsScaleFact2OnlyWhileItIsZero)
{
    CMoruDrawTool tool(nullptr, nullptr);
    tool.SetScaleFact(2.0);
    EXPECT_EQ(2.0, tool.GetScaleFact());
    EXPECT_EQ(2.0, tool.GetScaleFact2());
    tool.SetScaleFact(3.0);
    EXPECT_EQ(3.0, tool.GetScaleFact());
    EXPECT_EQ(2.0, tool.GetScaleFact2());
    tool.SetScaleFact2(0.0);
    tool.SetScaleFact(4.0);
    EXPECT_EQ(4.0, tool.GetScaleFact2());
    tool.SetScaleFact2(std::nan(""));
    tool.SetScaleFact(5.0);
    EXPECT_TRUE(std::isnan(tool.GetScaleFact2())) << "NaN does not compare equal to 0 and stays";
}

TEST(Mapping, RotateTurnsCounterClockwiseInDegrees)
{
    CMoruDrawTool tool(nullptr, nullptr);
    double x = 1.0, y = 0.0;
    tool.rotate(x, y, &x, &y, 90.0);  // outputs may alias the inputs
    EXPECT_NEAR(0.0, x, 1e-15);
    EXPECT_EQ(1.0, y);
    tool.rotate(2.0, 0.0, &x, &y, 180.0);
    EXPECT_NEAR(-2.0, x, 1e-15);
    EXPECT_NEAR(0.0, y, 1e-15);
    tool.rotate(1.0, 1.0, nullptr, &y, 45.0);  // documented: a null output is skipped
    EXPECT_NEAR(std::sqrt(2.0), y, 1e-15);
}
