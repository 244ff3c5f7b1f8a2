// Fonts of the drawing tool, read from the metafile's font records (GetObject
// only for what a metafile cannot show: LogFont and LogFontOld), and its text
// metrics, measured against the DC itself.
#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace {

using Tool = CMoruDrawTool;
constexpr char kSans[] = "Liberation Sans";
constexpr wchar_t kSansW[] = L"Liberation Sans";

// A tool initialized on a metafile DC.
struct MetafileTool {
    EmfRecorder recorder;
    Tool tool{nullptr, &recorder.Dc()};
    MetafileTool() { tool.Initialize(nullptr, 0); }
    HDC Hdc() { return recorder.Dc().m_hDC; }
};

// "charset/output/clip precision height escapement/orientation wWeight iItalic face".
template <class LogFont>
std::string Describe(const LogFont& f)
{
    std::ostringstream out;
    out << int(f.lfCharSet) << '/' << int(f.lfOutPrecision) << '/' << int(f.lfClipPrecision) << ' ' << f.lfHeight
        << ' ' << f.lfEscapement << '/' << f.lfOrientation << " w" << f.lfWeight << " i" << int(f.lfItalic) << ' ';
    for (int i = 0; i < LF_FACESIZE && f.lfFaceName[i]; ++i)
        out << static_cast<char>(f.lfFaceName[i]);  // the tests' faces are ASCII
    return out.str();
}

std::string DescribeObject(CFont* font) { LOGFONTA f = {}; ::GetObjectA(font->m_hObject, sizeof f, &f); return Describe(f); }

} // namespace

