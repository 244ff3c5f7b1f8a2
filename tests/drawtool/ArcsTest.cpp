#include "common/DibCanvas.h"
#include "common/DrawingRecords.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <string>
#include <vector>

namespace {

const COLORREF kWhite = RGB(255, 255, 255);

// The first and last inked columns of row `y`, as "first..last".
std::string InkedColumns(const DibCanvas& canvas, int y)
{
    int first = -1, last = -1;
    for (int x = 0; x < canvas.Width(); ++x)
        if (canvas.Pixel(x, y) != kWhite) {
            if (first < 0)
                first = x;
            last = x;
        }
    return std::to_string(first) + ".." + std::to_string(last);
}

} // namespace

TEST(Arcs, ArcArcToAndPieMapEveryCoordinateOnItsOwn)
{
    RecordingTool t(2.0, 3.0, 1.0, 0.0);
    const RECT box = {-5, -5, 5, 5};
    EXPECT_NE(0, t.tool.Arc(-5, -5, 5, 5, 5, 0, 0, 5));
    EXPECT_NE(0, t.tool.Arc(&box, POINT{5, 0}, POINT{0, 5}));
    EXPECT_NE(0, t.tool.Pie(-5, -5, 5, 5, 5, 0, 0, 5));
    EXPECT_NE(0, t.tool.Pie(&box, POINT{5, 0}, POINT{0, 5}));
    EXPECT_NE(0, t.tool.ArcTo(-5, -5, 5, 5, 5, 0, 0, 5));
    EXPECT_NE(0, t.tool.ArcTo(&box, POINT{5, 0}, POINT{0, 5}));
    // Box (-9, -15, 11, 15), stored inclusive; radials (11, 0) and (1, 15).
    ExpectDrawingCalls(
        {
            "ARC -9 -15 10 14 11 0 1 15",
            "ARC -9 -15 10 14 11 0 1 15",
            "PIE -9 -15 10 14 11 0 1 15",
            "PIE -9 -15 10 14 11 0 1 15",
            "ARCTO -9 -15 10 14 11 0 1 15",
            "ARCTO -9 -15 10 14 11 0 1 15",
        },
        t.Finish());
}

TEST(Arcs, AngleArcScalesItsRadiusByScaleFactOnly)
{
    RecordingTool t(5.0, 7.0, 1.0, 2.0);
    t.tool.SetScaleFact(3.0);
    EXPECT_NE(0, t.tool.AngleArc(0, 0, 5, 0.0f, 90.0f));
    t.tool.SetScaleFact(1.1);
    t.tool.AngleArc(1, 1, 5, -45.5f, 370.0f);  // 5.5 pushed to 6; angles as given
    ExpectDrawingCalls({"ANGLEARC 1 2 15 0 90", "ANGLEARC 6 9 6 -45.5 370"}, t.Finish());
}

TEST(Arcs, CirclesTakeTheirRadiusByThreeRules)
{
    {
        // ScaleFact for the radius, the axes for the centre: a true circle.
        RecordingTool t(1.0, 3.0);
        t.tool.SetScaleFact(2.0);
        EXPECT_NE(0, t.tool.Circle(0, 0, 10));
        t.tool.Circle(POINT{1, 1}, 10);
        ExpectDrawingCalls(
            {
                "ELLIPSE -20 -20 19 19",  // Ellipse(-20, -20, 20, 20), stored inclusive
                "ELLIPSE -19 -17 20 22",  // centre (1, 3)
            },
            t.Finish());
    }
    {
        // Device pixels: whatever the factors, radius 10 stays 10.
        RecordingTool t(1.0, 3.0);
        t.tool.SetScaleFact(2.0);
        EXPECT_NE(0, t.tool.Circle2(0, 0, 10));
        EXPECT_NE(0, t.tool.Circle3(0, 0, 10));
        EXPECT_NE(0, t.tool.Circle3(POINT{0, 0}, 10));
        t.tool.Circle2(POINT{0, 0}, 10);
        ExpectDrawingCalls(
            {
                "ELLIPSE -10 -10 9 9",    // Circle2: Ellipse(-10, -10, 10, 10)
                "ELLIPSE -10 -10 10 10",  // Circle3: Ellipse(-10, -10, 11, 11)
                "ELLIPSE -10 -10 9 9",    // Circle3's POINT form draws as Circle2 (intended)
                "ELLIPSE -10 -10 9 9",
            },
            t.Finish());
    }
    {
        // Circle2 rounds the centre before adding the radius; Circle3 adds
        // it to the unrounded centre: centre x 1 * 1.5 + 0.25 = 1.75.
        RecordingTool t(1.5, 1.0, 0.25, 0.0);
        t.tool.Circle2(1, 0, 10);
        t.tool.Circle3(1, 0, 10);
        ExpectDrawingCalls(
            {
                "ELLIPSE -8 -10 11 9",  // centre 2: Ellipse(-8, -10, 12, 10)
                "ELLIPSE -9 -10 12 10", // RoundToInt(-8.25) = -9, RoundToInt(12.75) = 13
            },
            t.Finish());
    }
}

