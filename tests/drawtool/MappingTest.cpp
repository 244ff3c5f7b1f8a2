#include "common/EmfRecording.h"
#include "drawtool/Mapping.h"

#include <cfloat>

// Regression: the list mapping once added 1.0 before truncating, so that a
// sum one step below a power of two went one unit too far (ScaleFactX 1.4,
// OffsetX 50 put x = 330 on 513 instead of 512), and only some lanes fell
// back. The hard sums: each power of two up to 2^32 of either sign and the
// four doubles either side of it, halves, the ends of the 32-bit range, the
// doubles around 2^-54 and 1, NaN and the infinities, each reached through
// several frames and in every rounding mode, by lists of one to three
// identical points (pairs and the tail); nothing is written past a list.
// Both forms MapPoints chooses between are checked (four lanes where the
// processor has AVX).
TEST(Mapping, PointListsMapExactlyAsSinglePointsOnHardSums)
{
    std::vector<double> sums = {0.5, 1.5, 2.5, 0x1p-54, 0x1p-53, 0x1.fffffffffffffp-1, 2147483646.5, 2147483647.0,
                                2147483647.5, -2147483648.0, -2147483648.5, 1e300, DBL_MIN, NAN, HUGE_VAL};
    for (int m = 0; m <= 32; ++m) {
        double down = std::ldexp(1.0, m), up = down;
        for (int k = 0; k <= 4; ++k, down = std::nextafter(down, 0.0), up = std::nextafter(up, HUGE_VAL))
            sums.insert(sums.end(), {down, up});
    }
    for (size_t i = 0, n = sums.size(); i < n; ++i)
        sums.push_back(-sums[i]);
    std::vector<void (*)(const CoordinateFrame&, const POINT*, int, POINT*)> forms = {MapPointsTwoLanes};
    if (__builtin_cpu_supports("avx"))
        forms.push_back(MapPointsFourLanes);
    for (const double sum : sums) {
        const struct { int x; double scale, offset; } ways[] = {
            {0, 1.0, sum}, {1, sum, 0.0}, {2, sum / 2, 0.0}, {-1, -sum, 0.0}, {7, 1.0, sum - 7.0}, {330, 1.4, sum - 462.0},
        };
        for (const auto& way : ways)
            for (const unsigned mode : {_RC_NEAR, _RC_CHOP, _RC_UP, _RC_DOWN}) {
                _controlfp(mode, _MCW_RC);
                const CoordinateFrame frame{0, 0, 1.0, 0.0, way.scale, -way.scale, way.offset, -way.offset};
                const POINT p{way.x, way.x}, same[3] = {p, p, p}, none{-7, -7};
                const std::string e = DescribePoint(MapPoint(frame, p)), n = DescribePoint(none);
                for (int count = 1; count <= 3; ++count)
                    for (const auto form : forms) {
                        POINT got[4] = {none, none, none, none};
                        form(frame, same, count, got);
                        const Calls expected = {e, count > 1 ? e : n, count > 2 ? e : n, n};
                        ASSERT_EQ(expected, (Calls{DescribePoint(got[0]), DescribePoint(got[1]), DescribePoint(got[2]),
                                                   DescribePoint(got[3])}))
                            << std::hexfloat << way.scale << " * " << way.x << " + " << way.offset << ", mode " << mode;
                    }
            }
    }
    _controlfp(_RC_NEAR, _MCW_RC);
}

TEST(Mapping, ConversionsAndCurrentPositionKeepTheirOwnRules)
{
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    EXPECT_EQ(-1, tool.VtoLP_X(-2.3));  // -2.3 + 0.5 truncates toward zero
    EXPECT_EQ(3, tool.VtoLP_X(2.5));
    EXPECT_EQ(2, tool.VtoLP_X(2.4));
    EXPECT_EQ(INT_MIN, tool.VtoLP_Y(NAN));  // documented: out of range
    tool.SetScaleFactX(2.0);
    tool.SetOffsetX(4.0);
    tool.SetScaleFactY(2.0);
    tool.SetOffsetY(100.0);
    EXPECT_EQ(3.0, tool.LPtoV_X(10));  // subtracts the offset first...
    EXPECT_EQ(-45.0, tool.LPtoV_Y(10));
    ::MoveToEx(recorder.Dc().m_hDC, 10, 300, nullptr);
    EXPECT_EQ(CPoint(1, 50), tool.GetCurrentPosition());  // ...while this divides first
    tool.SetScaleFact(3.0);
    tool.MoveTo2(1, 2);
    EXPECT_EQ(CPoint(7, 106), tool.MoveTo(0, 0)) << "the \"2\" calls scale both axes by ScaleFact, then offset";
    tool.SetScaleFactY(0.0);
    EXPECT_TRUE(std::isinf(tool.LPtoV_Y(5)));
    EXPECT_EQ(0, tool.GetCurrentPosition().y) << "an infinite quotient reads as 0";
}
