// Fonts, font settings, text metrics and alignment of the drawing tool.
// Fonts are read back twice: from the tool's CFont with GetObject and from
// the metafile's font records. Extents are measured with the DC itself.
#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/TextRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <string>
#include <type_traits>
#include <utility>

namespace {

using ToolCall = std::function<void(CMoruDrawTool&)>;

// A tool initialized on a metafile DC; Finish() finalizes it and returns the
// records.
struct ToolOnMetafile {
    EmfRecorder recorder;
    CMoruDrawTool tool{nullptr, &recorder.Dc()};
    ToolOnMetafile() { tool.Initialize(nullptr, 0); }
    HDC Hdc() { return recorder.Dc().m_hDC; }
    std::vector<EmfRecord> Finish()
    {
        tool.Finalize();
        return recorder.Finish();
    }
};

SIZE ExtentOnDc(HDC dc, const char* text)
{
    SIZE size = {};
    ::GetTextExtentPoint32A(dc, text, lstrlenA(text), &size);
    return size;
}

std::string FaceOnDc(HDC dc)
{
    char face[LF_FACESIZE] = {};
    ::GetTextFaceA(dc, LF_FACESIZE, face);
    return face;
}

} // namespace

// ---- Font creation ------------------------------------------------------------

TEST(Fonts, HeightsScaleByScaleFactOrScaleFact2WithRoundToInt)
{
    struct Case {
        const char* what;
        ToolCall call;
        LONG height;
    };
    const Case cases[] = {
        {"SetFont1A(50), ScaleFact 1", [](CMoruDrawTool& t) { t.SetFont1A(50, 0, nullptr, 0); }, 50},
        {"SetFont1A(50), ScaleFact 2", [](CMoruDrawTool& t) { t.SetScaleFact(2.0); t.SetFont1A(50, 0, nullptr, 0); }, 100},
        {"SetFont1A(3), ScaleFact 1.5: RoundToInt(4.5)", [](CMoruDrawTool& t) { t.SetScaleFact(1.5); t.SetFont1A(3, 0, nullptr, 0); }, 5},
        {"SetFont1A(3), ScaleFact 1.1: 3.3000000000000003 goes up", [](CMoruDrawTool& t) { t.SetScaleFact(1.1); t.SetFont1A(3, 0, nullptr, 0); }, 4},
        {"SetFont1A(-20), ScaleFact 1.5: negative kept, not negated", [](CMoruDrawTool& t) { t.SetScaleFact(1.5); t.SetFont1A(-20, 0, nullptr, 0); }, -30},
        {"SetFont1W(50), ScaleFact 2", [](CMoruDrawTool& t) { t.SetScaleFact(2.0); t.SetFont1W(50, 0, nullptr, 0); }, 100},
        {"SetFont1A ignores ScaleFact2", [](CMoruDrawTool& t) { t.SetScaleFact2(3.0); t.SetFont1A(10, 0, nullptr, 0); }, 10},
        {"SetFont2A(10), ScaleFact2 never set: 0", [](CMoruDrawTool& t) { t.SetFont2A(10, 0, nullptr, 0); }, 0},
        {"SetFont2W(10), ScaleFact2 never set: 0", [](CMoruDrawTool& t) { t.SetFont2W(10, 0, nullptr, 0); }, 0},
        {"SetFont2A(10), first SetScaleFact(2) sets ScaleFact2", [](CMoruDrawTool& t) { t.SetScaleFact(2.0); t.SetScaleFact(3.0); t.SetFont2A(10, 0, nullptr, 0); }, 20},
        {"SetFont2A(3), ScaleFact2 1.5: RoundToInt(4.5)", [](CMoruDrawTool& t) { t.SetScaleFact2(1.5); t.SetFont2A(3, 0, nullptr, 0); }, 5},
        {"SetFont2W(10), ScaleFact2 2.5, ScaleFact 7", [](CMoruDrawTool& t) { t.SetScaleFact2(2.5); t.SetScaleFact(7.0); t.SetFont2W(10, 0, nullptr, 0); }, 25},
        {"SetPointFontA(10): 35 tenths of a millimetre", [](CMoruDrawTool& t) { t.SetPointFontA(10, 0, nullptr, 0); }, 35},
        {"SetPointFontA(12): 42", [](CMoruDrawTool& t) { t.SetPointFontA(12, 0, nullptr, 0); }, 42},
        {"SetPointFontA(7): 24.69 truncated to 24", [](CMoruDrawTool& t) { t.SetPointFontA(7, 0, nullptr, 0); }, 24},
        {"SetPointFontW(10), ScaleFact 2: 35 then scaled", [](CMoruDrawTool& t) { t.SetScaleFact(2.0); t.SetPointFontW(10, 0, nullptr, 0); }, 70},
        {"SetPointFontA(10), ScaleFact 1.5: RoundToInt(52.5)", [](CMoruDrawTool& t) { t.SetScaleFact(1.5); t.SetPointFontA(10, 0, nullptr, 0); }, 53},
    };
    for (const Case& c : cases) {
        ToolOnMetafile m;
        c.call(m.tool);
        ASSERT_NE(nullptr, m.tool.GetFont()) << c.what;
        const HGDIOBJ font = m.tool.GetFont()->m_hObject;
        EXPECT_EQ(font, ::GetCurrentObject(m.Hdc(), OBJ_FONT)) << c.what << ": the tool's font is selected";
        EXPECT_EQ(c.height, FieldsOfHandle(font).height) << c.what << ": GetObject";
        const std::vector<FontFields> recorded = RecordedFonts(m.Finish());
        ASSERT_EQ(2u, recorded.size()) << c.what << ": Initialize's font and this one";
        EXPECT_EQ(c.height, recorded[1].height) << c.what << ": metafile";
    }
}

