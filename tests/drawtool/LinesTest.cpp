#include "common/DibCanvas.h"
#include "common/DrawingRecords.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace {

std::string Describe(POINT p) { return "(" + std::to_string(p.x) + ", " + std::to_string(p.y) + ")"; }

// Host points 0..count-1 at (i, i % 7 - 3): each point differs from its
// neighbours, so a seam that drops or repeats the wrong point shows.
std::vector<POINT> ZigZag(int count)
{
    std::vector<POINT> points(count);
    for (int i = 0; i < count; ++i)
        points[i] = POINT{i, i % 7 - 3};
    return points;
}

} // namespace

TEST(Lines, SinglePointCallsMapPerAxisOrUniformly)
{
    // LineTo(100, 50) with ScaleFactX 2.5, OffsetX 10, ScaleFactY -2.5: the
    // typical call, 100 * 2.5 + 10 = 260 and 50 * -2.5 = -125.
    RecordingTool perAxis(2.5, -2.5, 10.0, 0.0);
    perAxis.tool.MoveTo(POINT{0, 0});
    EXPECT_NE(0, perAxis.tool.LineTo(100, 50));
    perAxis.tool.LineTo(POINT{-4, 1});
    // Uniform calls take ScaleFact (3) on both axes, with the same offsets.
    perAxis.tool.SetScaleFact(3.0);
    perAxis.tool.MoveTo2(1, 2);
    perAxis.tool.LineTo2(POINT{-1, -2});
    perAxis.tool.MoveTo2(POINT{5, 0});
    perAxis.tool.LineTo2(0, 5);
    ExpectDrawingCalls(
        {
            "MOVETOEX 10 0",
            "LINETO 260 -125",
            "LINETO 0 -3",      // -4 * 2.5 + 10 = 0; 1 * -2.5 = -2.5 pushed to -3
            "MOVETOEX 13 6",    // 1 * 3 + 10, 2 * 3
            "LINETO 7 -6",
            "MOVETOEX 25 0",
            "LINETO 10 15",
        },
        perAxis.Finish());

    // Every fraction is pushed away from zero: 3 * 1.1 = 3.0000000000000004.
    RecordingTool fractions(1.1, 1.1);
    fractions.tool.MoveTo(3, -3);
    fractions.tool.LineTo(2, 0);
    ExpectDrawingCalls({"MOVETOEX 4 -4", "LINETO 3 0"}, fractions.Finish());
}

TEST(Lines, MoveToReturnsThePreviousPositionInDeviceUnits)
{
    RecordingTool t(2.0, 2.0);
    t.tool.MoveTo(1, 2);
    const CPoint previous = t.tool.MoveTo(10, 20);
    EXPECT_EQ(Describe(POINT{2, 4}), Describe(previous)) << "device position, not mapped back";
    EXPECT_EQ(Describe(POINT{10, 20}), Describe(t.tool.GetCurrentPosition()));
    t.tool.SetScaleFact(3.0);
    EXPECT_EQ(Describe(POINT{20, 40}), Describe(t.tool.MoveTo2(POINT{1, 1})));
    t.Finish();
}

TEST(Lines, PointArraysAreMappedAndHandedOverInOneCall)
{
    RecordingTool t(2.0, -1.5, 1.0, 0.0);
    POINT points[4] = {{0, 0}, {1, 1}, {-3, 2}, {5, -1}};
    const BYTE types[4] = {PT_MOVETO, PT_LINETO, PT_LINETO, PT_LINETO | PT_CLOSEFIGURE};
    EXPECT_NE(0, t.tool.Polyline(points, 4));
    EXPECT_NE(0, t.tool.Polygon(points, 3));
    EXPECT_NE(0, t.tool.PolyBezier(points, 4));
    EXPECT_NE(0, t.tool.PolylineTo(points, 2));
    EXPECT_NE(0, t.tool.PolyBezierTo(points + 1, 3));
    EXPECT_NE(0, t.tool.PolyDraw(points, types, 4));
    // Mapped: x * 2 + 1; y * -1.5 pushed away from zero (-1.5 -> -2, -3 -> -3,
    // 1.5 -> 2).
    ExpectDrawingCalls(
        {
            "POLYLINE 4: 1,0 3,-2 -5,-3 11,2",
            "POLYGON 3: 1,0 3,-2 -5,-3",
            "POLYBEZIER 4: 1,0 3,-2 -5,-3 11,2",
            "POLYLINETO 2: 1,0 3,-2",
            "POLYBEZIERTO 3: 3,-2 -5,-3 11,2",
            "POLYDRAW 4: 1,0 3,-2 -5,-3 11,2 types 6 2 2 3",
        },
        t.Finish());
    EXPECT_EQ(Describe(POINT{5, -1}), Describe(points[3])) << "the host's array is never written";
}

