// Text output and alignment of the drawing tool: the calls a host-derived CDC
// receives, and the ink of vertically centred text.
#include "common/DibCanvas.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

std::string Str(const RECT& r)
{
    return std::to_string(r.left) + "," + std::to_string(r.top) + "," + std::to_string(r.right) + "," + std::to_string(r.bottom);
}

// A host's CDC over a memory DC (so fonts and extents work) that overrides
// TextOut and DrawText: it logs each call, draws nothing and answers
// kAnswer. DrawText writes into the rectangle it receives, as DT_CALCRECT
// does, so a tool passing the host's own rectangle shows.
struct TextCallLog : CDC {
    static constexpr int kAnswer = 4711;
    std::string log;
    TextCallLog() { Attach(::CreateCompatibleDC(nullptr)); }
    int Log(const std::string& call, const char* text, int count)
    {
        log += call + " \"" + (text && count > 0 ? std::string(text, count) : "") + "\" " + std::to_string(count) + "; ";
        return kAnswer;
    }
    BOOL TextOut(int x, int y, const char* t, int n) override { return Log("TextOut " + std::to_string(x) + "," + std::to_string(y), t, n); }
    int DrawText(const char* t, int n, RECT* r, UINT format) override
    {
        const std::string call = "DrawText " + std::to_string(format) + " " + Str(*r);
        *r = RECT{-1, -1, -1, -1};
        return Log(call, t, n);
    }
};

// Initialize mode (1: y up), ScaleFactX/Y, OffsetX/Y, and whether
// SetTextAlignEx(TA_BASELINE) centres the text (TextShiftY negative).
struct Frame { int mode = 0; double scaleX = 1.0, scaleY = 1.0, offsetX = 0.0, offsetY = 0.0; bool centred = false; };

// Initializes `tool` in `frame` with a font whose "dummy" is an odd number of
// units high, so that halving it rounds; returns how far every text y moves:
// -TextShiftY, half the height with the half rounded away from zero.
int InitializeIn(CMoruDrawTool& tool, HDC dc, const Frame& frame)
{
    tool.SetScaleFactX(frame.scaleX); tool.SetScaleFactY(frame.scaleY);  // mode 1 turns ScaleFactY round
    tool.SetOffsetX(frame.offsetX); tool.SetOffsetY(frame.offsetY);
    tool.Initialize(nullptr, frame.mode);
    SIZE dummy = {};
    for (int height = 30; height < 60 && dummy.cy % 2 == 0; ++height) {
        tool.SetFont1A(height, 0, "Liberation Sans", 0);
        ::GetTextExtentPoint32A(dc, "dummy", 5, &dummy);
    }
    EXPECT_EQ(1, dummy.cy % 2) << "no font height from 30 to 59 makes \"dummy\" odd: are fonts installed for Wine?";
    if (frame.centred)
        tool.SetTextAlignEx(TA_BASELINE | TA_LEFT);
    return frame.centred ? (dummy.cy + 1) / 2 : 0;
}

} // namespace