TEST(Fonts, CreatedFontsCarryAnglesStyleCharset128AndPrecisions)
{
    // Each call asks for "Liberation Sans" at 45.0 / 30.0 degrees unless the
    // entry says otherwise; weight 700 and italic 0x101 (low byte 1) are set
    // first.
    struct Case {
        const char* what;
        ToolCall call;
        LONG escapement;
        LONG orientation;
    };
    const Case cases[] = {
        {"SetFont1A", [](CMoruDrawTool& t) { t.SetFont1A(40, 45.0, "Liberation Sans", 30.0); }, 450, 300},
        {"SetFont1W", [](CMoruDrawTool& t) { t.SetFont1W(40, 45.0, L"Liberation Sans", 30.0); }, 450, 300},
        {"SetFont2A", [](CMoruDrawTool& t) { t.SetFont2A(40, 45.0, "Liberation Sans", 30.0); }, 450, 300},
        {"SetFont2W", [](CMoruDrawTool& t) { t.SetFont2W(40, 45.0, L"Liberation Sans", 30.0); }, 450, 300},
        {"SetPointFontA", [](CMoruDrawTool& t) { t.SetPointFontA(10, 45.0, "Liberation Sans", 30.0); }, 450, 300},
        {"SetPointFontW", [](CMoruDrawTool& t) { t.SetPointFontW(10, 45.0, L"Liberation Sans", 30.0); }, 450, 300},
        {"SetFont1A, 12.34 degrees truncated", [](CMoruDrawTool& t) { t.SetFont1A(40, 12.34, "Liberation Sans", 12.39); }, 123, 123},
        {"SetFont1A, negative angles truncated toward zero", [](CMoruDrawTool& t) { t.SetFont1A(40, -12.39, "Liberation Sans", -0.05); }, -123, 0},
    };
    for (const Case& c : cases) {
        ToolOnMetafile m;
        m.tool.SetFontWeight(700);
        m.tool.SetFontItalic(0x101);
        c.call(m.tool);
        FontFields expected;
        expected.escapement = c.escapement;
        expected.orientation = c.orientation;
        expected.weight = 700;
        expected.italic = 1;
        expected.charSet = SHIFTJIS_CHARSET;
        expected.outPrecision = OUT_TT_PRECIS;
        expected.clipPrecision = CLIP_LH_ANGLES;
        expected.face = "Liberation Sans";
        FontFields got = FieldsOfHandle(m.tool.GetFont()->m_hObject);
        expected.height = got.height;  // heights have their own test
        ExpectFontFields(expected, got, std::string(c.what) + ", GetObject");
        const std::vector<FontFields> recorded = RecordedFonts(m.Finish());
        ASSERT_EQ(2u, recorded.size()) << c.what;
        ExpectFontFields(expected, recorded[1], std::string(c.what) + ", metafile");
    }
}

