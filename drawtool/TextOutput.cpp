#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"
#include "support/numeric/IntegerConversion.h"

namespace {

// Text coordinates round half away from zero, unlike the other drawing calls,
// and every y has TextShiftY subtracted (wrapping, so an extreme shift never
// overflows into undefined behaviour).
int TextX(const CoordinateFrame& frame, int x) { return MapHalfAwayX(frame, x); }
int TextY(const CoordinateFrame& frame, int textShiftY, int y) { return WrappingSubtract(MapHalfAwayY(frame, y), textShiftY); }

int TextOutAt(CDC* dc, const CoordinateFrame& frame, int textShiftY, int x, int y, const CString& text)
{
    if (IsInert(dc))
        return 0;
    const int deviceY = TextY(frame, textShiftY, y);
    const int deviceX = TextX(frame, x);
    return dc->TextOut(deviceX, deviceY, text.GetString(), text.GetLength());
}

// Draws into a mapped copy of the host's rectangle, which stays unwritten
// even with DT_CALCRECT. The copy is not put in order. A null rectangle, an
// inert DC, or a handle that is no longer a DC (the host deleted it) draws
// nothing and answers 0, DrawText's failure value; Wine's DrawText would
// divide by zero measuring tabs on such a handle.
int DrawTextIn(CDC* dc, const CoordinateFrame& frame, int textShiftY, CString text, const RECT* rect, UINT format)
{
    if (!rect || IsInert(dc) || !::GetObjectType(dc->m_hDC))
        return 0;
    // With DT_MODIFYSTRING and an ellipsis, DrawText writes the text it shows
    // back into its buffer, up to four characters longer than the count it
    // was given, plus the terminator: the tool's copy has room for them, and
    // the host's text is never handed over.
    const int length = text.GetLength();
    const char* chars = text.GetBuffer(length + 5);
    RECT mapped = {TextX(frame, rect->left), TextY(frame, textShiftY, rect->top), TextX(frame, rect->right),
                   TextY(frame, textShiftY, rect->bottom)};
    return dc->DrawText(chars, length, &mapped, format);
}

} // namespace

// A null text counts as empty: the device call is still made, with length 0.

int CMoruDrawTool::TextOutA(int x, int y, const char* text)
{
    return TextOutAt(m_dc, m_frame, m_textShiftY, x, y, CString(text));
}

int CMoruDrawTool::TextOutA(POINT point, const char* text) { return TextOutA(point.x, point.y, text); }

int CMoruDrawTool::TextOutW(int x, int y, const wchar_t* text)
{
    return TextOutAt(m_dc, m_frame, m_textShiftY, x, y, CString(text));
}

int CMoruDrawTool::TextOutW(POINT point, const wchar_t* text) { return TextOutW(point.x, point.y, text); }

int CMoruDrawTool::DrawTextA(const char* text, RECT* rect, UINT format)
{
    return DrawTextIn(m_dc, m_frame, m_textShiftY, CString(text), rect, format);
}

int CMoruDrawTool::DrawTextW(const wchar_t* text, RECT* rect, UINT format)
{
    return DrawTextIn(m_dc, m_frame, m_textShiftY, CString(text), rect, format);
}
