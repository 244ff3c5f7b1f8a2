#include "common/EmfRecording.h"

// The calls of Arrow(0, 0, length, angle, head, headAngle, style), unit frame.
static Calls Arrow(int style, double angle = 0.0, double headAngle = 30.0, int length = 100, int head = 10)
{
    RecordingTool t;
    t.tool.Arrow(0, 0, length, angle, head, headAngle, style);
    return DescribeRecords(t.Finish(), true);
}

TEST(Arrows, HeadsByKindAndPosition)
{
    // style = 10 * position + kind. Head 10 at 30 degrees: its sides reach
    // 10 tan 30 = 5.77 off the shaft, rounded half away from zero to 6
    // (at 22 degrees 4.04 to 4, not 5).
    const std::string m = "MOVETOEX 0 0", shaft = "LINETO 0 100";
    EXPECT_EQ((Calls{m, shaft, "POLYGON 4: 0,0 6,10 -6,10 0,0"}), Arrow(1));     // filled, pointing at the start
    EXPECT_EQ((Calls{m, shaft, "POLYGON 4: 0,0 -6,-10 6,-10 0,0"}), Arrow(11));  // sides reaching back
    EXPECT_EQ(Arrow(1), Arrow(21));                                                 // position 2 of kind 1: as 1
    EXPECT_EQ((Calls{m, shaft, m, "LINETO 4 10", m, "LINETO -4 10"}), Arrow(0, 0.0, 22.0));
    EXPECT_EQ((Calls{m, shaft, "MOVETOEX 0 100", "LINETO -6 90", "MOVETOEX 0 100", "LINETO 6 90"}), Arrow(10));
    EXPECT_EQ((Calls{m, shaft}), Arrow(20));  // no head
    // Block arrow, head 10 at 60 degrees: wings 10 tan 60 = 17.3 off the
    // axis, body half-width 10 tan 30 = 5.77; position 1 flips the wings.
    EXPECT_EQ((Calls{"POLYGON 8: 0,0 17,10 6,10 6,100 -6,100 -6,10 -17,10 0,0"}), Arrow(2, 0.0, 60.0));
    EXPECT_EQ((Calls{"POLYGON 8: 0,0 -17,-10 6,10 6,100 -6,100 -6,10 17,-10 0,0"}), Arrow(12, 0.0, 60.0));
    // Tip (-4.9999999999999996, 8.66): the shaft ends at the rounded (-5, 9),
    // the head's apex at the truncated (-4, 8) (intended).
    EXPECT_EQ((Calls{m, "LINETO -5 9", "MOVETOEX -4 8", "LINETO -5 6", "MOVETOEX -4 8", "LINETO -3 8"}),
              Arrow(10, 30.0, 30.0, 10, 2));
    // A 90-degree head angle (180 for kind 2): cos 90 is 6e-17, the sides
    // 1.6e17 long; lines and polygons through such points are left out, as
    // with a NaN direction (a fill toward such a point once kept a DIB busy
    // for over 20 seconds under Wine). Unknown kinds draw nothing.
    for (int style : {0, 1, 10})
        EXPECT_EQ((Calls{m, shaft}), Arrow(style, 0.0, 90.0)) << "style " << style;
    for (auto [style, headAngle] : {std::pair{2, 180.0}, {3, 30.0}, {-1, 30.0}})
        EXPECT_EQ(Calls{}, Arrow(style, 0.0, headAngle)) << "style " << style << " head angle " << headAngle;
    for (int style : {0, 1, 2, 10})
        EXPECT_EQ(Calls{}, Arrow(style, NAN)) << "style " << style;
}

TEST(Ticks, DrawTickAndDrawTick2ReturnTheirEndInVirtualUnits)
{
    // DrawTick: length by ScaleFact; start and length rounded half away from
    // zero (2.2 -> 2 where the mapping gives 3; 4.5 -> 5, -4.5 -> -5); the
    // end reads back dividing first: 7 / 2.2 = 3.2 pushed to 4.
    RecordingTool t(2.2, -1.1, 0.0, 0.0, 1.5);
    EXPECT_EQ("4,1", DescribePoint(t.tool.DrawTick(1, 1, 3, 1)));
    EXPECT_EQ("0,6", DescribePoint(t.tool.DrawTick(POINT{0, 1}, -3, 0))) << "-6 / -1.1 = 5.45 pushed to 6";
    // DrawTick2 starts at a device point: x 100 / 2.2 = 45.5 pushed to 46.
    EXPECT_EQ("46,-94", DescribePoint(t.tool.DrawTick2(100, 100, 2, 0))) << "y 103 / -1.1 = -93.6 pushed to -94";
    // An arrow's points are mapped as any others.
    t.Frame(2.0, -1.0, 3.0);
    t.tool.Arrow(1, 1, 100, 0.0, 10, 30.0, 1);
    EXPECT_DRAWS(t.Finish(), {"MOVETOEX 2 -1", "LINETO 7 -1", "MOVETOEX 0 -1", "LINETO 0 -6", "MOVETOEX 100 100",
                              "LINETO 100 103", "MOVETOEX 5 -1", "LINETO 5 -101", "POLYGON 4: 5,-1 17,-11 -7,-11 5,-1"});
}