TEST(Fonts, ItalicTakesOnlyTheLowByteAndStyleWaitsForTheNextFont)
{
    ToolOnMetafile m;
    const HGDIOBJ before = m.tool.GetFont()->m_hObject;
    EXPECT_EQ(0, m.tool.SetFontWeight(700)) << "SetFontWeight returns the previous weight";
    EXPECT_EQ(0, m.tool.SetFontItalic(0x100)) << "SetFontItalic returns the previous flag";
    EXPECT_EQ(700, m.tool.SetFontWeight(300)) << "previous weight";
    EXPECT_EQ(0x100, m.tool.SetFontItalic(0x100)) << "previous italic, kept whole";
    EXPECT_EQ(before, m.tool.GetFont()->m_hObject) << "settings do not re-create the font";
    EXPECT_EQ(0, FieldsOfHandle(before).weight) << "the current font keeps Initialize's weight";

    m.tool.SetFont1A(40, 0, nullptr, 0);
    FontFields got = FieldsOfHandle(m.tool.GetFont()->m_hObject);
    EXPECT_EQ(300, got.weight) << "the next font takes the weight";
    EXPECT_EQ(0, got.italic) << "italic 0x100 has low byte 0";

    m.tool.SetFontStyle(FW_BOLD, 1);
    int weight = -1, italic = -1;
    m.tool.GetFontStyle(&weight, &italic);
    EXPECT_EQ(FW_BOLD, weight) << "GetFontStyle weight";
    EXPECT_EQ(1, italic) << "GetFontStyle italic";
    EXPECT_EQ(FW_BOLD, m.tool.GetFontWeight()) << "GetFontWeight";
    EXPECT_EQ(1, m.tool.IsFontItalic()) << "IsFontItalic";
    m.tool.SetFont2W(40, 0, nullptr, 0);
    got = FieldsOfHandle(m.tool.GetFont()->m_hObject);
    EXPECT_EQ(FW_BOLD, got.weight) << "weight after SetFontStyle";
    EXPECT_EQ(1, got.italic) << "italic after SetFontStyle";
}

TEST(Fonts, NullFaceTakesTheFaceOfTheFontNowSelected)
{
    const std::pair<const char*, ToolCall> calls[] = {
        {"SetFont1A", [](CMoruDrawTool& t) { t.SetFont1A(40, 0, nullptr, 0); }},
        {"SetFont1W", [](CMoruDrawTool& t) { t.SetFont1W(40, 0, nullptr, 0); }},
        {"SetFont2A", [](CMoruDrawTool& t) { t.SetFont2A(40, 0, nullptr, 0); }},
        {"SetFont2W", [](CMoruDrawTool& t) { t.SetFont2W(40, 0, nullptr, 0); }},
        {"SetPointFontA", [](CMoruDrawTool& t) { t.SetPointFontA(10, 0, nullptr, 0); }},
        {"SetPointFontW", [](CMoruDrawTool& t) { t.SetPointFontW(10, 0, nullptr, 0); }},
        {"SetPointFont0A", [](CMoruDrawTool& t) { t.SetPointFont0A(120, 0, nullptr, 0); }},
        {"SetPointFont0W", [](CMoruDrawTool& t) { t.SetPointFont0W(120, 0, nullptr, 0); }},
    };
    for (const auto& [what, call] : calls) {
        ToolOnMetafile m;
        m.tool.SetFont1A(40, 0, "Liberation Serif", 0);
        const std::string selected = FaceOnDc(m.Hdc());
        ASSERT_FALSE(selected.empty()) << "the font mapper found no face: are fonts installed for Wine?";
        call(m.tool);
        EXPECT_EQ(selected, FieldsOfHandle(m.tool.GetFont()->m_hObject).face) << what;
    }
}

