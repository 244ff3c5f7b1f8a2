#include "common/EmfRecording.h"

TEST(Arcs, CornersAndCentresPerAxisRadiiByThreeRulesArchTruncated)
{
    // Arch, unit frame: at 45-135 degrees 7.07 truncated toward zero, either
    // sign; a negative radius: same square, other side. Then truncated in
    // virtual units and mapped: 7 * 1.5 = 10.5 pushed to 11 (rounding 7.07
    // first would give 12); the box put in order.
    RecordingTool t;
    t.tool.Arch(0, 0, 10, 45.0, 135.0);
    t.tool.Arch(POINT{0, 0}, -10, 0.0, 90.0);
    t.Frame(1.5, -1.0);
    t.tool.Arch(0, 0, 10, 45.0, 135.0);
    // ScaleFactX 1, ScaleFactY 3, ScaleFact 2. Arc, ArcTo, Pie: box (-5, -15,
    // 5, 15), stored inclusive; radial points (5, 0), (0, 15). AngleArc and
    // Circle: radius by ScaleFact, centre per axis. Circle2 and Circle3:
    // device pixels; Circle3 is one pixel wider, its POINT form draws as
    // Circle2 (intended).
    t.Frame(1.0, 3.0, 0.0, 0.0, 2.0);
    t.tool.Arc(-5, -5, 5, 5, 5, 0, 0, 5);
    t.tool.Pie(-5, -5, 5, 5, 5, 0, 0, 5);
    t.tool.ArcTo(-5, -5, 5, 5, 5, 0, 0, 5);
    t.tool.AngleArc(1, 1, 5, -45.5f, 370.0f);
    t.tool.Circle(1, 1, 10);
    t.tool.Circle3(0, 0, 10);
    t.tool.Circle3(POINT{0, 0}, 10);
    // Circle2 rounds the centre 1 * 1.5 + 0.25 = 1.75 before adding the
    // radius; Circle3 adds it first: -8.25 and 12.75 pushed to -9 and 13.
    t.Frame(1.5, 3.0, 0.25, 0.0, 2.0);
    t.tool.Circle2(1, 0, 10);
    t.tool.Circle3(1, 0, 10);
    // Radii by ScaleFact 1.1: 3 * 1.1 = 3.3000000000000003 is pushed to 4 (RoundToInt, not to nearest).
    t.Frame(1.0, 1.0, 0.0, 0.0, 1.1);
    t.tool.AngleArc(0, 0, 3, 0.0f, 90.0f);
    t.tool.Circle(0, 0, 3);
    EXPECT_DRAWS(t.Finish(), {"ARC -10 -10 9 9 7 7 -7 7", "ARC -10 -10 9 9 -10 0 0 -10",
                              "ARC -15 -10 14 9 11 -7 -11 -7",
                              "ARC -5 -15 4 14 5 0 0 15", "PIE -5 -15 4 14 5 0 0 15", "ARCTO -5 -15 4 14 5 0 0 15",
                              "ANGLEARC 1 3 10",                                 // centre, radius
                              "ELLIPSE -19 -17 20 22",                           // Ellipse(-19, -17, 21, 23)
                              "ELLIPSE -10 -10 10 10", "ELLIPSE -10 -10 9 9",    // Circle3 both forms
                              "ELLIPSE -8 -10 11 9", "ELLIPSE -9 -10 12 10",
                              "ANGLEARC 0 0 4", "ELLIPSE -4 -4 3 3"});
}