TEST(Lines, ShortAndMissingArraysMakeNoDeviceCall)
{
    POINT points[3] = {{1, 1}, {2, 2}, {3, 3}};
    const BYTE types[3] = {PT_MOVETO, PT_LINETO, PT_LINETO};
    const DWORD counts[3] = {1, 1, 1};
    // Each case: count, points, types, polyCounts.
    const struct {
        int count;
        POINT* points;
        const BYTE* types;
        const DWORD* counts;
    } cases[] = {
        {1, points, types, counts}, {0, points, types, counts}, {-1, points, types, counts},
        {INT_MIN, points, types, counts},
        {3, nullptr, types, counts},   // no points
        {3, points, nullptr, nullptr}, // no types (PolyDraw) or counts (PolyPolyline)
    };
    for (const auto& c : cases) {
        RecordingTool t;
        const int results[] = {
            c.types ? t.tool.Polyline(c.points, c.count) : 0,
            c.types ? t.tool.PolylineTo(c.points, c.count) : 0,
            c.types ? t.tool.Polygon(c.points, c.count) : 0,
            c.types ? t.tool.PolyBezier(c.points, c.count) : 0,
            c.types ? t.tool.PolyBezierTo(c.points, c.count) : 0,
            t.tool.PolyDraw(c.points, c.types, c.count),
            t.tool.PolyPolyline(c.points, c.counts, c.count),
        };
        for (int result : results)
            EXPECT_EQ(0, result) << "count " << c.count << (c.points ? "" : ", null points");
        ExpectDrawingCalls({}, t.Finish());
    }
}

TEST(Lines, PolyPolylineMapsCountPointsAndRefusesLongerLists)
{
    POINT points[6] = {{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}};
    {
        // `count` is the number of polylines and also the number of points
        // mapped: two polylines here, so two points (0 and 1) reach GDI.
        // GDI's own answer (a refusal of the empty polyline) comes back.
        RecordingTool t(10.0, 10.0);
        const DWORD counts[2] = {2, 0};
        const POINT mapped[2] = {{0, 0}, {10, 10}};
        EmfRecorder direct;
        EXPECT_EQ(::PolyPolyline(direct.Dc().m_hDC, mapped, counts, 2), t.tool.PolyPolyline(points, counts, 2));
        ExpectDrawingCalls({"POLYPOLYLINE 2: 0,0 10,10 counts 2 0"}, t.Finish());
    }
    {
        RecordingTool t(10.0, 10.0);
        const DWORD counts[4] = {2, 2, 0, 0};
        t.tool.PolyPolyline(points, counts, 4);
        ExpectDrawingCalls({"POLYPOLYLINE 4: 0,0 10,10 20,20 30,30 counts 2 2 0 0"}, t.Finish());
    }
    {
        // Regression: counts adding up to more than `count` made GDI read
        // points past the end of the mapped copy.
        RecordingTool t;
        const DWORD counts[2] = {3, 3};
        EXPECT_EQ(0, t.tool.PolyPolyline(points, counts, 2));
        const DWORD wrapping[2] = {0xFFFFFFFFu, 2};  // sums that wrap in 32 bits are still too long
        EXPECT_EQ(0, t.tool.PolyPolyline(points, wrapping, 2));
        ExpectDrawingCalls({}, t.Finish());
    }
}

TEST(Lines, LongPolylinesAreDrawnInRunsThatShareTheirSeamPoints)
{
    struct Case {
        int count;
        std::vector<size_t> runSizes;
    };
    const Case cases[] = {
        {15000, {15000}},
        {15001, {15001, 1}},
        {30000, {15001, 15000}},
        {30001, {15001, 15001, 1}},
    };
    for (const Case& c : cases) {
        std::vector<POINT> host = ZigZag(c.count);
        RecordingTool t(2.0, 3.0);
        t.tool.Polyline(host.data(), c.count);
        const std::vector<EmfRecord> records = t.Finish();

        std::vector<std::vector<POINT>> runs;
        for (const EmfRecord& record : records)
            if (record.type == EMR_POLYLINE || record.type == EMR_POLYLINE16)
                runs.push_back(RecordPoints(record));
        std::vector<size_t> sizes;
        for (const auto& run : runs)
            sizes.push_back(run.size());
        ASSERT_EQ(c.runSizes, sizes) << "run sizes for " << c.count << " points; records: "
                                     << DumpRecordTypes(records);

        // Run r starts at host point 15000 r; all but the last end on the
        // next run's first point.
        for (size_t r = 0; r < runs.size(); ++r)
            for (size_t i = 0; i < runs[r].size(); ++i) {
                const POINT& h = host[r * 15000 + i];
                const POINT expected{h.x * 2, h.y * 3};
                if (runs[r][i].x != expected.x || runs[r][i].y != expected.y) {
                    ADD_FAILURE() << c.count << " points: run " << r << " position " << i << " expected "
                                  << Describe(expected) << " got " << Describe(runs[r][i]);
                    break;
                }
            }
    }
}