TEST(Fonts, ChangesReselectTheDcsFontBeforeDeletingTheToolsOwn)
{
    const std::pair<const char*, ToolCall> calls[] = {
        {"SetFont1A", [](CMoruDrawTool& t) { t.SetFont1A(40, 0, "Liberation Sans", 0); }},
        {"SetFont2W", [](CMoruDrawTool& t) { t.SetFont2W(40, 0, L"Liberation Sans", 0); }},
        {"SetPointFontA", [](CMoruDrawTool& t) { t.SetPointFontA(10, 0, "Liberation Sans", 0); }},
        {"SetPointFont0A", [](CMoruDrawTool& t) { t.SetPointFont0A(120, 0, "Liberation Sans", 0); }},
        {"SetPointFont0W", [](CMoruDrawTool& t) { t.SetPointFont0W(120, 0, L"Liberation Sans", 0); }},
    };
    for (const auto& [what, call] : calls) {
        ToolOnMetafile m;
        m.tool.SetTextAlign(TA_TOP);  // marks where the font change starts
        call(m.tool);
        const std::vector<EmfRecord> all = m.Finish();
        size_t start = all.size();
        for (size_t i = 0; i < all.size(); ++i)
            if (all[i].type == EMR_SETTEXTALIGN)
                start = i + 1;
        const std::vector<EmfRecord> change(all.begin() + static_cast<long>(start), all.end());
        const std::string types = DumpRecordTypes(change);
        EXPECT_EQ(0u, types.find("SELECTOBJECT, DELETEOBJECT, EXTCREATEFONTINDIRECTW, SELECTOBJECT"))
            << what << ": expected re-select of the DC's font, delete, create, select; got " << types;
        ASSERT_FALSE(change.empty()) << what;
        EXPECT_NE(0u, change[0].As<EMRSELECTOBJECT>().ihObject & 0x80000000u)
            << what << ": expected the first selection to be the DC's own (stock) font, got index "
            << change[0].As<EMRSELECTOBJECT>().ihObject;
    }
}

TEST(Fonts, FinalizeAfterManyFontChangesRestoresTheDcsOwnFont)
{
    EmfRecorder recorder;
    const HGDIOBJ own = ::GetCurrentObject(recorder.Dc().m_hDC, OBJ_FONT);
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetFont1A(30, 0, nullptr, 0);
    tool.SetPointFont0A(100, 0, nullptr, 0);
    tool.SetFont2W(30, 0, L"Liberation Mono", 0);
    tool.SetPointFontW(8, 0, nullptr, 0);
    const HGDIOBJ last = tool.GetFont()->m_hObject;
    tool.Finalize();
    EXPECT_EQ(own, ::GetCurrentObject(recorder.Dc().m_hDC, OBJ_FONT)) << "the DC's own font is back";
    EXPECT_EQ(0, ::GetObjectType(last)) << "the tool's last font is deleted";
}

// ---- Kept descriptions ----------------------------------------------------------

