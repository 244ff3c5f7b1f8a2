#include "common/DibCanvas.h"
#include "common/EmfRecording.h"

TEST(Rectangles, MappedCornerByCornerOnlyFrameRectAndFillSolidRectPutInOrder)
{
    // Metafile boxes are stored inclusive: right and bottom read one less.
    RecordingTool t(3.0, 2.0);
    const RECT box = {1, 2, 5, 6};
    POINT corners[4] = {{0, 0}, {10, 0}, {10, 5}, {0, 5}}, shifts[4] = {{0, -1}, {2, 0}, {0, 3}, {-4, 0}};
    EXPECT_TRUE(t.tool.Rectangle(1, 2, 5, 6) && t.tool.Rectangle(&box) && t.tool.Rectangle(POINT{1, 2}, POINT{5, 6}) &&
                t.tool.Ellipse(1, 2, 5, 6) && t.tool.Ellipse(&box) && t.tool.RectanglePolygon(corners, nullptr) &&
                t.tool.RectanglePolygon(corners, shifts));
    // y up: the box is device (1, -2, 5, -6); FrameRect alone puts it in
    // order. user32 records fills (with the tool's brush) as blits: PATCOPY
    // f00021, DSTINVERT 550009; with a null brush it draws nothing.
    t.Frame(1.0, -1.0);
    t.tool.FillRect2(&box);
    t.tool.InvertRect(&box);
    t.tool.FrameRect2(&box);
    t.tool.FrameRect(&box, nullptr);
    t.tool.ExcludeClipRect(1, 2, 5, 6);
    t.tool.IntersectClipRect(&box);
    // Offsets (5, 7) are added to FillSolidRect's extent too; its RECT form
    // puts the virtual box in order first, a width beyond 32 bits holding at
    // INT_MAX.
    t.Frame(1.0, 1.0, 5.0, 7.0);
    t.tool.FillSolidRect(0, 0, 10, 10, RGB(1, 2, 3));
    EXPECT_EQ(RGB(1, 2, 3), t.tool.GetBkColor()) << "the background colour stays set";
    const RECT reversed = {10, 10, 0, 0}, wide = {INT_MAX, 0, INT_MIN, 10};
    t.tool.FillSolidRect(&reversed, 0);
    t.tool.FillSolidRect(&wide, 0);
    // Null pointers draw nothing and return 0 (ERROR for the clip calls).
    EXPECT_EQ(0, t.tool.Rectangle(nullptr) + t.tool.Ellipse(nullptr) + t.tool.RectanglePolygon(nullptr, nullptr) +
                     t.tool.ExcludeClipRect(nullptr) + t.tool.IntersectClipRect(nullptr));
    t.tool.FillRect(nullptr, nullptr);
    t.tool.FrameRect(nullptr, nullptr);
    for (auto draw : {&CMoruDrawTool::FillRect2, &CMoruDrawTool::FrameRect2, &CMoruDrawTool::InvertRect})
        (t.tool.*draw)(nullptr);
    t.tool.FillSolidRect(nullptr, 0);
    t.tool.DrawDragRect(nullptr, SIZE{1, 1}, nullptr, SIZE{1, 1}, nullptr, nullptr);
    EXPECT_DRAWS(t.Finish(), {"RECTANGLE 3 4 14 11", "RECTANGLE 3 4 14 11", "RECTANGLE 3 4 14 11",
                              "ELLIPSE 3 4 14 11", "ELLIPSE 3 4 14 11", "POLYGON 4: 0,0 30,0 30,10 0,10",
                              "POLYGON 4: 0,-1 32,0 30,13 -4,10",  // each corner its own shift, in device pixels
                              "BITBLT 1 -2 4 -4 rop f00021", "BITBLT 1 -2 4 -4 rop 550009",
                              "BITBLT 1 -6 1 4 rop f00021", "BITBLT 4 -6 1 4 rop f00021",  // frame: left, right,
                              "BITBLT 1 -6 4 1 rop f00021", "BITBLT 1 -3 4 1 rop f00021",  // top, bottom
                              "EXCLUDECLIPRECT 1 -2 5 -6", "INTERSECTCLIPRECT 1 -2 5 -6", "EXTTEXTOUTW 5 7 20 24",
                              "EXTTEXTOUTW 5 7 20 24", "EXTTEXTOUTW -2147483643 7 4 24"});  // x INT_MIN + 5, cx INT_MAX
}

TEST(Rectangles, PixelsAMetafileCannotShow)
{
    const COLORREF white = RGB(255, 255, 255), black = RGB(0, 0, 0), red = RGB(255, 0, 0);
    DibCanvas canvas(120, 40);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.SetOffsetX(1.0);  // every mapped point lands one pixel right
    tool.Initialize(nullptr, 0);
    auto inked = [&](int from, int to) { return 40 * (to - from) - canvas.CountPixels(white, from, 0, to, 40); };
    tool.Rectangle(10, 0, 20, 10);  // black outline, device (11, 0) to (20, 9) inclusive
    tool.SetBrush(BS_SOLID, red, 0);
    EXPECT_NE(0, tool.ExtFloodFill(12, 2, black, FLOODFILLBORDER));  // device (13, 2)
    EXPECT_EQ(8 * 8, canvas.CountPixels(red)) << "ExtFloodFill fills the inside of the outline, nothing else";
    EXPECT_NE(0, tool.DrawIcon(POINT{50, 0}, ::LoadIcon(nullptr, IDI_APPLICATION)));  // device (51, 0)
    EXPECT_GT(inked(51, 83), 0) << "DrawIcon left no pixels in its 32 x 32 box at device (51, 0)";
    EXPECT_EQ(0, inked(21, 51) + inked(83, 120)) << "DrawIcon inked pixels outside its box";
    // DrawDragRect: device units, XOR frames (red on white: cyan), the last
    // one erased on a move.
    const RECT first = {90, 10, 110, 30}, second = {94, 12, 114, 28};
    CBrush brush(red);
    tool.DrawDragRect(&first, SIZE{2, 3}, nullptr, SIZE{}, &brush, nullptr);
    EXPECT_EQ(400 - 16 * 14, canvas.CountPixels(RGB(0, 255, 255), 90, 10, 110, 30)) << "20 x 20 less 16 x 14";
    tool.DrawDragRect(&second, SIZE{2, 3}, &first, SIZE{2, 3}, &brush, &brush);
    tool.DrawDragRect(nullptr, SIZE{}, &second, SIZE{2, 3}, nullptr, &brush);
    EXPECT_EQ(0, inked(84, 120)) << "moving the frame and erasing it restores every pixel";
    tool.Finalize();
}
