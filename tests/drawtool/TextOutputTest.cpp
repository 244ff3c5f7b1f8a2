// Text output of the drawing tool: where text lands (metafile records and a
// host-derived CDC), what the host's DC receives, and the ink it produces.
#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/TextRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

// A frame for one case: Initialize mode (1 flips y), scales, offsets, and
// whether SetTextAlignEx(TA_BASELINE) sets a text shift.
struct Frame {
    int mode = 0;
    double scaleX = 1.0, scaleY = 1.0, offsetX = 0.0, offsetY = 0.0;
    bool centred = false;
};

// Initializes `tool` in `frame` with a 40-unit font and returns the shift
// the tool is expected to add to every y: half the height of "dummy", a half
// rounded up (the tool subtracts its negative TextShiftY).
int InitializeIn(CMoruDrawTool& tool, HDC dc, const Frame& frame)
{
    tool.SetScaleFactY(frame.scaleY);
    tool.Initialize(nullptr, frame.mode);
    tool.SetScaleFactX(frame.scaleX);
    tool.SetOffsetX(frame.offsetX);
    tool.SetOffsetY(frame.offsetY);
    tool.SetFont1A(40, 0, "Liberation Sans", 0);
    if (!frame.centred)
        return 0;
    tool.SetTextAlignEx(TA_BASELINE | TA_LEFT);
    SIZE dummy = {};
    ::GetTextExtentPoint32A(dc, "dummy", 5, &dummy);
    return static_cast<int>((dummy.cy + 1) / 2);
}

std::string Dump(const RECT& rect)
{
    return "{" + std::to_string(rect.left) + ", " + std::to_string(rect.top) + ", " + std::to_string(rect.right) +
           ", " + std::to_string(rect.bottom) + "}";
}

void ExpectRectEq(const RECT& expected, const RECT& got, const std::string& where)
{
    EXPECT_TRUE(::EqualRect(&expected, &got)) << where << ": expected " << Dump(expected) << ", got " << Dump(got);
}

// The bounding box of the pixels that differ from white; empty if none.
RECT InkBounds(const DibCanvas& canvas)
{
    RECT box = {canvas.Width(), canvas.Height(), -1, -1};
    for (int y = 0; y < canvas.Height(); ++y)
        for (int x = 0; x < canvas.Width(); ++x)
            if (canvas.Pixel(x, y) != RGB(255, 255, 255)) {
                box.left = std::min<LONG>(box.left, x);
                box.top = std::min<LONG>(box.top, y);
                box.right = std::max<LONG>(box.right, x + 1);
                box.bottom = std::max<LONG>(box.bottom, y + 1);
            }
    return box;
}

} // namespace

TEST(TextOutput, PositionsRoundHalfAwayAndMoveByTheTextShift)
{
    struct Case {
        const char* what;
        Frame frame;
        int x, y;
        int deviceX, deviceY;  // before the text shift
    };
    const Case cases[] = {
        {"unit frame", {}, 10, 20, 10, 20},
        {"ScaleFactX 2.25: 2.25 rounds down", {0, 2.25}, 1, 0, 2, 0},
        {"ScaleFactX 2.5: the half rounds up", {0, 2.5}, 1, 0, 3, 0},
        {"ScaleFactX 2.5, x -1: the half rounds away from zero", {0, 2.5}, -1, 0, -3, 0},
        {"ScaleFactX 1.1: 3.3 rounds to nearest, not up", {0, 1.1}, 3, 0, 3, 0},
        {"ScaleFactY 2.5, y -1", {0, 1.0, 2.5}, 0, -1, 0, -3},
        {"ScaleFactY 1.1, y -3: -3.3 to -3", {0, 1.0, 1.1}, 0, -3, 0, -3},
        {"offsets after scaling: 4.75 and 0.5", {0, 1.5, 1.0, 0.25, -0.5}, 3, 1, 5, 1},
        {"negative offset: -0.5 rounds to -1", {0, 1.0, 1.0, -0.5, 0.0}, 0, 0, -1, 0},
        {"y-up frame (mode 1), ScaleFactY 2", {1, 1.0, 2.0}, 10, 20, 10, -40},
        {"y-up frame with OffsetY 100", {1, 1.0, 1.0, 0.0, 100.0}, 10, 30, 10, 70},
        {"centred, unit frame", {0, 1.0, 1.0, 0.0, 0.0, true}, 10, 20, 10, 20},
        {"centred, ScaleFactX 2.5, x -1", {0, 2.5, 1.0, 0.0, 0.0, true}, -1, 5, -3, 5},
        {"centred, y-up frame", {1, 1.0, 1.0, 0.0, 0.0, true}, 10, 20, 10, -20},
    };
    for (const Case& c : cases) {
        EmfRecorder recorder;
        CMoruDrawTool tool(nullptr, &recorder.Dc());
        const int shift = InitializeIn(tool, recorder.Dc().m_hDC, c.frame);
        EXPECT_NE(0, tool.TextOutA(c.x, c.y, "abc")) << c.what << ": TextOutA's result";
        tool.TextOutA(POINT{c.x, c.y}, "abc");
        tool.TextOutW(c.x, c.y, L"abc");
        tool.TextOutW(POINT{c.x, c.y}, L"abc");
        tool.Finalize();
        const std::vector<RecordedText> texts = RecordedTexts(recorder.Finish());
        ASSERT_EQ(4u, texts.size()) << c.what << ": " << DumpRecordedTexts(texts);
        const char* calls[] = {"TextOutA(x, y)", "TextOutA(POINT)", "TextOutW(x, y)", "TextOutW(POINT)"};
        for (size_t i = 0; i < texts.size(); ++i) {
            const std::string where = std::string(c.what) + ", " + calls[i];
            EXPECT_EQ(c.deviceX, texts[i].reference.x) << where << ": x";
            EXPECT_EQ(c.deviceY + shift, texts[i].reference.y) << where << ": y, shift " << shift;
            EXPECT_EQ("abc", texts[i].text) << where;
            EXPECT_EQ(3u, texts[i].chars) << where;
        }
    }
}