TEST(Fonts, LogFontFollowsOnlyInitializeAndThePointFont0Pair)
{
    static_assert(std::is_same_v<LOGFONTA*, decltype(std::declval<CMoruDrawTool&>().SetPointFont0A(0, 0, nullptr, 0))>,
                  "SetPointFont0A returns the replaced font's description");
    static_assert(std::is_void_v<decltype(std::declval<CMoruDrawTool&>().SetPointFont0W(0, 0, nullptr, 0))>,
                  "SetPointFont0W returns nothing");

    ToolOnMetafile m;
    const HDC dc = m.Hdc();
    const int dpi = ::GetDeviceCaps(dc, LOGPIXELSY);
    const FontFields initial = FieldsOfHandle(m.tool.GetFont()->m_hObject);
    EXPECT_EQ(50, initial.height) << "Initialize's font";
    ExpectFontFields(initial, FieldsOf(*m.tool.GetLogFont()), "LogFont after Initialize");

    m.tool.SetFont1A(80, 10, "Liberation Mono", 0);
    m.tool.SetFont1W(80, 10, L"Liberation Mono", 0);
    m.tool.SetFont2A(80, 10, "Liberation Mono", 0);
    m.tool.SetFont2W(80, 10, L"Liberation Mono", 0);
    m.tool.SetPointFontA(20, 10, "Liberation Mono", 0);
    m.tool.SetPointFontW(20, 10, L"Liberation Mono", 0);
    ExpectFontFields(initial, FieldsOf(*m.tool.GetLogFont()), "LogFont after the SetFont and SetPointFont calls");

    // SetPointFont0A: LogFont holds tenths of a point and the tool's style;
    // the font itself is converted for the DC, without ScaleFact.
    m.tool.SetScaleFact(2.0);
    m.tool.SetFontStyle(600, 0x201);
    const FontFields replaced = FieldsOfHandle(m.tool.GetFont()->m_hObject);
    LOGFONTA* const old = m.tool.SetPointFont0A(120, 30.0, "Liberation Sans", 99.0);
    EXPECT_EQ(m.tool.GetLogFontOld(), old) << "SetPointFont0A returns the address of LogFontOld";
    ExpectFontFields(replaced, FieldsOf(*m.tool.GetLogFontOld()), "LogFontOld: the font replaced");
    FontFields described{120, 300, 300, 600, 1, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                         "Liberation Sans"};
    ExpectFontFields(described, FieldsOf(*m.tool.GetLogFont()), "LogFont after SetPointFont0A(120, 30)");
    FontFields created = described;
    created.height = -::MulDiv(dpi, 120, 720);
    ExpectFontFields(created, FieldsOfHandle(m.tool.GetFont()->m_hObject), "SetPointFont0A's font");
    EXPECT_EQ(m.tool.GetFont()->m_hObject, ::GetCurrentObject(dc, OBJ_FONT)) << "the point font is selected";

    // SetPointFont0W: the same, and LogFontOld now describes the first point font.
    m.tool.SetPointFont0W(90, -45.0, L"Liberation Serif", 0);
    ExpectFontFields(created, FieldsOf(*m.tool.GetLogFontOld()), "LogFontOld after SetPointFont0W");
    described = FontFields{90, -450, -450, 600, 1, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS,
                           "Liberation Serif"};
    ExpectFontFields(described, FieldsOf(*m.tool.GetLogFont()), "LogFont after SetPointFont0W(90, -45)");

    const std::vector<FontFields> recorded = RecordedFonts(m.Finish());
    ASSERT_EQ(9u, recorded.size()) << "Initialize, six SetFont/SetPointFont, two SetPointFont0";
    EXPECT_EQ(-::MulDiv(dpi, 90, 720), recorded[8].height) << "SetPointFont0W's font, converted for the DC";
    EXPECT_EQ("Liberation Serif", recorded[8].face) << "SetPointFont0W's face";
    EXPECT_EQ(-450, recorded[8].escapement) << "SetPointFont0W's escapement";
}

TEST(Fonts, PointFont0ConvertsTenthsOfAPointThroughTheDcsMapping)
{
    // In MM_LOMETRIC a logical unit is 0.1 mm: 12 points are 4.23 mm. The
    // display's nominal resolution may round the conversion by a unit.
    DibCanvas canvas(50, 50);
    ::SetMapMode(canvas.Dc().m_hDC, MM_LOMETRIC);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.SetPointFont0A(120, 0, "Liberation Sans", 0);
    const LONG height = FieldsOfHandle(tool.GetFont()->m_hObject).height;
    EXPECT_NEAR(-42.3, height, 1.5) << "12 points in tenths of a millimetre, as a character height";
    EXPECT_EQ(120, tool.GetLogFont()->lfHeight) << "LogFont keeps tenths of a point";
    tool.Finalize();
}

// ---- Defined outcomes without a GdiSet or a DC ----------------------------------

TEST(Fonts, CallsWithoutGdiSetOrDcDoNothingAndNeverCrash)
{
    ToolOnMetafile m;
    const HDC dc = m.Hdc();
    m.tool.Finalize();
    const HGDIOBJ selected = ::GetCurrentObject(dc, OBJ_FONT);
    const LOGFONTA keptOld = *m.tool.GetLogFontOld();
    m.tool.SetFont1A(40, 0, nullptr, 0);
    m.tool.SetFont1W(40, 0, nullptr, 0);
    m.tool.SetFont2A(40, 0, nullptr, 0);
    m.tool.SetFont2W(40, 0, nullptr, 0);
    m.tool.SetPointFontA(10, 0, nullptr, 0);
    m.tool.SetPointFontW(10, 0, nullptr, 0);
    EXPECT_EQ(m.tool.GetLogFontOld(), m.tool.SetPointFont0A(120, 0, nullptr, 0)) << "still LogFontOld's address";
    m.tool.SetPointFont0W(120, 0, nullptr, 0);
    EXPECT_EQ(nullptr, m.tool.GetFont()) << "after Finalize";
    EXPECT_EQ(selected, ::GetCurrentObject(dc, OBJ_FONT)) << "the DC's font is left alone";
    EXPECT_EQ(0, std::memcmp(&keptOld, m.tool.GetLogFontOld(), sizeof keptOld)) << "LogFontOld unchanged";

    CMoruDrawTool noDc(nullptr, nullptr);
    noDc.Initialize(nullptr, 0);
    noDc.SetFont1A(40, 0, nullptr, 0);
    noDc.SetPointFont0W(120, 0, nullptr, 0);
    EXPECT_EQ(0.0, noDc.GetTextWidthA("abc")) << "a null DC measures nothing";
    EXPECT_TRUE(std::isnan(noDc.GetCharWidthW(L""))) << "empty text on a null DC";
    noDc.SetTextAlignEx(TA_BASELINE);
    noDc.Finalize();
}

