#include "common/DibCanvas.h"
#include "common/DrawingRecords.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <string>
#include <vector>

namespace {

const COLORREF kWhite = RGB(255, 255, 255);
const COLORREF kBlack = RGB(0, 0, 0);
const COLORREF kRed = RGB(255, 0, 0);
const COLORREF kCyan = RGB(0, 255, 255);  // red XORed onto white

// "x y" of every pixel where the two canvases differ, for a failure message.
std::string DumpDifferences(const DibCanvas& a, const DibCanvas& b)
{
    std::string text;
    int shown = 0;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            if (a.Pixel(x, y) != b.Pixel(x, y) && shown++ < 20)
                text += "(" + std::to_string(x) + ", " + std::to_string(y) + ") ";
    return text;
}

void ExpectSamePixels(const DibCanvas& expected, const DibCanvas& got, const char* what)
{
    const std::string differences = DumpDifferences(expected, got);
    EXPECT_EQ("", differences) << what << ": pixels that differ from the expected picture";
}

} // namespace

TEST(Rectangles, ShapesAreMappedCornerByCorner)
{
    RecordingTool t(2.0, 3.0, 1.0, -0.5);
    const RECT box = {1, 2, 5, 6};
    EXPECT_NE(0, t.tool.Rectangle(1, 2, 5, 6));
    EXPECT_NE(0, t.tool.Rectangle(&box));
    EXPECT_NE(0, t.tool.Rectangle(POINT{1, 2}, POINT{5, 6}));
    EXPECT_NE(0, t.tool.Ellipse(1, 2, 5, 6));
    EXPECT_NE(0, t.tool.Ellipse(&box));
    // Device box (3, 6, 11, 18): 2 * 3 - 0.5 = 5.5 pushed to 6. Stored
    // inclusive, so right and bottom read one less.
    ExpectDrawingCalls(
        {
            "RECTANGLE 3 6 10 17",
            "RECTANGLE 3 6 10 17",
            "RECTANGLE 3 6 10 17",
            "ELLIPSE 3 6 10 17",
            "ELLIPSE 3 6 10 17",
        },
        t.Finish());
}

TEST(Rectangles, FrameRectPutsTheDeviceBoxInOrderFillAndInvertDoNot)
{
    // With y pointing up, virtual (0, 0, 10, 10) maps to device top 0 and
    // bottom -10. FillRect and InvertRect pass that on as it is; FrameRect
    // frames the ordered box (0, -10, 10, 0). user32 blits either way.
    RecordingTool t(1.0, -1.0);
    CBrush red(kRed);
    const RECT box = {0, 0, 10, 10};
    t.tool.FillRect(&box, &red);
    t.tool.InvertRect(&box);
    t.tool.FrameRect(&box, &red);
    ExpectDrawingCalls(
        {
            "BITBLT 0 0 10 -10 rop f00021",   // FillRect: PATCOPY, upside down
            "BITBLT 0 0 10 -10 rop 550009",   // InvertRect: DSTINVERT, upside down
            "BITBLT 0 -10 1 10 rop f00021",   // FrameRect: left edge
            "BITBLT 9 -10 1 10 rop f00021",   // right edge
            "BITBLT 0 -10 10 1 rop f00021",   // top edge
            "BITBLT 0 -1 10 1 rop f00021",    // bottom edge
        },
        t.Finish());
}

