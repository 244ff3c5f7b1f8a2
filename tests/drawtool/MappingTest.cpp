#include "common/DibCanvas.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <random>
#include <vector>

TEST(Mapping, RulesScaleThenOffsetThenPushAwayFromZero)
{
    const struct { double scale, offset, v; int expected; } cases[] = {
        {1.5, 0.25, 3, 5}, {1.5, 0.0, 3, 5},  // 4.75 and 4.5 both go up
        {1.1, 0.0, 3, 4}, {1.1, 0.0, -3, -4}, // 3.3000000000000003 is not whole
        {2.5, 10.0, 100, 260}, {-2.5, 0.0, 50, -125},
    };
    CoordinateFrame frame;
    for (const auto& c : cases) {
        frame.scaleFactX = frame.scaleFactY = c.scale;
        frame.offsetX = frame.offsetY = c.offset;
        EXPECT_EQ(c.expected, MapX(frame, c.v)) << c.scale << " * " << c.v << " + " << c.offset;
        EXPECT_EQ(c.expected, MapY(frame, c.v)) << c.scale << " * " << c.v << " + " << c.offset;
    }
    frame = CoordinateFrame{0, 0, 3.0, 0.0, 100.0, -100.0, 1.0, -1.0};
    EXPECT_EQ(31, MapX2(frame, 10)) << "the uniform rules use ScaleFact and the shared offsets";
    EXPECT_EQ(29, MapY2(frame, 10));
}

TEST(Mapping, PointListsMapExactlyAsSinglePoints)
{
    // The vectorised list mapping against the rule itself, on random frames
    // and points (including sums beyond the 32-bit range and whole sums),
    // in every processor rounding mode a host might have set.
    const unsigned modes[] = {_RC_NEAR, _RC_CHOP, _RC_UP, _RC_DOWN};
    std::mt19937 random(42);
    std::uniform_real_distribution<double> scale(-3.0, 3.0), offset(-1e3, 1e3);
    std::uniform_int_distribution<int> coordinate(-100000, 100000), wide(INT_MIN, INT_MAX);
    for (int trial = 0; trial < 200; ++trial) {
        CoordinateFrame frame;
        frame.scaleFactX = trial % 5 ? scale(random) : 2.0;  // every fifth: whole sums only
        frame.scaleFactY = trial % 7 ? scale(random) : 1e300;
        frame.offsetX = trial % 5 ? offset(random) : 3.0;
        frame.offsetY = offset(random);
        std::vector<POINT> from(1 + trial), to(from.size());
        for (POINT& p : from)
            p = POINT{trial % 3 ? coordinate(random) : wide(random), coordinate(random)};
        _controlfp(modes[trial % 4], _MCW_RC);
        MapPoints(frame, from.data(), static_cast<int>(from.size()), to.data());
        for (size_t i = 0; i < from.size(); ++i) {
            const POINT expected = MapPoint(frame, from[i]);
            ASSERT_TRUE(expected.x == to[i].x && expected.y == to[i].y)
                << "trial " << trial << " point " << i << ": expected (" << expected.x << ", " << expected.y
                << "), got (" << to[i].x << ", " << to[i].y << ")";
        }
    }
    _controlfp(_RC_NEAR, _MCW_RC);
}

TEST(Mapping, ConversionsAndCurrentPositionKeepTheirOwnRules)
{
    DibCanvas canvas(8, 8);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    EXPECT_EQ(-1, tool.VtoLP_X(-2.3));  // -2.3 + 0.5 truncates toward zero
    EXPECT_EQ(3, tool.VtoLP_X(2.5));
    EXPECT_EQ(2, tool.VtoLP_X(2.4));
    EXPECT_EQ(INT_MIN, tool.VtoLP_Y(std::nan("")));  // documented: out of range
    tool.Initialize(nullptr, 0);
    tool.SetScaleFactX(2.0);
    tool.SetOffsetX(4.0);
    tool.SetScaleFactY(2.0);
    tool.SetOffsetY(100.0);
    EXPECT_EQ(3.0, tool.LPtoV_X(10));  // subtracts the offset first...
    ::MoveToEx(canvas.Dc().m_hDC, 10, 300, nullptr);
    EXPECT_EQ(CPoint(1, 50), tool.GetCurrentPosition());  // ...while this divides first
    tool.SetScaleFactY(0.0);
    EXPECT_TRUE(std::isinf(tool.LPtoV_Y(5)));
    EXPECT_EQ(0, tool.GetCurrentPosition().y) << "an infinite quotient reads as 0";
    tool.Finalize();
}

TEST(Mapping, SetScaleFactFillsScaleFact2OnlyWhileItIsZero)
{
    CMoruDrawTool tool(nullptr, nullptr);
    EXPECT_EQ(0.0, tool.GetScaleFact2());
    tool.SetScaleFact(2.0);
    EXPECT_EQ(2.0, tool.GetScaleFact2());
    tool.SetScaleFact(3.0);
    EXPECT_EQ(3.0, tool.GetScaleFact());
    EXPECT_EQ(2.0, tool.GetScaleFact2());
    tool.SetScaleFact2(0.0);
    tool.SetScaleFact(4.0);
    EXPECT_EQ(4.0, tool.GetScaleFact2());
    tool.SetScaleFact2(std::nan(""));
    tool.SetScaleFact(5.0);
    EXPECT_TRUE(std::isnan(tool.GetScaleFact2())) << "NaN does not compare equal to 0";
}

TEST(Mapping, RotateTurnsCounterClockwiseInDegrees)
{
    CMoruDrawTool tool(nullptr, nullptr);
    double x = 1.0, y = 0.0;
    tool.rotate(x, y, &x, &y, 90.0);  // the outputs may alias the inputs
    EXPECT_NEAR(0.0, x, 1e-15);
    EXPECT_EQ(1.0, y);
    tool.rotate(1.0, 1.0, nullptr, &y, 45.0);  // documented: a null output is skipped
    EXPECT_NEAR(std::sqrt(2.0), y, 1e-15);
}