// ---- Metrics ----------------------------------------------------------------------

TEST(TextMetrics, EqualTheDcsExtentDividedByScaleFact)
{
    // ScaleFactX and ScaleFactY are set to other values: metrics ignore them.
    const double scales[] = {
        1.0,   // unit
        2.0,   // the font grows with ScaleFact, the metric does not
        0.75,  // a reduction
        3.3,   // a non-representable factor
    };
    const char* texts[] = {"abc", "Wide WWW text", "dummy", "i"};
    for (double scale : scales) {
        ToolOnMetafile m;
        m.tool.SetScaleFact(scale);
        m.tool.SetScaleFactX(5.0);
        m.tool.SetScaleFactY(-0.5);
        m.tool.SetFont1A(40, 0, "Liberation Sans", 0);
        for (const char* text : texts) {
            const SIZE extent = ExtentOnDc(m.Hdc(), text);
            ASSERT_GT(extent.cx, 0) << "zero extent for \"" << text << "\": are fonts installed for Wine?";
            const std::wstring wide(text, text + lstrlenA(text));
            const double width = extent.cx / scale, height = extent.cy / scale;
            const std::string what = "\"" + std::string(text) + "\" at ScaleFact " + std::to_string(scale);
            EXPECT_DOUBLE_EQ(width, m.tool.GetTextWidthA(text)) << what;
            EXPECT_DOUBLE_EQ(width, m.tool.GetTextWidthW(wide.c_str())) << what;
            EXPECT_DOUBLE_EQ(height, m.tool.GetTextHeightA(text)) << what;
            EXPECT_DOUBLE_EQ(height, m.tool.GetTextHeightW(wide.c_str())) << what;
            EXPECT_DOUBLE_EQ(width / lstrlenA(text), m.tool.GetCharWidthA(text)) << what;
            EXPECT_DOUBLE_EQ(width / lstrlenA(text), m.tool.GetCharWidthW(wide.c_str())) << what;
            EXPECT_DOUBLE_EQ(height, m.tool.GetCharHeightA(text)) << what;
            EXPECT_DOUBLE_EQ(height, m.tool.GetCharHeightW(wide.c_str())) << what;
        }
    }
}

TEST(TextMetrics, NullCountsAsEmptyAndEmptyHasNoMeanCharWidth)
{
    ToolOnMetafile m;
    m.tool.SetScaleFact(2.0);
    const SIZE empty = ExtentOnDc(m.Hdc(), "");
    EXPECT_DOUBLE_EQ(empty.cx / 2.0, m.tool.GetTextWidthA(nullptr)) << "null A text";
    EXPECT_DOUBLE_EQ(empty.cx / 2.0, m.tool.GetTextWidthW(nullptr)) << "null W text";
    EXPECT_DOUBLE_EQ(empty.cy / 2.0, m.tool.GetTextHeightA(nullptr)) << "null A text";
    EXPECT_DOUBLE_EQ(empty.cy / 2.0, m.tool.GetCharHeightW(nullptr)) << "null W text";
    EXPECT_TRUE(std::isnan(m.tool.GetCharWidthA(""))) << "got " << m.tool.GetCharWidthA("");
    EXPECT_TRUE(std::isnan(m.tool.GetCharWidthA(nullptr))) << "got " << m.tool.GetCharWidthA(nullptr);
    EXPECT_TRUE(std::isnan(m.tool.GetCharWidthW(L""))) << "got " << m.tool.GetCharWidthW(L"");
    EXPECT_TRUE(std::isnan(m.tool.GetCharWidthW(nullptr))) << "got " << m.tool.GetCharWidthW(nullptr);
}

