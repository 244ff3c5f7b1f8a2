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

// The sums a list mapping is most likely to get wrong: each power of two up to 2^32 of either sign and the four
// doubles either side of it, halves, the ends of the 32-bit range, the doubles around 2^-54 and 1, NaN and the
// infinities.
static std::vector<double> HardSums()
{
    std::vector<double> sums = {0.5, 1.5, 2.5, 0x1p-54, 0x1p-53, 0x1.fffffffffffffp-1, 2147483646.5, 2147483647.0,
                                2147483647.5, -2147483647.0, -2147483647.5, -2147483648.0, -2147483648.5, 1e300,
                                DBL_MIN, std::nan(""), HUGE_VAL};
    for (int m = 0; m <= 32; ++m) {
        for (double value = std::ldexp(1.0, m), k = 0; k <= 4; ++k, value = std::nextafter(value, 0.0))
            sums.push_back(value);
        for (double value = std::ldexp(1.0, m), k = 1; k <= 4; ++k)
            sums.push_back(value = std::nextafter(value, HUGE_VAL));
    }
    for (size_t i = 0, n = sums.size(); i < n; ++i)
        sums.push_back(-sums[i]);
    return sums;
}

// Regression: the list mapping once added 1.0 before truncating, so that a sum one step below a power of two went
// one unit too far (ScaleFactX 1.4, OffsetX 50 put x = 330 on 513 instead of 512), and only some lanes fell back.
TEST(Mapping, PointListsMapExactlyAsSinglePointsOnHardSums)
{
    CoordinateFrame frame{0, 0, 1.0, 0.0, 1.4, 1.4, 50.0, 50.0};
    POINT mapped[3];
    const POINT issue[3] = {{330, 330}, {330, 330}, {330, 330}};
    MapPoints(frame, issue, 3, mapped);
    EXPECT_EQ(512, mapped[0].x) << "1.4 * 330 + 50 lies one step below 512";
    EXPECT_EQ(512, mapped[2].y) << "the tail point too";

    // Each sum reached through several frames; lists of one to three identical points cover pairs and the tail.
    const unsigned modes[] = {_RC_NEAR, _RC_CHOP, _RC_UP, _RC_DOWN};
    int checked = 0;
    for (const double sum : HardSums()) {
        const struct { int x; double scale, offset; } ways[] = {
            {0, 1.0, sum}, {1, sum, 0.0}, {2, sum / 2, 0.0}, {-1, -sum, 0.0}, {7, 1.0, sum - 7.0}, {330, 1.4, sum - 462.0},
        };
        for (const auto& way : ways) {
            for (const unsigned mode : modes) {
                _controlfp(mode, _MCW_RC);
                frame = CoordinateFrame{0, 0, 1.0, 0.0, way.scale, -way.scale, way.offset, -way.offset};
                const POINT p{way.x, way.x};
                const POINT expected = MapPoint(frame, p);
                for (int count = 1; count <= 3; ++count) {
                    const POINT same[3] = {p, p, p};
                    MapPoints(frame, same, count, mapped);
                    for (int i = 0; i < count; ++i, ++checked)
                        ASSERT_TRUE(mapped[i].x == expected.x && mapped[i].y == expected.y)
                            << std::hexfloat << way.scale << " * " << way.x << " + " << way.offset << " (mode " << mode
                            << ", point " << i << " of " << count << "): expected (" << expected.x << ", "
                            << expected.y << "), got (" << mapped[i].x << ", " << mapped[i].y << ")";
                }
            }
        }
    }
    _controlfp(_RC_NEAR, _MCW_RC);
    EXPECT_GT(checked, 10000);
}

TEST(Mapping, PointListsMapExactlyAsSinglePointsOnRandomFrames)
{
    std::mt19937 random(42);
    std::uniform_real_distribution<double> scale(-3.0, 3.0), offset(-1e3, 1e3);
    std::uniform_int_distribution<int> coordinate(-100000, 100000), wide(INT_MIN, INT_MAX);
    for (int trial = 0; trial < 100; ++trial) {
        CoordinateFrame frame;
        frame.scaleFactX = scale(random);
        frame.scaleFactY = trial % 7 ? scale(random) : 1e300;
        frame.offsetX = offset(random);
        frame.offsetY = offset(random);
        std::vector<POINT> from(1 + trial), to(from.size());
        for (POINT& p : from)
            p = POINT{trial % 3 ? coordinate(random) : wide(random), coordinate(random)};
        MapPoints(frame, from.data(), static_cast<int>(from.size()), to.data());
        for (size_t i = 0; i < from.size(); ++i) {
            const POINT expected = MapPoint(frame, from[i]);
            ASSERT_TRUE(expected.x == to[i].x && expected.y == to[i].y)
                << "trial " << trial << " point " << i << ": expected (" << expected.x << ", " << expected.y
                << "), got (" << to[i].x << ", " << to[i].y << ")";
        }
    }
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