TEST(Rectangles, BrushArgumentsAndTheToolsOwnBrush)
{
    DibCanvas canvas(60, 20);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetScaleFactX(2.0);
    tool.SetScaleFactY(2.0);
    tool.Initialize(nullptr, 0);
    tool.SetBrush(BS_SOLID, kRed, 0);
    const RECT first = {0, 0, 5, 5};    // device (0, 0, 10, 10)
    const RECT second = {6, 0, 11, 5};  // device (12, 0, 22, 10)
    const RECT third = {12, 0, 17, 5};  // device (24, 0, 34, 10)
    const RECT fourth = {18, 0, 23, 5}; // device (36, 0, 46, 10)

    // A null brush is passed to user32 as it is: no frame appears.
    tool.FrameRect(&first, nullptr);
    EXPECT_EQ(0, canvas.CountOtherPixels(kWhite)) << "FrameRect with a null brush drew something";

    tool.FrameRect2(&first);
    EXPECT_EQ(36, canvas.CountPixels(kRed, 0, 0, 10, 10)) << "FrameRect2: a one-pixel red frame, 10 x 10";
    EXPECT_EQ(kWhite, canvas.Pixel(5, 5)) << "FrameRect2 leaves the inside";

    tool.FillRect2(&second);
    EXPECT_EQ(100, canvas.CountPixels(kRed, 12, 0, 22, 10)) << "FillRect2 fills with the tool's brush";

    CBrush black(kBlack);
    tool.FillRect(&third, &black);
    EXPECT_EQ(100, canvas.CountPixels(kBlack, 24, 0, 34, 10)) << "FillRect fills with the given brush";
    EXPECT_EQ(0, canvas.CountPixels(kBlack, 34, 0, 60, 20)) << "the right edge is excluded";

    tool.InvertRect(&fourth);
    EXPECT_EQ(100, canvas.CountPixels(kBlack, 36, 0, 46, 10)) << "InvertRect turns white to black";
    tool.Finalize();
}

TEST(Rectangles, FillSolidRectMapsTheExtentLikeACoordinate)
{
    // Offsets (5, 7) are added to the extent as well: width 10 + 5, height
    // 10 + 7, so the box is (5, 7, 20, 24).
    RecordingTool t(1.0, 1.0, 5.0, 7.0);
    t.tool.FillSolidRect(0, 0, 10, 10, RGB(1, 2, 3));
    EXPECT_EQ(RGB(1, 2, 3), t.tool.GetBkColor()) << "the background colour stays set";
    // The RECT form puts the virtual box in order first: (10, 10, 0, 0)
    // fills as (0, 0, 10, 10).
    const RECT reversed = {10, 10, 0, 0};
    t.tool.FillSolidRect(&reversed, RGB(1, 2, 3));
    t.tool.SetOffsetX(0.0);
    t.tool.SetOffsetY(0.0);
    t.tool.SetScaleFactX(1.5);
    t.tool.SetScaleFactY(-1.0);
    const RECT box = {1, 1, 4, 3};  // x 1.5 -> 2, width 3 * 1.5 = 4.5 -> 5; y -1, height -2
    t.tool.FillSolidRect(&box, RGB(1, 2, 3));
    ExpectDrawingCalls(
        {
            "OPAQUE 5 7 20 24",
            "OPAQUE 5 7 20 24",
            "OPAQUE 2 -1 7 -3",   // the negative height reaches the DC as it is
        },
        t.Finish());
}

TEST(Rectangles, RectanglePolygonShiftsCornersInDevicePixels)
{
    POINT corners[4] = {{0, 0}, {10, 0}, {10, 5}, {0, 5}};
    POINT right[4] = {{1, 0}, {1, 0}, {1, 0}, {1, 0}};
    POINT each[4] = {{0, -1}, {2, 0}, {0, 3}, {-4, 0}};
    RecordingTool t(3.0, 2.0);
    EXPECT_NE(0, t.tool.RectanglePolygon(corners, nullptr));
    EXPECT_NE(0, t.tool.RectanglePolygon(corners, right));
    EXPECT_NE(0, t.tool.RectanglePolygon(corners, each));
    ExpectDrawingCalls(
        {
            "POLYGON 4: 0,0 30,0 30,10 0,10",    // mapped corners only
            "POLYGON 4: 1,0 31,0 31,10 1,10",    // one pixel right, whatever the scale
            "POLYGON 4: 0,-1 32,0 30,13 -4,10",  // each corner its own shift
        },
        t.Finish());
    EXPECT_EQ(10, corners[1].x) << "the host's corners are never written";
}