TEST(TextMetrics, WideTextIsMeasuredAfterConversionToTheAnsiCodePage)
{
    // U+65E5 and U+2603 have no form in the Western code page the tests run
    // in; each becomes one replacement character.
    const wchar_t* wide = L"a\u65E5\u2603b";
    BOOL usedDefault = FALSE;
    char converted[16] = {};
    ::WideCharToMultiByte(CP_ACP, 0, wide, -1, converted, sizeof converted, nullptr, &usedDefault);
    ASSERT_TRUE(usedDefault) << "code page " << ::GetACP() << " can show the test's characters";
    ToolOnMetafile m;
    m.tool.SetFont1A(40, 0, "Liberation Sans", 0);
    EXPECT_DOUBLE_EQ(m.tool.GetTextWidthA(converted), m.tool.GetTextWidthW(wide)) << "as \"" << converted << "\"";
    EXPECT_DOUBLE_EQ(m.tool.GetTextWidthA(converted) / lstrlenA(converted), m.tool.GetCharWidthW(wide))
        << "divided by the converted length " << lstrlenA(converted);
}

// ---- Alignment --------------------------------------------------------------------

TEST(TextAlign, BaselineBitsBecomeTopAlignmentShiftedByHalfTheTextHeight)
{
    struct Case {
        const char* what;
        UINT request;
        bool ex;         // SetTextAlignEx, else SetTextAlign
        UINT onDc;       // what the DC holds afterwards
        bool centred;    // TextShiftY set from "dummy"
    };
    const Case cases[] = {
        {"Ex(BASELINE|CENTER)", TA_BASELINE | TA_CENTER, true, TA_TOP | TA_CENTER, true},
        {"Ex(BASELINE)", TA_BASELINE, true, TA_TOP, true},
        {"Ex(BASELINE|RIGHT)", TA_BASELINE | TA_RIGHT, true, TA_RIGHT, true},
        {"Ex(BOTTOM|CENTER): one bit is not baseline", TA_BOTTOM | TA_CENTER, true, TA_BOTTOM | TA_CENTER, false},
        {"Ex(TOP)", TA_TOP, true, TA_TOP, false},
        {"plain SetTextAlign(BASELINE) passes on", TA_BASELINE, false, TA_BASELINE, false},
    };
    // Two font heights: one with an odd "dummy" height, where half rounds
    // away from zero, and one with an even height.
    for (bool odd : {true, false}) {
        for (const Case& c : cases) {
            TextCallRecorderDC dc;
            CMoruDrawTool tool(nullptr, &dc);
            tool.Initialize(nullptr, 0);
            LONG cy = 0;
            for (int height = 30; height < 60; ++height) {
                tool.SetFont1A(height, 0, "Liberation Sans", 0);
                cy = ExtentOnDc(dc.m_hDC, "dummy").cy;
                if ((cy % 2 == 1) == odd)
                    break;
            }
            ASSERT_EQ(odd, cy % 2 == 1) << "no font height with an " << (odd ? "odd" : "even") << " extent";
            const std::string what = std::string(c.what) + ", \"dummy\" " + std::to_string(cy) + " high";

            tool.SetTextAlignEx(TA_BASELINE);  // a shift that a plain call must clear
            ::SetTextAlign(dc.m_hDC, TA_UPDATECP);
            const UINT previous = c.ex ? tool.SetTextAlignEx(c.request) : tool.SetTextAlign(c.request);
            EXPECT_EQ(static_cast<UINT>(TA_UPDATECP), previous) << what << ": returns the DC's previous alignment";
            EXPECT_EQ(c.onDc, ::GetTextAlign(dc.m_hDC)) << what << ": alignment on the DC";

            tool.SetFont1A(90, 0, nullptr, 0);  // a later font does not change the shift
            tool.TextOutA(10, 20, "x");
            ASSERT_EQ(1u, dc.calls.size()) << what;
            const int half = static_cast<int>((cy + 1) / 2);  // half of cy, a half rounded up
            EXPECT_EQ(c.centred ? 20 + half : 20, dc.calls[0].y) << what << ": text y";
            tool.Finalize();
        }
    }
}
