// Fonts of the drawing tool, read from the metafile's font records (GetObject
// only for what a metafile cannot show: LogFont and LogFontOld), and its text
// metrics, measured against the DC itself.
#include "common/EmfRecording.h"

namespace {

using Tool = CMoruDrawTool;
constexpr char kSans[] = "Liberation Sans";

// "charset/output/clip precision height escapement/orientation wWeight
// iItalic face" (the faces are ASCII).
template <class LogFont>
std::string Describe(const LogFont& f)
{
    return std::to_string(f.lfCharSet) + '/' + std::to_string(f.lfOutPrecision) + '/' +
           std::to_string(f.lfClipPrecision) + ' ' + std::to_string(f.lfHeight) + ' ' +
           std::to_string(f.lfEscapement) + '/' + std::to_string(f.lfOrientation) + " w" +
           std::to_string(f.lfWeight) + " i" + std::to_string(f.lfItalic) + ' ' +
           std::string(f.lfFaceName, std::find(f.lfFaceName, f.lfFaceName + LF_FACESIZE, 0));
}

std::string DescribeObject(CFont* f)
{
    LOGFONTA l = {};
    ::GetObjectA(f->m_hObject, sizeof l, &l);
    return Describe(l);
}

} // namespace

TEST(Fonts, EachCallCreatesTheFontItsArgumentsAndSettingsDescribe)
{
    // Expected: height escapement/orientation weight italic, after character
    // set 128, OUT_TT_PRECIS (4) and CLIP_LH_ANGLES (16), and before the face:
    // Sans, or for a null face the DC's, after SetFont1A(40, 0, "Liberation
    // Serif", 0). Rows: 3 x 1.1 = 3.3000000000000003 up, by ScaleFact, then by
    // ScaleFact2; ScaleFact2 never set; the first SetScaleFact sets
    // ScaleFact2; tenths of a degree toward zero; 7 points are 24.69 tenths
    // of a millimetre, truncated; 35, then scaled; ScaleFact never set, and
    // the italic setting's low byte.
    const struct { const char* expected; void (*call)(Tool&); bool sans = false; } cases[] = {
        {"4 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(1.1); t.SetScaleFact2(3.0); t.SetFont1A(3, 0, nullptr, 0); }},
        {"4 -123/123 w0 i0", [](Tool& t) { t.SetScaleFact2(1.1); t.SetFont2W(3, -12.39, L"Liberation Sans", 12.39); }, true},
        {"0 0/0 w0 i0", [](Tool& t) { t.SetFont2A(10, 0, nullptr, 0); }},
        {"20 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(2.0); t.SetScaleFact(3.0); t.SetFont2A(10, 0, nullptr, 0); }},
        {"24 0/0 w0 i0", [](Tool& t) { t.SetPointFontA(7, 0, nullptr, 0); }},
        {"70 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(2.0); t.SetPointFontW(10, 0, nullptr, 0); }},
        {"40 450/300 w700 i1", [](Tool& t) { t.SetFontStyle(700, 0x101); t.SetFont1A(40, 45.0, kSans, 30.0); }, true},
        {"5 0/0 w300 i0", [](Tool& t) { t.SetFontWeight(300); t.SetFontItalic(0x100); t.SetFont1W(5, 0, nullptr, 0); }},
    };
    for (const auto& c : cases) {
        EmfRecorder recorder;  // ScaleFact and ScaleFact2 never set
        Tool tool(nullptr, &recorder.Dc());
        tool.Initialize(nullptr, 0);
        tool.SetFont1A(40, 0, "Liberation Serif", 0);
        char face[LF_FACESIZE] = {};  // the face the font mapper chose: the charset decides
        ::GetTextFaceA(recorder.Dc().m_hDC, LF_FACESIZE, face);
        c.call(tool);
        tool.Finalize();
        const std::vector<EmfRecord> records = recorder.Finish();
        const auto font = std::find_if(records.rbegin(), records.rend(),
                                       [](const EmfRecord& r) { return r.type == EMR_EXTCREATEFONTINDIRECTW; });
        ASSERT_NE(records.rend(), font) << c.expected;
        EXPECT_EQ("128/4/16 " + std::string(c.expected) + " " + (c.sans ? kSans : face),
                  Describe(font->As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont));
    }
}

TEST(Fonts, PointFont0PairSetsLogFontInTenthsOfAPointAndLogFontOldToTheFontReplaced)
{
    RecordingTool m(1.0, 1.0, 0.0, 0.0, 2.0);  // the font is converted for the DC, without ScaleFact
    EXPECT_EQ(2.0, m.tool.GetScaleFact2()) << "the first SetScaleFact sets ScaleFact2";
    m.tool.SetFontStyle(600, 0x201);
    const std::string replaced = DescribeObject(m.tool.GetFont());
    EXPECT_EQ(replaced, Describe(*m.tool.GetLogFont())) << "LogFont: Initialize's font";
    EXPECT_EQ(m.tool.GetLogFontOld(), m.tool.SetPointFont0A(120, 30.0, kSans, 99.0)) << "returns &LogFontOld";
    EXPECT_EQ(replaced, Describe(*m.tool.GetLogFontOld())) << "LogFontOld: the font replaced";
    EXPECT_EQ("1/0/0 120 300/300 w600 i1 Liberation Sans", Describe(*m.tool.GetLogFont())) << "LogFont";
    const int height = -::MulDiv(::GetDeviceCaps(m.recorder.Dc().m_hDC, LOGPIXELSY), 120, 720);
    EXPECT_EQ("1/0/0 " + std::to_string(height) + " 300/300 w600 i1 " + kSans, DescribeObject(m.tool.GetFont()))
        << "SetPointFont0A's font, in the DC's units";
    m.tool.SetPointFont0W(90, -45.0, L"Liberation Serif", 0);
    EXPECT_EQ("1/0/0 90 -450/-450 w600 i1 Liberation Serif", Describe(*m.tool.GetLogFont())) << "LogFont, W";
}

TEST(TextMetrics, EqualTheDcsExtentOverScaleFactNullAsEmptyEmptyMeanNaN)
{
    RecordingTool m(5.0, -0.5, 0.0, 0.0, 3.3);  // metrics ignore ScaleFactX and ScaleFactY
    Tool& t = m.tool;
    t.SetFont1A(40, 0, kSans, 0);
    SIZE e = {};
    ::GetTextExtentPoint32A(m.recorder.Dc().m_hDC, "Wide W", 6, &e);
    // Width (A, W), height (A, W), mean character width (A, W), character height (A, W), a null text's width.
    const std::vector<double> expected = {e.cx / 3.3, e.cx / 3.3, e.cy / 3.3, e.cy / 3.3, e.cx / 3.3 / 6,
                                          e.cx / 3.3 / 6, e.cy / 3.3, e.cy / 3.3, 0.0};
    EXPECT_EQ(expected, (std::vector<double>{t.GetTextWidthA("Wide W"), t.GetTextWidthW(L"Wide W"),
                                             t.GetTextHeightA("Wide W"), t.GetTextHeightW(L"Wide W"),
                                             t.GetCharWidthA("Wide W"), t.GetCharWidthW(L"Wide W"),
                                             t.GetCharHeightA("Wide W"), t.GetCharHeightW(L"Wide W"),
                                             t.GetTextWidthW(nullptr)}));
    EXPECT_TRUE(std::isnan(t.GetCharWidthA("")) && std::isnan(t.GetCharWidthW(nullptr))) << "empty: no mean";
}
