// Test helpers for fonts and text: a host-derived CDC that records the text
// calls a drawing tool makes, and readers for the font and text records of an
// enhanced metafile.
#pragma once

#include "common/EmfRecording.h"
#include "framework/afxwin.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

/// One TextOut or DrawText call as the host's CDC received it.
struct TextCall {
    enum Kind { kTextOut, kDrawText } kind = kTextOut;
    int x = 0;                ///< TextOut's reference point
    int y = 0;
    std::string text;         ///< the `count` bytes received
    int count = 0;
    RECT rect = {};           ///< DrawText's rectangle as received
    UINT format = 0;
};

inline std::string DumpTextCall(const TextCall& call)
{
    std::ostringstream out;
    if (call.kind == TextCall::kTextOut)
        out << "TextOut(" << call.x << ", " << call.y << ", \"" << call.text << "\", " << call.count << ")";
    else
        out << "DrawText(\"" << call.text << "\", " << call.count << ", {" << call.rect.left << ", " << call.rect.top
            << ", " << call.rect.right << ", " << call.rect.bottom << "}, 0x" << std::hex << call.format << ")";
    return out.str();
}

inline std::string DumpTextCalls(const std::vector<TextCall>& calls)
{
    std::string text;
    for (const TextCall& call : calls)
        text += (text.empty() ? "" : "; ") + DumpTextCall(call);
    return text.empty() ? "(no calls)" : text;
}

/// A host's CDC over a memory DC (so fonts and extents work) that overrides
/// TextOut and DrawText: it records each call, draws nothing and answers
/// `result`. DrawText also writes into the rectangle it receives, as
/// DT_CALCRECT does, so that a caller passing the host's own rectangle shows.
class TextCallRecorderDC : public CDC {
public:
    TextCallRecorderDC() { Attach(::CreateCompatibleDC(nullptr)); }

    std::vector<TextCall> calls;
    int result = 4711;

    BOOL TextOut(int x, int y, const char* text, int count) override
    {
        TextCall call;
        call.kind = TextCall::kTextOut;
        call.x = x;
        call.y = y;
        call.text = text && count > 0 ? std::string(text, static_cast<size_t>(count)) : std::string();
        call.count = count;
        calls.push_back(call);
        return result;
    }

    int DrawText(const char* text, int count, RECT* rect, UINT format) override
    {
        TextCall call;
        call.kind = TextCall::kDrawText;
        call.text = text && count > 0 ? std::string(text, static_cast<size_t>(count)) : std::string();
        call.count = count;
        call.rect = rect ? *rect : RECT{};
        call.format = format;
        calls.push_back(call);
        if (rect)
            *rect = RECT{-1, -1, -1, -1};
        return result;
    }
};

/// The fields of a font description that the tool decides.
struct FontFields {
    LONG height = 0;
    LONG escapement = 0;
    LONG orientation = 0;
    LONG weight = 0;
    int italic = 0;
    int charSet = 0;
    int outPrecision = 0;
    int clipPrecision = 0;
    std::string face;
};

inline FontFields FieldsOf(const LOGFONTA& font)
{
    return FontFields{font.lfHeight, font.lfEscapement, font.lfOrientation, font.lfWeight, font.lfItalic,
                      font.lfCharSet, font.lfOutPrecision, font.lfClipPrecision, font.lfFaceName};
}

/// ASCII text of a wide string (the tests use ASCII faces and texts).
inline std::string Narrow(const wchar_t* text, size_t length)
{
    std::string narrow;
    for (size_t i = 0; i < length && text[i]; ++i)
        narrow += text[i] < 0x80 ? static_cast<char>(text[i]) : '#';
    return narrow;
}

inline FontFields FieldsOf(const LOGFONTW& font)
{
    return FontFields{font.lfHeight, font.lfEscapement, font.lfOrientation, font.lfWeight, font.lfItalic,
                      font.lfCharSet, font.lfOutPrecision, font.lfClipPrecision,
                      Narrow(font.lfFaceName, LF_FACESIZE)};
}

/// The description of a GDI font handle, read with GetObject.
inline FontFields FieldsOfHandle(HGDIOBJ font)
{
    LOGFONTA logFont = {};
    ::GetObjectA(font, sizeof logFont, &logFont);
    return FieldsOf(logFont);
}

/// The fonts a metafile created, in order.
inline std::vector<FontFields> RecordedFonts(const std::vector<EmfRecord>& records)
{
    std::vector<FontFields> fonts;
    for (const EmfRecord& record : RecordsOfType(records, EMR_EXTCREATEFONTINDIRECTW))
        fonts.push_back(FieldsOf(record.As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont));
    return fonts;
}

/// Compares every field, naming the field and `where` on a mismatch.
inline void ExpectFontFields(const FontFields& expected, const FontFields& got, const std::string& where)
{
    EXPECT_EQ(expected.height, got.height) << where << ": height";
    EXPECT_EQ(expected.escapement, got.escapement) << where << ": escapement";
    EXPECT_EQ(expected.orientation, got.orientation) << where << ": orientation";
    EXPECT_EQ(expected.weight, got.weight) << where << ": weight";
    EXPECT_EQ(expected.italic, got.italic) << where << ": italic";
    EXPECT_EQ(expected.charSet, got.charSet) << where << ": character set";
    EXPECT_EQ(expected.outPrecision, got.outPrecision) << where << ": output precision";
    EXPECT_EQ(expected.clipPrecision, got.clipPrecision) << where << ": clipping precision";
    EXPECT_EQ(expected.face, got.face) << where << ": face";
}

/// A text record of a metafile: Wine records TextOutA and DrawTextA as
/// EMR_EXTTEXTOUTW, converted with the font's code page; EMR_EXTTEXTOUTA is
/// read as well.
struct RecordedText {
    POINT reference = {};
    std::string text;      ///< ASCII view of the recorded characters
    DWORD chars = 0;       ///< the record's character count
    RECT rect = {};        ///< the clipping/opaquing rectangle
    DWORD options = 0;
};

inline std::vector<RecordedText> RecordedTexts(const std::vector<EmfRecord>& records)
{
    std::vector<RecordedText> texts;
    for (const EmfRecord& record : records) {
        if (record.type != EMR_EXTTEXTOUTW && record.type != EMR_EXTTEXTOUTA)
            continue;
        const auto head = record.As<EMREXTTEXTOUTW>();
        RecordedText text;
        text.reference = POINT{head.emrtext.ptlReference.x, head.emrtext.ptlReference.y};
        text.chars = head.emrtext.nChars;
        text.rect = RECT{head.emrtext.rcl.left, head.emrtext.rcl.top, head.emrtext.rcl.right, head.emrtext.rcl.bottom};
        text.options = head.emrtext.fOptions;
        const BYTE* string = record.bytes.data() + head.emrtext.offString;
        for (DWORD i = 0; i < text.chars; ++i) {
            if (record.type == EMR_EXTTEXTOUTA)
                text.text += static_cast<char>(string[i]);
            else
                text.text += Narrow(reinterpret_cast<const wchar_t*>(string) + i, 1);
        }
        texts.push_back(text);
    }
    return texts;
}

inline std::string DumpRecordedTexts(const std::vector<RecordedText>& texts)
{
    std::ostringstream out;
    for (const RecordedText& text : texts)
        out << "(" << text.reference.x << ", " << text.reference.y << ") \"" << text.text << "\" " << text.chars
            << " chars; ";
    return texts.empty() ? "(no text records)" : out.str();
}