TEST(TextOutput, HostDcSeesMappedPositionsHalfAwayShiftedAndTheByteLength)
{
    // `in` gives DrawText's rectangle and, by its top-left corner, TextOut's
    // point; `mapped` is where they land before the text shift.
    const struct { const char* what; Frame frame; RECT in, mapped; } cases[] = {
        {"unit frame", {}, {1, 2, 300, 400}, {1, 2, 300, 400}},
        {"ScaleFactX 2.25: 2.25 down, 4.5 up; ScaleFactY 1.1: +-3.3 to +-3", {0, 2.25, 1.1}, {1, 3, 2, -3}, {2, 3, 5, -3}},
        {"ScaleFactX/Y 2.5: halves away from zero", {0, 2.5, 2.5}, {-1, -1, 1, 1}, {-3, -3, 3, 3}},
        {"offsets after scaling: 4.75, 0.5, 0.25, -0.5", {0, 1.5, 1.0, 0.25, -0.5}, {3, 1, 0, 0}, {5, 1, 0, -1}},
        {"y-up frame, ScaleFactY 2", {1, 1.0, 2.0}, {10, 20, 100, 50}, {10, -40, 100, -100}},
        {"y-up frame, OffsetY 100", {1, 1.0, 1.0, 0.0, 100.0}, {10, 30, 0, 0}, {10, 70, 0, 100}},
        {"centred", {0, 1.0, 1.0, 0.0, 0.0, true}, {10, 20, 300, 400}, {10, 20, 300, 400}},
        {"centred, ScaleFactX 2.5", {0, 2.5, 1.0, 0.0, 0.0, true}, {-1, 5, 1, 6}, {-3, 5, 3, 6}},
        {"centred, y-up frame", {1, 1.0, 1.0, 0.0, 0.0, true}, {0, 10, 100, 50}, {0, -10, 100, -50}},
    };
    const UINT format = DT_CALCRECT | DT_NOPREFIX;
    for (const auto& c : cases) {
        TextCallLog dc;
        CMoruDrawTool tool(nullptr, &dc);
        const int shift = InitializeIn(tool, dc.m_hDC, c.frame);
        RECT host = c.in;
        const std::vector<int> answers = {tool.TextOutA(c.in.left, c.in.top, "abc"), tool.TextOutA(POINT{c.in.left, c.in.top}, "abc"),
                                          tool.TextOutW(c.in.left, c.in.top, L"abc"), tool.TextOutW(POINT{c.in.left, c.in.top}, L"abc"),
                                          tool.DrawTextA("abc", &host, format), tool.DrawTextW(L"abc", &host, format)};
        tool.Finalize();
        const RECT m = {c.mapped.left, c.mapped.top + shift, c.mapped.right, c.mapped.bottom + shift};
        const std::string textOut = "TextOut " + std::to_string(m.left) + "," + std::to_string(m.top) + " \"abc\" 3; ";
        const std::string drawText = "DrawText 3072 " + Str(m) + " \"abc\" 3; ";
        EXPECT_EQ(textOut + textOut + textOut + textOut + drawText + drawText, dc.log) << c.what << ", shift " << shift;
        EXPECT_EQ(Str(c.in), Str(host)) << c.what << ": the host's rectangle is never written";
        EXPECT_EQ(std::vector<int>(6, TextCallLog::kAnswer), answers) << c.what << ": the host DC's answers come back";
    }
}

TEST(TextAlign, BaselineBitsBecomeTopAlignmentAndAShiftOfHalfTheTextHeight)
{
    const struct { UINT request; bool ex; UINT onDc; bool centred; } cases[] = {
        {TA_BASELINE | TA_CENTER, true, TA_TOP | TA_CENTER, true}, {TA_BASELINE, true, TA_TOP, true},
        {TA_BASELINE | TA_RIGHT, true, TA_RIGHT, true}, {TA_BOTTOM | TA_CENTER, true, TA_BOTTOM | TA_CENTER, false},
        {TA_TOP, true, TA_TOP, false}, {TA_BASELINE, false, TA_BASELINE, false},  // plain SetTextAlign passes on
    };
    for (const auto& c : cases) {
        TextCallLog dc;
        CMoruDrawTool tool(nullptr, &dc);
        const int half = InitializeIn(tool, dc.m_hDC, Frame{0, 1.0, 1.0, 0.0, 0.0, true});  // a shift to clear
        ::SetTextAlign(dc.m_hDC, TA_UPDATECP);
        const std::string what = "case " + std::to_string(&c - cases);
        EXPECT_EQ(UINT(TA_UPDATECP), c.ex ? tool.SetTextAlignEx(c.request) : tool.SetTextAlign(c.request)) << what;
        EXPECT_EQ(c.onDc, ::GetTextAlign(dc.m_hDC)) << what << ": the DC's alignment";
        tool.SetFont1A(90, 0, nullptr, 0);  // a later font keeps the shift
        tool.TextOutA(10, 20, "x");
        tool.Finalize();
        EXPECT_EQ("TextOut 10," + std::to_string(c.centred ? 20 + half : 20) + " \"x\" 1; ", dc.log) << what;
    }
}