TEST(TextOutput, DrawTextMapsEveryEdgeAndNeverWritesTheHostsRect)
{
    struct Case {
        const char* what;
        Frame frame;
        RECT rect;
        RECT mapped;  // before the text shift
    };
    const Case cases[] = {
        {"unit frame", {}, {1, 2, 300, 400}, {1, 2, 300, 400}},
        {"ScaleFactX 2.5: halves away from zero", {0, 2.5}, {-1, 0, 1, 10}, {-3, 0, 3, 10}},
        {"ScaleFactX 2.25, ScaleFactY 1.1", {0, 2.25, 1.1}, {1, 3, 2, -3}, {2, 3, 5, -3}},
        {"offsets", {0, 1.0, 1.0, 0.5, -0.5}, {0, 0, 10, 11}, {1, -1, 11, 11}},
        {"y-up frame: top stays above bottom, unordered", {1}, {0, 10, 100, 50}, {0, -10, 100, -50}},
        {"centred: both edges move", {0, 1.0, 1.0, 0.0, 0.0, true}, {0, 10, 100, 50}, {0, 10, 100, 50}},
        {"centred y-up frame", {1, 1.0, 1.0, 0.0, 0.0, true}, {0, 10, 100, 50}, {0, -10, 100, -50}},
    };
    const UINT format = DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX;
    for (const Case& c : cases) {
        // The host's CDC sees the mapped copy; it writes into it as DT_CALCRECT
        // does, and the host's rectangle stays as it was.
        TextCallRecorderDC dc;
        CMoruDrawTool tool(nullptr, &dc);
        const int shift = InitializeIn(tool, dc.m_hDC, c.frame);
        const RECT expected = {c.mapped.left, c.mapped.top + shift, c.mapped.right, c.mapped.bottom + shift};
        RECT host = c.rect;
        EXPECT_EQ(dc.result, tool.DrawTextA("abc", &host, format)) << c.what << ": the host DC's answer";
        ExpectRectEq(c.rect, host, std::string(c.what) + ", DrawTextA, host rectangle");
        EXPECT_EQ(dc.result, tool.DrawTextW(L"abc", &host, format)) << c.what << ": the host DC's answer";
        ExpectRectEq(c.rect, host, std::string(c.what) + ", DrawTextW, host rectangle");
        ASSERT_EQ(2u, dc.calls.size()) << c.what << ": " << DumpTextCalls(dc.calls);
        for (const TextCall& call : dc.calls) {
            EXPECT_EQ(TextCall::kDrawText, call.kind) << c.what << ": " << DumpTextCall(call);
            ExpectRectEq(expected, call.rect, std::string(c.what) + ", rectangle received");
            EXPECT_EQ(format, call.format) << c.what << ": format passed unchanged";
            EXPECT_EQ("abc", call.text) << c.what;
            EXPECT_EQ(3, call.count) << c.what;
        }
        tool.Finalize();

        // On a real DC the text is clipped to the same rectangle.
        EmfRecorder recorder;
        CMoruDrawTool drawing(nullptr, &recorder.Dc());
        InitializeIn(drawing, recorder.Dc().m_hDC, c.frame);
        host = c.rect;
        drawing.DrawTextA("abc", &host, DT_LEFT | DT_NOPREFIX);
        drawing.Finalize();
        const std::vector<RecordedText> texts = RecordedTexts(recorder.Finish());
        ASSERT_EQ(1u, texts.size()) << c.what << ": " << DumpRecordedTexts(texts);
        ExpectRectEq(expected, texts[0].rect, std::string(c.what) + ", metafile clipping rectangle");
    }
}

