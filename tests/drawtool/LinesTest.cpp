#include "common/DibCanvas.h"
#include "common/EmfRecording.h"

TEST(Lines, PointsAndListsAreMappedPerAxisOrUniformlyOrNotDrawn)
{
    // LineTo(100, 50) with ScaleFactX 2.5, OffsetX 10, ScaleFactY -2.5 gives
    // (260, -125); fractions are pushed away from zero; the "2" calls take
    // ScaleFact (3) on both axes. Lists: x 0 1 -3 5, y 0 1 2 -1; each call
    // reads the host's array unchanged.
    RecordingTool t(2.5, -2.5, 10.0, 0.0, 3.0);
    t.tool.MoveTo(POINT{0, 0});
    t.tool.LineTo(100, 50);
    t.tool.LineTo(POINT{-4, 1});
    EXPECT_EQ("0,-3", DescribePoint(t.tool.MoveTo2(1, 2))) << "MoveTo returns the previous position in device units";
    t.tool.LineTo2(POINT{-1, -2});
    EXPECT_EQ("7,-6", DescribePoint(t.tool.MoveTo(POINT{2, 0})));
    t.tool.MoveTo2(POINT{1, 1});
    t.tool.LineTo2(1, -1);
    POINT p[4] = {{0, 0}, {1, 1}, {-3, 2}, {5, -1}};
    const BYTE types[4] = {PT_MOVETO, PT_LINETO, PT_LINETO, PT_LINETO | PT_CLOSEFIGURE};
    const DWORD counts[3] = {2, 1, 0}, tipping[2] = {2, 1}, overCap[2] = {1u << 26, 1}, wrapping[2] = {0xFFFFFFFFu, 2};
    t.tool.Polyline(p, 4);
    t.tool.Polygon(p, 3);
    t.tool.PolyBezier(p, 4);
    t.tool.PolylineTo(p, 2);
    t.tool.PolyBezierTo(p + 1, 3);
    t.tool.PolyDraw(p, types, 4);
    t.tool.PolyPolyline(p, counts, 3);  // adding up to `count`: drawn (GDI then refuses the empty polyline)
    t.tool.PolyPolyline(p, tipping, 2); // the last entry tips the sum over `count`: all 3 points described are mapped
    // Nothing is drawn, 0 returned, for counts below 2, null points, types or
    // polyCounts, or polyCounts adding up to more than the cap (also when a
    // 32-bit sum would wrap).
    std::vector<int> refused = {t.tool.PolyDraw(p, nullptr, 3), t.tool.PolyPolyline(p, nullptr, 3),
                                t.tool.PolyPolyline(p, overCap, 2), t.tool.PolyPolyline(p, wrapping, 2)};
    for (const auto& [points, n] : {std::pair<POINT*, int>{p, 1}, {nullptr, 3}})
        refused.insert(refused.end(), {t.tool.Polyline(points, n), t.tool.PolylineTo(points, n), t.tool.Polygon(points, n),
                                       t.tool.PolyBezier(points, n), t.tool.PolyBezierTo(points, n),
                                       t.tool.PolyDraw(points, types, n), t.tool.PolyPolyline(points, counts, n)});
    EXPECT_EQ(std::vector<int>(refused.size(), 0), refused);
    // Beyond the 32-bit range values hold at its ends; NaN maps to 0.
    t.Frame(1e12, -1e12);
    t.tool.Polyline(p, 2);
    t.Frame(NAN, 1.0);
    t.tool.LineTo(1, 1);
    EXPECT_DRAWS(t.Finish(), {"MOVETOEX 10 0", "LINETO 260 -125", "LINETO 0 -3", "MOVETOEX 13 6", "LINETO 7 -6",
                              "MOVETOEX 15 0", "MOVETOEX 13 3", "LINETO 13 -3", "POLYLINE 4: 10,0 13,-3 3,-5 23,3",
                              "POLYGON 3: 10,0 13,-3 3,-5", "POLYBEZIER 4: 10,0 13,-3 3,-5 23,3",
                              "POLYLINETO 2: 10,0 13,-3", "POLYBEZIERTO 3: 13,-3 3,-5 23,3",
                              "POLYDRAW 4: 10,0 13,-3 3,-5 23,3",
                              "POLYPOLYLINE 3: 10,0 13,-3 3,-5",  // `count` points mapped
                              "POLYPOLYLINE 3: 10,0 13,-3 3,-5",  // the 2 + 1 points described
                              "POLYLINE 2: 0,0 2147483647,-2147483648", "LINETO 0 1"});
}

TEST(Lines, LongPolylinesRunIn15000PointStepsSharingTheirSeamPoints)
{
    // Host point i is (i, i % 7 - 3), mapped (2i, 3 (i % 7 - 3)): each point
    // differs from its neighbours. Each run is summed up as "size: first to
    // last"; all but the last end on the next run's first point. A DIB
    // refuses a one-point run: the answer is the last run's.
    auto runs = [](int count) {
        std::vector<POINT> host(count);
        for (int i = 0; i < count; ++i)
            host[i] = POINT{i, i % 7 - 3};
        DibCanvas canvas(64, 64);
        Calls summary = {"answer " + std::to_string(CMoruDrawTool(nullptr, &canvas.Dc()).Polyline(host.data(), count))};
        RecordingTool t(2.0, 3.0);
        t.tool.Polyline(host.data(), count);
        for (const std::string& run : DescribeRecords(t.Finish(), true))  // "POLYLINE n: x,y ... x,y"
            summary.push_back(run.substr(9, run.find(' ', run.find(':') + 2) - 9) + " to" + run.substr(run.rfind(' ')));
        return summary;
    };
    const std::string first = "15001: 0,-9 to 30000,9";
    EXPECT_EQ((Calls{"answer 1", "15000: 0,-9 to 29998,6"}), runs(15000));
    EXPECT_EQ((Calls{"answer 0", first, "1: 30000,9 to 30000,9"}), runs(15001));
    EXPECT_EQ((Calls{"answer 1", first, "15000: 30000,9 to 59998,3"}), runs(30000));  // no empty third run
    EXPECT_EQ((Calls{"answer 0", first, "15001: 30000,9 to 60000,6", "1: 60000,6 to 60000,6"}), runs(30001));
}