TEST(Arcs, Circle3IsSymmetricAboutItsCentrePixel)
{
    DibCanvas canvas(40, 40);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.Circle3(20, 10, 5);
    tool.Circle2(20, 30, 5);
    tool.Finalize();
    EXPECT_EQ("15..25", InkedColumns(canvas, 10)) << "Circle3 spans centre - 5 to centre + 5";
    EXPECT_EQ("15..24", InkedColumns(canvas, 30)) << "Circle2 is one pixel narrower";
}

TEST(Arcs, ArchTruncatesItsRadialPointsAndOrdersItsBox)
{
    RecordingTool t;
    EXPECT_NE(0, t.tool.Arch(0, 0, 10, 0.0, 90.0));
    t.tool.Arch(0, 0, 10, 45.0, 135.0);
    t.tool.Arch(POINT{0, 0}, -10, 0.0, 90.0);
    t.tool.Arch(5, -5, 10, 180.0, 270.0);
    ExpectDrawingCalls(
        {
            "ARC -10 -10 9 9 10 0 0 10",    // Arc(-10, -10, 10, 10, 10, 0, 0, 10)
            "ARC -10 -10 9 9 7 7 -7 7",     // 7.07 truncated toward zero, both signs
            "ARC -10 -10 9 9 -10 0 0 -10",  // negative radius: same square, opposite side
            // 180 and 270 degrees: sin and cos leave 1.2e-15 and -1.8e-15,
            // so -5 + 1.2e-15 truncates to -4 and 5 - 1.8e-15 to 4.
            "ARC -5 -15 14 4 -5 -4 4 -15",
        },
        t.Finish());

    // The radial points are truncated in virtual units and then mapped:
    // 7 * 1.5 = 10.5 pushed to 11, -10.5 to -11 (rounding 7.07 first would
    // give 12).
    RecordingTool scaled(1.5, -1.0);
    scaled.tool.Arch(0, 0, 10, 45.0, 135.0);
    ExpectDrawingCalls({"ARC -15 -10 14 9 11 -7 -11 -7"}, scaled.Finish());
}

TEST(Arcs, HugeRadiiSaturateAndUndefinedAnglesStayDefined)
{
    RecordingTool t;
    t.tool.Circle2(INT_MAX - 5, 0, 10);
    t.tool.Arch(INT_MIN + 5, 0, 10, 180.0, 0.0);
    t.tool.Arch(0, 0, 10, NAN, INFINITY);
    ExpectDrawingCalls(
        {
            "ELLIPSE 2147483632 -10 2147483646 9",  // right end held at INT_MAX, stored inclusive
            // Left end held at INT_MIN; the start radial (INT_MIN - 5)
            // leaves the 32-bit range and truncates to INT_MIN.
            "ARC -2147483648 -10 -2147483634 9 -2147483648 0 -2147483633 0",
            "ARC -10 -10 9 9 -2147483648 -2147483648 -2147483648 -2147483648",  // NaN radials
        },
        t.Finish());
}