TEST(Rectangles, ClipRectanglesAreMappedAndNotPutInOrder)
{
    RecordingTool t(2.0, -1.0);
    const RECT box = {1, 1, 3, 4};
    EXPECT_NE(ERROR, t.tool.ExcludeClipRect(1, 1, 3, 4));
    EXPECT_NE(ERROR, t.tool.IntersectClipRect(&box));
    EXPECT_NE(ERROR, t.tool.ExcludeClipRect(&box));
    EXPECT_NE(ERROR, t.tool.IntersectClipRect(1, 1, 3, 4));
    ExpectDrawingCalls(
        {
            "EXCLUDECLIPRECT 2 -1 6 -4",
            "INTERSECTCLIPRECT 2 -1 6 -4",
            "EXCLUDECLIPRECT 2 -1 6 -4",
            "INTERSECTCLIPRECT 2 -1 6 -4",
        },
        t.Finish());

    // On a DIB the clip really narrows what is drawn.
    DibCanvas canvas(40, 40);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetScaleFactX(2.0);
    tool.SetScaleFactY(2.0);
    tool.Initialize(nullptr, 0);
    EXPECT_EQ(SIMPLEREGION, tool.IntersectClipRect(0, 0, 10, 10));  // device (0, 0, 20, 20)
    tool.FillSolidRect(0, 0, 20, 20, kRed);
    tool.Finalize();
    EXPECT_EQ(400, canvas.CountPixels(kRed)) << "only the 20 x 20 clip box is filled";
}

TEST(Rectangles, FloodFillAndIconLandOnMappedPoints)
{
    DibCanvas canvas(80, 80);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetScaleFactX(2.0);
    tool.SetScaleFactY(2.0);
    tool.SetOffsetX(1.0);
    tool.Initialize(nullptr, 0);
    tool.Rectangle(0, 0, 10, 10);  // black outline, device (1, 0)-(20, 19) inclusive
    tool.SetBrush(BS_SOLID, kRed, 0);
    EXPECT_NE(0, tool.ExtFloodFill(2, 2, kBlack, FLOODFILLBORDER));  // device (5, 4)
    EXPECT_EQ(18 * 18, canvas.CountPixels(kRed)) << "the inside of the outline is filled, nothing else";

    // An icon records nothing in a metafile: look at the pixels.
    HICON icon = ::LoadIcon(nullptr, IDI_APPLICATION);
    ASSERT_NE(nullptr, icon);
    const int inkedBefore = canvas.CountOtherPixels(kWhite);
    EXPECT_NE(0, tool.DrawIcon(POINT{20, 20}, icon));  // device (41, 40)
    tool.Finalize();
    const int iconInk = canvas.CountOtherPixels(kWhite) - inkedBefore;
    EXPECT_GT(iconInk, 0) << "the icon left no pixels";
    EXPECT_EQ(iconInk, 32 * 32 - canvas.CountPixels(kWhite, 41, 40, 73, 72))
        << "every icon pixel lies in the 32 x 32 box at device (41, 40)";
}

