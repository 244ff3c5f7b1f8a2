#include "common/DibCanvas.h"
#include "common/DrawingRecords.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace {

// The calls of Arrow(0, 0, 100, angle, headLength, headAngle, style) in a
// unit frame.
std::vector<EmfRecord> RecordArrow(int style, double angle = 0.0, int headLength = 10, double headAngle = 30.0)
{
    RecordingTool t;
    t.tool.Arrow(0, 0, 100, angle, headLength, headAngle, style);
    return t.Finish();
}

std::string Describe(POINT p) { return "(" + std::to_string(p.x) + ", " + std::to_string(p.y) + ")"; }

} // namespace

TEST(Arrows, LineAndFilledHeadsByPosition)
{
    // Head length 10 at 30 degrees: each side is 10 / cos 30 = 11.547 long
    // and reaches 5.77 off the shaft, rounded half away from zero to 6.
    ExpectDrawingCalls(
        {
            "MOVETOEX 0 0", "LINETO 0 100",                  // shaft
            "POLYGON 4: 0,0 6,10 -6,10 0,0",                 // filled head pointing at the start
        },
        RecordArrow(1));
    ExpectDrawingCalls(
        {
            "MOVETOEX 0 0", "LINETO 0 100",
            "POLYGON 4: 0,0 -6,-10 6,-10 0,0",               // still at the start, sides reaching back
        },
        RecordArrow(11));
    ExpectDrawingCalls(DrawingCalls(RecordArrow(1)), RecordArrow(21));  // position 2 of kind 1 is kind 1
    ExpectDrawingCalls(
        {
            "MOVETOEX 0 0", "LINETO 0 100",
            "MOVETOEX 0 0", "LINETO 6 10",                   // head at the start point
            "MOVETOEX 0 0", "LINETO -6 10",
        },
        RecordArrow(0));
    ExpectDrawingCalls(
        {
            "MOVETOEX 0 0", "LINETO 0 100",
            "MOVETOEX 0 100", "LINETO -6 90",                // head at the tip, pointing at it
            "MOVETOEX 0 100", "LINETO 6 90",
        },
        RecordArrow(10));
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100"}, RecordArrow(20));   // kind 0 at position 2: shaft only
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100"}, RecordArrow(-10));  // position -1: shaft only
    for (int style : {3, 13, 23, -1, 9, -21})
        ExpectDrawingCalls({}, RecordArrow(style));  // unknown kinds draw nothing at all

    // 90 degrees points along -x (the y term of 6e-15 rounds away).
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO -100 0"}, RecordArrow(20, 90.0));
}

TEST(Arrows, BlockArrowOutline)
{
    // Head 10 long at 60 degrees: wings 10 tan 60 = 17.32 off the axis, body
    // half-width 10 tan 30 = 5.77, cut square level with the tip.
    ExpectDrawingCalls({"POLYGON 8: 0,0 17,10 6,10 6,100 -6,100 -6,10 -17,10 0,0"}, RecordArrow(2, 0.0, 10, 60.0));
    // Position 1 flips only the wings behind the start point.
    ExpectDrawingCalls({"POLYGON 8: 0,0 -17,-10 6,10 6,100 -6,100 -6,10 17,-10 0,0"}, RecordArrow(12, 0.0, 10, 60.0));
}

TEST(Arrows, RoundsHalfAwayAndTruncatesTheTipApex)
{
    {
        // 10 tan 22 = 4.04: half-away rounding gives 4 where the mapping's
        // own rule would give 5.
        RecordingTool t;
        t.tool.Arrow(0, 0, 100, 0.0, 10, 22.0, 0);
        ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100", "MOVETOEX 0 0", "LINETO 4 10", "MOVETOEX 0 0",
                            "LINETO -4 10"},
                           t.Finish());
    }
    {
        // Tip (-4.9999999999999996, 8.66): the shaft ends at the rounded
        // (-5, 9), the head's apex at the truncated (-4, 8) (intended).
        RecordingTool t;
        t.tool.Arrow(0, 0, 10, 30.0, 2, 30.0, 10);
        ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO -5 9", "MOVETOEX -4 8", "LINETO -5 6", "MOVETOEX -4 8",
                            "LINETO -3 8"},
                           t.Finish());
    }
}

TEST(Arrows, FigureIsMappedLikeAnyOther)
{
    RecordingTool t(2.0, -1.0, 3.0, 0.0);
    t.tool.Arrow(1, 1, 100, 0.0, 10, 30.0, 1);
    ExpectDrawingCalls({"MOVETOEX 5 -1", "LINETO 5 -101", "POLYGON 4: 5,-1 17,-11 -7,-11 5,-1"}, t.Finish());
}