TEST(Lines, LongPolylineAnswersWithItsLastRun)
{
    // On a DIB, GDI refuses a one-point polyline: 15001 points end in such a
    // run and so answer 0 although the first run drew the whole line.
    struct Case {
        int count;
        bool succeeds;
    };
    const Case cases[] = {{15000, true}, {15001, false}, {30000, true}, {30001, false}};
    for (const Case& c : cases) {
        DibCanvas canvas(64, 64);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        tool.Initialize(nullptr, 0);
        std::vector<POINT> host = ZigZag(c.count);
        const int result = tool.Polyline(host.data(), c.count);
        tool.Finalize();
        EXPECT_EQ(c.succeeds, result != 0) << c.count << " points answered " << result;
        EXPECT_EQ(RGB(0, 0, 0), canvas.Pixel(10, 0)) << "host point 10 is inked, for " << c.count << " points";
    }
}

TEST(Lines, HugeAndUndefinedCoordinatesSaturateOrGoToZero)
{
    // Mapped values beyond the 32-bit range hold at its ends; NaN maps to 0.
    RecordingTool t(1e12, -1e12);
    t.tool.MoveTo(1, 1);
    t.tool.SetScaleFactX(NAN);
    t.tool.SetScaleFactY(INFINITY);
    t.tool.LineTo(1, 1);
    ExpectDrawingCalls({"MOVETOEX 2147483647 -2147483648", "LINETO 0 0"}, t.Finish());
}

TEST(Lines, PointListsMapExactlyAsSinglePointsDo)
{
    // Point lists are mapped two points at a time by their own arithmetic;
    // it must agree with MapPoint on every point, fractions, halves, ties
    // and range ends included.
    struct Frame {
        double scaleX, scaleY, offsetX, offsetY;
    };
    const Frame frames[] = {
        {1.1, -1.1, 0.0, 0.0},
        {0.6, -0.55, 12.25, 1010.5},
        {1.0 / 3.0, 0.1, -0.5, 0.5},
        {1.0, 1.0, -1.1102230246251565e-16, 5.551115123125783e-17},  // 1 - 2^-53 and 2^-54 above whole values
        {0.5, -0.5, 0.0, 0.0},                                        // exact halves
        {1e-9, 3e-12, 0.49999999999999994, -0.49999999999999994},
        {1.0, 1.0, 0.0, 0.0},
        {4096.5, -4096.25, 0.75, -0.75},
        {1e9, 1.0, 0.0, 0.0},  // most sums beyond the 32-bit range
        {NAN, 1.0, 0.0, INFINITY},
    };
    std::mt19937 random(20240601);
    std::uniform_int_distribution<int> any(INT_MIN, INT_MAX);
    std::uniform_int_distribution<int> small(-5000, 5000);
    std::vector<POINT> smallPoints, anyPoints;
    for (int i = 0; i < 2001; ++i) {  // odd: the last point is mapped alone
        smallPoints.push_back(POINT{small(random), small(random)});
        anyPoints.push_back(POINT{any(random), any(random)});
    }
    anyPoints[7] = POINT{INT_MAX, INT_MIN};
    anyPoints[8] = POINT{INT_MIN, INT_MAX};
    for (const Frame& f : frames)
        for (const std::vector<POINT>* list : {&smallPoints, &anyPoints}) {
            RecordingTool t(f.scaleX, f.scaleY, f.offsetX, f.offsetY);
            std::vector<POINT> host = *list;
            t.tool.Polyline(host.data(), static_cast<int>(host.size()));
            std::vector<std::vector<POINT>> lines;
            for (const EmfRecord& record : t.Finish())
                if (record.type == EMR_POLYLINE || record.type == EMR_POLYLINE16)
                    lines.push_back(RecordPoints(record));
            ASSERT_EQ(1u, lines.size()) << "frame " << f.scaleX << " " << f.scaleY;
            const std::vector<POINT>& got = lines[0];
            ASSERT_EQ(host.size(), got.size());
            CoordinateFrame frame;
            frame.scaleFactX = f.scaleX;
            frame.scaleFactY = f.scaleY;
            frame.offsetX = f.offsetX;
            frame.offsetY = f.offsetY;
            int shown = 0;
            for (size_t i = 0; i < host.size(); ++i) {
                const POINT expected = MapPoint(frame, host[i]);
                if ((expected.x != got[i].x || expected.y != got[i].y) && shown++ < 5)
                    ADD_FAILURE() << "frame (" << f.scaleX << ", " << f.scaleY << ", " << f.offsetX << ", "
                                  << f.offsetY << ") point " << Describe(host[i]) << ": expected "
                                  << Describe(expected) << " got " << Describe(got[i]);
            }
        }
}