TEST(Fonts, EachCallCreatesTheFontItsArgumentsAndSettingsDescribe)
{
    // Expected: height escapement/orientation weight italic, and the face
    // (null: the DC's), after character set 128, OUT_TT_PRECIS (4) and
    // CLIP_LH_ANGLES (16). Each call follows SetFont1A(40, 0, "Liberation
    // Serif", 0): a null face takes that face from the DC, and the tool's Serif
    // font is deleted only after the DC's own font is selected again.
    const struct { const char* expected; void (*call)(Tool&); const char* face = nullptr; } cases[] = {
        {"50 0/0 w0 i0", [](Tool& t) { t.SetFont1A(50, 0, nullptr, 0); }},  // ScaleFact never set
        {"4 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(1.1); t.SetFont1A(3, 0, nullptr, 0); }},  // 3.3000000000000003 goes up
        {"-30 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(1.5); t.SetFont1A(-20, 0, nullptr, 0); }},
        {"100 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(2.0); t.SetFont1W(50, 0, nullptr, 0); }},
        {"10 0/0 w0 i0", [](Tool& t) { t.SetScaleFact2(3.0); t.SetFont1A(10, 0, nullptr, 0); }},  // not ScaleFact2
        {"0 0/0 w0 i0", [](Tool& t) { t.SetFont2A(10, 0, nullptr, 0); }}, {"0 0/0 w0 i0", [](Tool& t) { t.SetFont2W(10, 0, nullptr, 0); }},
        {"20 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(2.0); t.SetScaleFact(3.0); t.SetFont2A(10, 0, nullptr, 0); }},  // the first sets ScaleFact2
        {"4 0/0 w0 i0", [](Tool& t) { t.SetScaleFact2(1.1); t.SetFont2A(3, 0, nullptr, 0); }},
        {"25 0/0 w0 i0", [](Tool& t) { t.SetScaleFact2(2.5); t.SetScaleFact(7.0); t.SetFont2W(10, 0, nullptr, 0); }},
        {"35 0/0 w0 i0", [](Tool& t) { t.SetPointFontA(10, 0, nullptr, 0); }}, {"24 0/0 w0 i0", [](Tool& t) { t.SetPointFontA(7, 0, nullptr, 0); }},
        {"70 0/0 w0 i0", [](Tool& t) { t.SetScaleFact(2.0); t.SetPointFontW(10, 0, nullptr, 0); }},  // 35, then scaled
        {"40 450/300 w700 i1", [](Tool& t) { t.SetFontStyle(700, 0x101); t.SetFont1A(40, 45.0, kSans, 30.0); }, kSans},
        {"40 450/300 w700 i1", [](Tool& t) { t.SetFontStyle(700, 0x101); t.SetFont1W(40, 45.0, kSansW, 30.0); }, kSans},
        {"80 450/300 w300 i0", [](Tool& t) { t.SetScaleFact2(2); t.SetFontWeight(300); t.SetFontItalic(0x100); t.SetFont2A(40, 45.0, kSans, 30.0); }, kSans},
        {"40 450/300 w300 i1", [](Tool& t) { t.SetScaleFact2(1); t.SetFontStyle(300, 1); t.SetFont2W(40, 45.0, kSansW, 30.0); }, kSans},
        {"35 450/300 w700 i1", [](Tool& t) { t.SetFontStyle(700, 0x101); t.SetPointFontA(10, 45.0, kSans, 30.0); }, kSans},
        {"35 450/300 w700 i1", [](Tool& t) { t.SetFontStyle(700, 0x101); t.SetPointFontW(10, 45.0, kSansW, 30.0); }, kSans},
        {"40 123/123 w0 i0", [](Tool& t) { t.SetFont1A(40, 12.34, kSans, 12.39); }, kSans},
        {"40 -123/0 w0 i0", [](Tool& t) { t.SetFont1A(40, -12.39, kSans, -0.05); }, kSans},  // toward zero
    };
    for (const auto& c : cases) {
        const std::string what = "case " + std::to_string(&c - cases) + " (" + c.expected + ")";
        MetafileTool m;
        m.tool.SetFont1A(40, 0, "Liberation Serif", 0);
        char face[LF_FACESIZE] = {};
        ASSERT_GT(::GetTextFaceA(m.Hdc(), LF_FACESIZE, face), 1) << "no face on the DC: are fonts installed for Wine?";
        c.call(m.tool);
        m.tool.Finalize();
        const std::vector<EmfRecord> records = m.recorder.Finish();
        size_t k = records.size();
        while (k > 0 && records[--k].type != EMR_EXTCREATEFONTINDIRECTW) {}
        ASSERT_TRUE(k >= 2 && k + 1 < records.size()) << what << ": font record at " << k << " of " << records.size();
        EXPECT_EQ("128/4/16 " + std::string(c.expected) + " " + (c.face ? c.face : face),
                  Describe(records[k].As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont)) << what;
        const DWORD stock = records[k - 2].As<EMRSELECTOBJECT>().ihObject >> 31;  // 1: a stock object, the DC's own font
        EXPECT_EQ((std::vector<DWORD>{EMR_SELECTOBJECT, 1, EMR_DELETEOBJECT, EMR_SELECTOBJECT}),
                  (std::vector<DWORD>{records[k - 2].type, stock, records[k - 1].type, records[k + 1].type}))
            << what << ": select the DC's own font, delete the tool's, create, select";
    }
}

TEST(Fonts, LogFontFollowsOnlyInitializeAndThePointFont0Pair)
{
    MetafileTool m;
    const int dpi = ::GetDeviceCaps(m.Hdc(), LOGPIXELSY);
    const std::string initial = DescribeObject(m.tool.GetFont());
    m.tool.SetFont1A(80, 10, "Liberation Mono", 0); m.tool.SetFont1W(80, 10, L"Liberation Mono", 0);
    m.tool.SetFont2A(80, 10, "Liberation Mono", 0); m.tool.SetFont2W(80, 10, L"Liberation Mono", 0);
    m.tool.SetPointFontA(20, 10, "Liberation Mono", 0); m.tool.SetPointFontW(20, 10, L"Liberation Mono", 0);
    EXPECT_EQ(initial, Describe(*m.tool.GetLogFont())) << "LogFont: Initialize's font, after the SetFont and SetPointFont calls";

    // LogFont holds tenths of a point; the font is converted for the DC, without ScaleFact.
    m.tool.SetScaleFact(2.0);
    m.tool.SetFontStyle(600, 0x201);
    const std::string replaced = DescribeObject(m.tool.GetFont());
    EXPECT_EQ(m.tool.GetLogFontOld(), m.tool.SetPointFont0A(120, 30.0, kSans, 99.0)) << "returns &LogFontOld";
    EXPECT_EQ(replaced, Describe(*m.tool.GetLogFontOld())) << "LogFontOld: the font replaced";
    EXPECT_EQ("1/0/0 120 300/300 w600 i1 Liberation Sans", Describe(*m.tool.GetLogFont())) << "LogFont";
    const std::string created = "1/0/0 " + std::to_string(-::MulDiv(dpi, 120, 720)) + " 300/300 w600 i1 Liberation Sans";
    EXPECT_EQ(created, DescribeObject(m.tool.GetFont())) << "SetPointFont0A's font at " << dpi << " dpi";
    m.tool.SetPointFont0W(90, -45.0, L"Liberation Serif", 0);
    EXPECT_EQ(created, Describe(*m.tool.GetLogFontOld())) << "LogFontOld after SetPointFont0W";
    EXPECT_EQ("1/0/0 90 -450/-450 w600 i1 Liberation Serif", Describe(*m.tool.GetLogFont())) << "LogFont";
    EXPECT_EQ("1/0/0 " + std::to_string(-::MulDiv(dpi, 90, 720)) + " -450/-450 w600 i1 Liberation Serif",
              DescribeObject(m.tool.GetFont())) << "SetPointFont0W's font";
    m.tool.Finalize();
    EXPECT_EQ(m.tool.GetLogFontOld(), m.tool.SetPointFont0A(100, 0, nullptr, 0)) << "without a GdiSet";
    EXPECT_EQ(created, Describe(*m.tool.GetLogFontOld())) << "LogFontOld without a GdiSet";
}

TEST(TextMetrics, EqualTheDcsExtentOverScaleFactNullAsEmptyEmptyMeanNaN)
{
    for (double scale : {1.0, 2.0, 0.75, 3.3}) {
        MetafileTool m;
        m.tool.SetScaleFact(scale);
        m.tool.SetScaleFactX(5.0); m.tool.SetScaleFactY(-0.5);  // metrics ignore them
        m.tool.SetFont1A(40, 0, kSans, 0);
        for (const char* text : {"abc", "Wide WWW text", "", static_cast<const char*>(nullptr)}) {
            const std::string s = text ? text : "";
            const std::wstring ws(s.begin(), s.end());
            const wchar_t* w = text ? ws.c_str() : nullptr;
            SIZE e = {};
            ::GetTextExtentPoint32A(m.Hdc(), s.c_str(), static_cast<int>(s.size()), &e);
            const double width = e.cx / scale, height = e.cy / scale, mean = s.empty() ? NAN : width / s.size();
            const std::string what = (text ? "\"" + s + "\"" : "null") + " at ScaleFact " + std::to_string(scale);
            const struct { const char* name; double expected, got; } metrics[] = {
                {"GetTextWidthA", width, m.tool.GetTextWidthA(text)}, {"GetTextWidthW", width, m.tool.GetTextWidthW(w)},
                {"GetTextHeightA", height, m.tool.GetTextHeightA(text)}, {"GetTextHeightW", height, m.tool.GetTextHeightW(w)},
                {"GetCharWidthA", mean, m.tool.GetCharWidthA(text)}, {"GetCharWidthW", mean, m.tool.GetCharWidthW(w)},
                {"GetCharHeightA", height, m.tool.GetCharHeightA(text)}, {"GetCharHeightW", height, m.tool.GetCharHeightW(w)},
            };
            for (const auto& x : metrics)
                EXPECT_TRUE(std::isnan(x.expected) ? std::isnan(x.got) : std::abs(x.expected - x.got) <= 1e-12 * x.expected)
                    << what << ", " << x.name << ": expected " << x.expected << ", got " << x.got;
        }
    }
}