TEST(TextOutput, HostDcSeesOneEightBitCallAndItsAnswerIsReturned)
{
    struct Case {
        const char* what;
        std::function<int(CMoruDrawTool&, RECT*)> call;
        TextCall expected;
    };
    const TextCall textOut{TextCall::kTextOut, 10, 20, "abc", 3};
    const TextCall drawText{TextCall::kDrawText, 0, 0, "abc", 3, {1, 2, 30, 40}, DT_CENTER};
    const Case cases[] = {
        {"TextOutA(x, y)", [](CMoruDrawTool& t, RECT*) { return t.TextOutA(10, 20, "abc"); }, textOut},
        {"TextOutA(POINT)", [](CMoruDrawTool& t, RECT*) { return t.TextOutA(POINT{10, 20}, "abc"); }, textOut},
        {"TextOutW(x, y)", [](CMoruDrawTool& t, RECT*) { return t.TextOutW(10, 20, L"abc"); }, textOut},
        {"TextOutW(POINT)", [](CMoruDrawTool& t, RECT*) { return t.TextOutW(POINT{10, 20}, L"abc"); }, textOut},
        {"DrawTextA", [](CMoruDrawTool& t, RECT* r) { return t.DrawTextA("abc", r, DT_CENTER); }, drawText},
        {"DrawTextW", [](CMoruDrawTool& t, RECT* r) { return t.DrawTextW(L"abc", r, DT_CENTER); }, drawText},
    };
    for (const Case& c : cases) {
        TextCallRecorderDC dc;
        dc.result = 0;  // the host's answer, failure included, comes back unchanged
        CMoruDrawTool tool(nullptr, &dc);
        tool.Initialize(nullptr, 0);
        RECT rect = {1, 2, 30, 40};
        EXPECT_EQ(0, c.call(tool, &rect)) << c.what << ": the host's failure";
        dc.result = 77;
        EXPECT_EQ(77, c.call(tool, &rect)) << c.what << ": the host's answer";
        const std::string expected = DumpTextCall(c.expected) + "; " + DumpTextCall(c.expected);
        EXPECT_EQ(expected, DumpTextCalls(dc.calls)) << c.what;
        tool.Finalize();
    }
}

TEST(TextOutput, WideTextOutsideTheCodePageDrawsReplacementCharacters)
{
    // U+65E5 and U+2603 have no form in the Western code page the tests run
    // in; each becomes one replacement character.
    const wchar_t* wide = L"a\u65E5\u2603b";
    BOOL usedDefault = FALSE;
    char converted[16] = {};
    ::WideCharToMultiByte(CP_ACP, 0, wide, -1, converted, sizeof converted, nullptr, &usedDefault);
    ASSERT_TRUE(usedDefault) << "code page " << ::GetACP() << " can show the test's characters";
    const std::string expected = converted;

    TextCallRecorderDC dc;
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    RECT rect = {0, 0, 100, 100};
    tool.TextOutW(0, 0, wide);
    tool.DrawTextW(wide, &rect, 0);
    tool.TextOutW(0, 0, L"x\xD800y");  // a lone surrogate
    tool.Finalize();
    ASSERT_EQ(3u, dc.calls.size()) << DumpTextCalls(dc.calls);
    EXPECT_EQ(expected, dc.calls[0].text) << "TextOutW";
    EXPECT_EQ(static_cast<int>(expected.size()), dc.calls[0].count) << "TextOutW byte count";
    EXPECT_EQ(expected, dc.calls[1].text) << "DrawTextW";
    EXPECT_EQ(static_cast<int>(expected.size()), dc.calls[1].count) << "DrawTextW byte count";
    EXPECT_EQ(static_cast<int>(dc.calls[2].text.size()), dc.calls[2].count) << "lone surrogate: " << dc.calls[2].text;

    // The ink of the wide text is the ink of its conversion.
    DibCanvas wideCanvas(200, 80), narrowCanvas(200, 80);
    CMoruDrawTool wideTool(nullptr, &wideCanvas.Dc()), narrowTool(nullptr, &narrowCanvas.Dc());
    wideTool.Initialize(nullptr, 0);
    narrowTool.Initialize(nullptr, 0);
    wideTool.TextOutW(5, 5, wide);
    narrowTool.TextOutA(5, 5, converted);
    wideTool.Finalize();
    narrowTool.Finalize();
    const int ink = narrowCanvas.CountOtherPixels(RGB(255, 255, 255));
    EXPECT_GT(ink, 0) << "\"" << expected << "\" left no ink: are fonts installed for Wine?";
    int differing = 0;
    for (int y = 0; y < 80; ++y)
        for (int x = 0; x < 200; ++x)
            differing += wideCanvas.Pixel(x, y) != narrowCanvas.Pixel(x, y);
    EXPECT_EQ(0, differing) << "pixels where TextOutW differs from TextOutA(\"" << expected << "\")";
}