TEST(Rectangles, DrawDragRectXorsDeviceFramesAndErasesTheLastOne)
{
    // The tool's frame is ignored: the rectangles are device coordinates.
    auto makeTool = [](DibCanvas& canvas) {
        auto tool = std::make_unique<CMoruDrawTool>(nullptr, &canvas.Dc());
        tool->SetScaleFactX(3.0);
        tool->SetScaleFactY(-2.0);
        tool->SetOffsetX(7.0);
        tool->Initialize(nullptr, 0);
        return tool;
    };
    const RECT first = {10, 10, 30, 30};
    const RECT second = {14, 12, 34, 28};
    const SIZE thick = {2, 3};
    CBrush red(kRed);

    DibCanvas canvas(40, 40);
    const std::unique_ptr<CMoruDrawTool> tool = makeTool(canvas);
    tool->DrawDragRect(&first, thick, nullptr, SIZE{}, &red, nullptr);
    // Frame of 20 x 20 less the inside 16 x 14.
    EXPECT_EQ(400 - 16 * 14, canvas.CountPixels(kCyan, 10, 10, 30, 30)) << "first frame, red XOR white";
    EXPECT_EQ(400 - 16 * 14, canvas.CountOtherPixels(kWhite)) << "nothing outside the frame";

    tool->DrawDragRect(&second, thick, &first, thick, &red, &red);
    DibCanvas alone(40, 40);
    const std::unique_ptr<CMoruDrawTool> reference = makeTool(alone);
    reference->DrawDragRect(&second, thick, nullptr, SIZE{}, &red, nullptr);
    ExpectSamePixels(alone, canvas, "moving the frame");

    tool->DrawDragRect(nullptr, thick, &second, thick, nullptr, &red);
    EXPECT_EQ(0, canvas.CountOtherPixels(kWhite)) << "erasing the last frame restores every pixel";

    // Without a brush the frame is a halftone: every other pixel.
    tool->DrawDragRect(&first, SIZE{1, 1}, nullptr, SIZE{}, nullptr, nullptr);
    EXPECT_EQ(38, canvas.CountOtherPixels(kWhite)) << "half of the 76 frame pixels";
    tool->DrawDragRect(nullptr, SIZE{}, &first, SIZE{1, 1}, nullptr, nullptr);
    EXPECT_EQ(0, canvas.CountOtherPixels(kWhite)) << "the halftone frame erases itself";

    // A border thicker than half the rectangle covers it whole, once.
    tool->DrawDragRect(&first, SIZE{50, 50}, nullptr, SIZE{}, &red, nullptr);
    EXPECT_EQ(400, canvas.CountPixels(kCyan)) << "every pixel inverted exactly once";

    tool->Finalize();
    reference->Finalize();
}

TEST(Rectangles, NullRectanglesDrawNothing)
{
    RecordingTool t;
    CBrush red(kRed);
    EXPECT_EQ(0, t.tool.Rectangle(nullptr));
    EXPECT_EQ(0, t.tool.Ellipse(nullptr));
    EXPECT_EQ(0, t.tool.RectanglePolygon(nullptr, nullptr));
    EXPECT_EQ(ERROR, t.tool.ExcludeClipRect(nullptr));
    EXPECT_EQ(ERROR, t.tool.IntersectClipRect(nullptr));
    t.tool.FillRect(nullptr, &red);
    t.tool.FillRect2(nullptr);
    t.tool.FrameRect(nullptr, &red);
    t.tool.FrameRect2(nullptr);
    t.tool.InvertRect(nullptr);
    t.tool.FillSolidRect(nullptr, kRed);
    t.tool.DrawDragRect(nullptr, SIZE{1, 1}, nullptr, SIZE{1, 1}, nullptr, nullptr);
    ExpectDrawingCalls({}, t.Finish());
}

TEST(Rectangles, HugeBoxesSaturate)
{
    // A reversed RECT spanning the whole 32-bit range: its width does not
    // wrap, it holds at INT_MAX.
    RecordingTool t;
    const RECT wide = {INT_MAX, 0, INT_MIN, 10};
    t.tool.FillSolidRect(&wide, kRed);
    POINT corners[4] = {{INT_MAX, 0}, {0, 0}, {0, INT_MIN}, {1, 1}};
    POINT shifts[4] = {{5, 0}, {0, 0}, {0, -5}, {0, 0}};
    t.tool.RectanglePolygon(corners, shifts);
    const std::vector<std::string> calls = DrawingCalls(t.Finish());
    ASSERT_EQ(2u, calls.size()) << DumpCalls(calls);
    EXPECT_EQ("OPAQUE -2147483648 0 -1 10", calls[0]);
    EXPECT_EQ("POLYGON 4: 2147483647,0 0,0 0,-2147483648 1,1", calls[1]);
}