TEST(TextOutput, WideTextOutsideTheCodePageNullTextAndNullRect)
{
    // U+65E5 and U+2603 have no form in code page 1252, which the tests run
    // in: each becomes the conversion's replacement character '?'.
    ASSERT_EQ(1252u, ::GetACP()) << "the expected bytes below are code page 1252's";
    const wchar_t* wide = L"a\u65E5\u2603b";
    TextCallLog dc;
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    RECT rect = {1, 2, 30, 40};
    EXPECT_DOUBLE_EQ(tool.GetTextWidthA("a??b"), tool.GetTextWidthW(wide)) << "GetTextWidthW measures the conversion";
    tool.TextOutW(0, 0, wide); tool.DrawTextW(wide, &rect, 0);
    tool.TextOutA(5, 6, nullptr); tool.TextOutW(POINT{5, 6}, nullptr);
    tool.DrawTextA(nullptr, &rect, 0); tool.DrawTextW(nullptr, &rect, DT_CALCRECT);
    EXPECT_EQ(0, tool.DrawTextA("abc", nullptr, DT_CALCRECT)) << "DrawTextA, null rectangle: nothing drawn";
    EXPECT_EQ(0, tool.DrawTextW(L"abc", nullptr, 0)) << "DrawTextW, null rectangle: nothing drawn";
    EXPECT_EQ("TextOut 0,0 \"a??b\" 4; DrawText 0 1,2,30,40 \"a??b\" 4; TextOut 5,6 \"\" 0; TextOut 5,6 \"\" 0; "
              "DrawText 0 1,2,30,40 \"\" 0; DrawText 1024 1,2,30,40 \"\" 0; ", dc.log)
        << "converted text, null text as empty, no call for a null rectangle";
    tool.TextOutW(0, 0, L"x\xD800y");  // a lone surrogate converts somehow, never a crash
    tool.Finalize();
}

TEST(TextOutput, BaselineCentredInkStraddlesTheReferencePointInAYUpDc)
{
    // A DC whose logical y axis points up, one unit per pixel; mode 2 puts the
    // origin at the bottom-left corner, so virtual (200, 100) is pixel (200,
    // 100). "Hg" inks from cap height to descender, which the character-set-128
    // font of the test setup centres in its cell to about a pixel. Tolerance:
    // 2 pixels of a 60-pixel cell (uncentred text is 30 off).
    const int width = 400, height = 200;
    DibCanvas canvas(width, height);
    ::SetMapMode(canvas.Dc().m_hDC, MM_ANISOTROPIC);
    ::SetViewportExtEx(canvas.Dc().m_hDC, 1, -1, nullptr);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    RECT frame = {0, 0, width, height};
    tool.Initialize(&frame, 2);
    tool.SetFont1A(60, 0, "Liberation Sans", 0);
    tool.SetTextAlignEx(TA_BASELINE | TA_CENTER);
    tool.TextOutA(200, 100, "Hg");
    tool.Finalize();
    int top = height, bottom = -1;  // the rows with ink
    for (int y = 0; y < height; ++y)
        if (canvas.CountPixels(RGB(255, 255, 255), 0, y, width, y + 1) < width)
            top = std::min(top, y), bottom = y + 1;
    EXPECT_GT(bottom - top, 30) << "ink rows " << top << " to " << bottom << ": no 60-unit text (fonts installed?)";
    EXPECT_NEAR(100.0, (top + bottom) / 2.0, 2.0) << "vertical centre of ink rows " << top << " to " << bottom;
}