TEST(TextOutput, NullTextCountsAsEmptyAndNullRectDrawsNothing)
{
    TextCallRecorderDC dc;
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    RECT rect = {1, 2, 30, 40};
    EXPECT_EQ(dc.result, tool.TextOutA(5, 6, nullptr)) << "TextOutA(null)";
    EXPECT_EQ(dc.result, tool.TextOutW(POINT{5, 6}, nullptr)) << "TextOutW(null)";
    EXPECT_EQ(dc.result, tool.DrawTextA(nullptr, &rect, 0)) << "DrawTextA(null text)";
    EXPECT_EQ(dc.result, tool.DrawTextW(nullptr, &rect, 0)) << "DrawTextW(null text)";
    EXPECT_EQ(0, tool.DrawTextA("abc", nullptr, DT_CALCRECT)) << "DrawTextA(null rect)";
    EXPECT_EQ(0, tool.DrawTextW(L"abc", nullptr, 0)) << "DrawTextW(null rect)";
    tool.Finalize();
    const TextCall emptyOut{TextCall::kTextOut, 5, 6, "", 0};
    const TextCall emptyDraw{TextCall::kDrawText, 0, 0, "", 0, {1, 2, 30, 40}, 0};
    const std::string expected = DumpTextCalls({emptyOut, emptyOut, emptyDraw, emptyDraw});
    EXPECT_EQ(expected, DumpTextCalls(dc.calls)) << "null rectangles make no call";

    CMoruDrawTool noDc(nullptr, nullptr);
    noDc.Initialize(nullptr, 0);
    EXPECT_EQ(0, noDc.TextOutA(1, 2, "abc")) << "a null DC draws nothing";
    EXPECT_EQ(0, noDc.DrawTextW(L"abc", &rect, 0)) << "a null DC draws nothing";
    noDc.Finalize();
}

TEST(TextOutput, BaselineCentredInkStraddlesTheReferencePointInAYUpDc)
{
    // A DC whose logical y axis points up, one logical unit per pixel; mode 2
    // puts the origin at the bottom-left corner, so virtual (200, 100) is
    // pixel (200, 100). "Hg" inks from cap height to descender, which the
    // character-set-128 font of the test setup centres in its cell to about a
    // pixel. Tolerance: 2 pixels of a 60-pixel cell (uncentred text is 30 off).
    const int width = 400, height = 200, tolerance = 2;
    DibCanvas canvas(width, height);
    const HDC hdc = canvas.Dc().m_hDC;
    ::SetMapMode(hdc, MM_ANISOTROPIC);
    ::SetWindowExtEx(hdc, 1, 1, nullptr);
    ::SetViewportExtEx(hdc, 1, -1, nullptr);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    RECT frame = {0, 0, width, height};
    tool.Initialize(&frame, 2);
    tool.SetFont1A(60, 0, "Liberation Sans", 0);
    tool.SetTextAlignEx(TA_BASELINE | TA_CENTER);
    tool.TextOutA(200, 100, "Hg");
    tool.Finalize();

    const RECT ink = InkBounds(canvas);
    ASSERT_LT(ink.left, ink.right) << "no ink: are fonts installed for Wine?";
    EXPECT_GT(ink.bottom - ink.top, 30) << "ink " << Dump(ink) << " is not a 60-unit text";
    EXPECT_NEAR(100.0, (ink.top + ink.bottom) / 2.0, tolerance) << "vertical centre of ink " << Dump(ink);
    EXPECT_NEAR(200.0, (ink.left + ink.right) / 2.0, tolerance) << "horizontal centre of ink " << Dump(ink);
}