TEST(Arrows, PointsBeyondTheDeviceRangeAreLeftOut)
{
    // cos 90 degrees is 6e-17, not 0: the head's sides are about 1.6e17
    // long. Their lines and polygons are left out; the shaft stays.
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100"}, RecordArrow(1, 0.0, 10, 90.0));
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100"}, RecordArrow(10, 0.0, 10, 90.0));
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 0 100"}, RecordArrow(0, 0.0, 10, 90.0));
    ExpectDrawingCalls({}, RecordArrow(2, 0.0, 10, 90.0));
    // Kind 2 halves its head angle: 180 degrees gives 90-degree body sides.
    ExpectDrawingCalls({}, RecordArrow(2, 0.0, 10, 180.0));
    // NaN and infinite directions leave nothing to draw.
    for (double angle : {static_cast<double>(NAN), static_cast<double>(INFINITY)})
        for (int style : {0, 1, 2, 10})
            ExpectDrawingCalls({}, RecordArrow(style, angle));

    // Regression: a fill toward such a point (NaN rounded to INT_MIN on both
    // axes) kept a DIB busy for over 20 seconds under Wine.
    DibCanvas canvas(64, 64);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetBrush(BS_SOLID, RGB(255, 0, 0), 0);
    tool.Arrow(30, 30, 20, NAN, 5, 30.0, 2);
    tool.Arrow(30, 30, 20, 45.0, 5, 90.0, 1);
    tool.Finalize();
    EXPECT_NE(RGB(255, 255, 255), canvas.Pixel(29, 31)) << "the 45-degree shaft is drawn, toward -x and +y";
}

TEST(Ticks, DrawTickScalesItsLengthUniformlyAndReadsTheEndBack)
{
    RecordingTool t(1.0, -1.0);
    t.tool.SetScaleFact(2.0);
    EXPECT_EQ(Describe(POINT{10, 0}), Describe(t.tool.DrawTick(0, 0, 5, 1)));
    EXPECT_EQ(Describe(POINT{0, -10}), Describe(t.tool.DrawTick(POINT{0, 0}, 5, 0)))
        << "device y 10 reads back through ScaleFactY -1";
    ExpectDrawingCalls({"MOVETOEX 0 0", "LINETO 10 0", "MOVETOEX 0 0", "LINETO 0 10"}, t.Finish());

    // The start rounds half away from zero (2.2 -> 2, where the mapping
    // rule gives 3); the length too (3 * 1.5 = 4.5 -> 5, -4.5 -> -5). The
    // end reads back by dividing first: 7 / 2.2 = 3.2 pushed to 4.
    RecordingTool r(2.2, 1.1);
    r.tool.SetScaleFact(1.5);
    EXPECT_EQ(Describe(POINT{4, 1}), Describe(r.tool.DrawTick(1, 1, 3, 1)));
    EXPECT_EQ(Describe(POINT{0, -4}), Describe(r.tool.DrawTick(0, 1, -3, 0))) << "-4 / 1.1 = -3.6 pushed to -4";
    ExpectDrawingCalls({"MOVETOEX 2 1", "LINETO 7 1", "MOVETOEX 0 1", "LINETO 0 -4"}, r.Finish());
}

TEST(Ticks, DrawTick2StartsAtADevicePoint)
{
    RecordingTool t(3.0, 1.0, 0.0, 50.0);
    EXPECT_EQ(Describe(POINT{34, 55}), Describe(t.tool.DrawTick2(100, 100, 5, 0)))
        << "x 100 / 3 = 33.3 pushed to 34; y 105 / 1 - 50 = 55";
    t.tool.DrawTick2(POINT{-7, 3}, 2, 1);
    ExpectDrawingCalls({"MOVETOEX 100 100", "LINETO 100 105", "MOVETOEX -7 3", "LINETO -5 3"}, t.Finish());

    // An end beyond the 32-bit range holds at its edge; a length beyond it
    // rounds to INT_MIN, as RoundHalfAway defines.
    RecordingTool huge;
    huge.tool.DrawTick2(INT_MAX - 2, 0, 5, 1);
    huge.tool.DrawTick2(0, INT_MIN + 2, -5, 0);
    huge.tool.SetScaleFact(1e10);
    huge.tool.DrawTick2(7, 0, 1, 1);
    ExpectDrawingCalls(
        {
            "MOVETOEX 2147483645 0", "LINETO 2147483647 0",
            "MOVETOEX 0 -2147483646", "LINETO 0 -2147483648",
            "MOVETOEX 7 0", "LINETO -2147483641 0",  // 7 + INT_MIN
        },
        huge.Finish());
}
