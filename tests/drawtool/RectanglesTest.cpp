#include "common/EmfRecording.h"

TEST(Rectangles, MappedCornerByCornerOnlyFrameRectAndFillSolidRectPutInOrder)
{
    // Metafile boxes are stored inclusive: right and bottom read one less.
    RecordingTool t(3.0, 2.0);
    const RECT box = {1, 2, 5, 6};
    POINT corners[4] = {{0, 0}, {10, 0}, {10, 5}, {0, 5}}, shifts[4] = {{0, -1}, {2, 0}, {0, 3}, {-4, 0}};
    t.tool.Rectangle(1, 2, 5, 6);
    t.tool.Ellipse(1, 2, 5, 6);
    t.tool.RectanglePolygon(corners, nullptr);
    t.tool.RectanglePolygon(corners, shifts);
    // y up: the box is device (1, -2, 5, -6); FrameRect alone puts it in
    // order. user32 records fills (with the tool's brush) as blits: PATCOPY
    // 0xf00021 (15728673), DSTINVERT 0x550009 (5570569); with a null brush it
    // draws nothing.
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
    t.tool.ExtFloodFill(1, 2, RGB(1, 2, 3), FLOODFILLSURFACE);
    t.tool.DrawDragRect(&box, SIZE{2, 3}, nullptr, SIZE{}, nullptr, nullptr);  // device units
    // Null pointers draw nothing and return 0 (ERROR for the clip calls).
    EXPECT_EQ(0, t.tool.Rectangle(nullptr) + t.tool.Ellipse(nullptr) + t.tool.RectanglePolygon(nullptr, nullptr) +
                     t.tool.ExcludeClipRect(nullptr) + t.tool.IntersectClipRect(nullptr) +
                     t.tool.Arc(nullptr, {}, {}) + t.tool.ArcTo(nullptr, {}, {}) + t.tool.Pie(nullptr, {}, {}));
    t.tool.FillRect(nullptr, nullptr);
    t.tool.FrameRect(nullptr, nullptr);
    t.tool.InvertRect(nullptr);
    t.tool.FillSolidRect(nullptr, 0);
    EXPECT_DRAWS(t.Finish(), {"RECTANGLE 3 4 14 11", "ELLIPSE 3 4 14 11", "POLYGON 4: 0,0 30,0 30,10 0,10",
                              "POLYGON 4: 0,-1 32,0 30,13 -4,10",  // each corner its own shift, in device pixels
                              "BITBLT 1 -2 4 -4 15728673", "BITBLT 1 -2 4 -4 5570569",
                              "BITBLT 1 -6 1 4 15728673", "BITBLT 4 -6 1 4 15728673",  // frame: left, right,
                              "BITBLT 1 -6 4 1 15728673", "BITBLT 1 -3 4 1 15728673",  // top, bottom
                              "EXCLUDECLIPRECT 1 -2 5 -6", "INTERSECTCLIPRECT 1 -2 5 -6", "EXTTEXTOUTW 5 7 20 24",
                              "EXTTEXTOUTW 5 7 20 24", "EXTTEXTOUTW -2147483643 7 4 24",  // x INT_MIN + 5, cx INT_MAX
                              "EXTFLOODFILL 6 9 197121 1", "BITBLT 1 2 4 3 5898313", "BITBLT 1 5 4 1 5898313"});
}
