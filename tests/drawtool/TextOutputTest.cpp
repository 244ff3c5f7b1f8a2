// Text output and alignment of the drawing tool: the calls a host-derived CDC
// receives.
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

std::string Pair(long a, long b) { return std::to_string(a) + "," + std::to_string(b); }
std::string Str(const RECT& r) { return Pair(r.left, r.top) + "," + Pair(r.right, r.bottom); }

// A host's CDC over a memory DC (so fonts and extents work) that overrides
// TextOut and DrawText: it logs each call and draws nothing. DrawText writes
// into the rectangle it receives, as DT_CALCRECT does, so a tool passing the
// host's own rectangle shows.
struct TextCallLog : CDC {
    std::string log;
    TextCallLog() { Attach(::CreateCompatibleDC(nullptr)); }
    int Log(const std::string& call, const char* t, int n)
    {
        log += call + " \"" + (t && n > 0 ? std::string(t, n) : "") + "\" " + std::to_string(n) + "; ";
        return 1;
    }
    BOOL TextOut(int x, int y, const char* t, int n) override { return Log("TextOut " + Pair(x, y), t, n); }
    int DrawText(const char* t, int n, RECT* r, UINT format) override
    {
        const int answer = Log("DrawText " + std::to_string(format) + " " + Str(*r), t, n);
        *r = RECT{-1, -1, -1, -1};
        return answer;
    }
};

} // namespace

TEST(TextOutput, HostDcSeesMappedPositionsHalfAwayTheAlignmentShiftAndTheConvertedBytes)
{
    // A row's frame: Initialize mode (1: y up; it turns ScaleFactY round),
    // ScaleFactX/Y, OffsetX/Y. After SetTextAlignEx(TA_BASELINE), a shift to
    // keep or clear, comes the alignment call under test (`ex`:
    // SetTextAlignEx, else SetTextAlign), leaving `onDc` on the DC; `centred`
    // rows move every y by half the height of "dummy" (TextShiftY negative),
    // even after a later font. `in` gives DrawText's rectangle and, by its
    // top-left corner, TextOut's point; `mapped` is where they land unshifted.
    // The A and W text reach the host as `bytes`: U+65E5 and U+2603 have no
    // form in code page 1252, the tests' (each becomes '?'); null is empty.
    ASSERT_EQ(1252u, ::GetACP()) << "the expected bytes below are code page 1252's";
    const struct Case {
        int mode; double sx, sy, ox, oy; bool ex; UINT align, onDc; bool centred; RECT in, mapped;
        const char* a; const wchar_t* w; const char* bytes;
    } cases[] = {
        // x 2.25 + 0.25: 9.25 and -4.25; y 1.1 - 0.5: 6.1 and -3.8
        {0, 2.25, 1.1, 0.25, -0.5, false, TA_BASELINE, TA_BASELINE, false, {4, 6, -2, -3}, {9, 6, -4, -4}, "a??b",
         L"a\u65E5\u2603b", "a??b"},
        // ScaleFactX/Y 2.5: halves away from zero
        {0, 2.5, 2.5, 0, 0, true, TA_BASELINE | TA_CENTER, TA_TOP | TA_CENTER, true, {-1, -1, 1, 1}, {-3, -3, 3, 3},
         "abc", L"abc", "abc"},
        // y-up frame, ScaleFactY 2, OffsetY 100
        {1, 1.0, 2.0, 0, 100, true, TA_BASELINE | TA_RIGHT, TA_RIGHT, true, {10, 20, 100, 50}, {10, 60, 100, 0},
         nullptr, nullptr, ""},
        // TA_BOTTOM alone is no baseline: as SetTextAlign, the shift cleared; e-acute is 0xE9 in the ANSI code
        // page, 0x82 in the OEM one
        {0, 2.25, 1.1, 0.25, -0.5, true, TA_BOTTOM | TA_RIGHT, TA_BOTTOM | TA_RIGHT, false, {4, 6, -2, -3},
         {9, 6, -4, -4}, "\xE9" "b", L"\u00E9b", "\xE9" "b"},
    };
    for (const Case& c : cases) {
        const char* const what = c.bytes;
        TextCallLog dc;
        CMoruDrawTool tool(nullptr, &dc);
        tool.SetScaleFactX(c.sx);
        tool.SetScaleFactY(c.sy);
        tool.SetOffsetX(c.ox);
        tool.SetOffsetY(c.oy);
        tool.Initialize(nullptr, c.mode);
        tool.SetFont1A(33, 0, "Liberation Sans", 0);
        const int dummy = static_cast<int>(tool.GetTextHeightA("dummy"));  // odd, so that halving it rounds
        ASSERT_EQ(1, dummy % 2) << "\"dummy\" " << dummy << " high: are fonts installed for Wine?";
        tool.SetTextAlignEx(TA_BASELINE);  // a shift to keep or clear
        ::SetTextAlign(dc.m_hDC, TA_UPDATECP);  // the alignment to return
        EXPECT_EQ(UINT(TA_UPDATECP), c.ex ? tool.SetTextAlignEx(c.align) : tool.SetTextAlign(c.align)) << what;
        EXPECT_EQ(c.onDc, ::GetTextAlign(dc.m_hDC)) << what << ": the DC's alignment";
        tool.SetFont1A(90, 0, nullptr, 0);
        RECT host = c.in;
        tool.TextOutA(c.in.left, c.in.top, c.a);
        tool.TextOutW(c.in.left, c.in.top, c.w);
        tool.DrawTextA(c.a, &host, DT_CALCRECT | DT_NOPREFIX);
        EXPECT_EQ(0, tool.DrawTextW(c.w, nullptr, 0)) << "a null rectangle draws nothing";
        const int shift = c.centred ? (dummy + 1) / 2 : 0;  // half away from zero
        const RECT m = {c.mapped.left, c.mapped.top + shift, c.mapped.right, c.mapped.bottom + shift};
        const std::string text = " \"" + std::string(c.bytes) + "\" " + std::to_string(std::strlen(c.bytes)) + "; ";
        const std::string out = "TextOut " + Pair(m.left, m.top) + text;
        EXPECT_EQ(out + out + "DrawText 3072 " + Str(m) + text, dc.log) << what << ", shift " << shift;
        EXPECT_EQ(Str(c.in), Str(host)) << what << ": the host's rectangle is never written";
        tool.Finalize();
    }
}
