#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

namespace {

// The extent of 8-bit text on the DC's output handle, in logical units;
// nothing on an inert DC.
SIZE ExtentOf(const CDC* dc, const CString& text)
{
    SIZE size = {0, 0};
    if (!IsInert(dc))
        ::GetTextExtentPoint32A(dc->m_hDC, text.GetString(), text.GetLength(), &size);
    return size;
}

// The DC's alignment call; 0 without a call on an inert DC.
UINT AlignOn(CDC* dc, UINT align) { return IsInert(dc) ? 0 : dc->SetTextAlign(align); }

// The TA_BASELINE bits (TA_BOTTOM | 16): both set asks for vertical centring.
constexpr UINT kBaselineBits = TA_BASELINE;

} // namespace

// ---- Metrics: logical units divided by ScaleFact; null text counts as empty --

double CMoruDrawTool::GetTextWidthA(const char* text)
{
    return ExtentOf(m_dc, CString(text)).cx / m_frame.scaleFact;
}

double CMoruDrawTool::GetTextWidthW(const wchar_t* text)
{
    const CString ansi(text);
    return GetTextWidthA(ansi);
}

double CMoruDrawTool::GetTextHeightA(const char* text)
{
    return ExtentOf(m_dc, CString(text)).cy / m_frame.scaleFact;
}

double CMoruDrawTool::GetTextHeightW(const wchar_t* text)
{
    const CString ansi(text);
    return GetTextHeightA(ansi);
}

double CMoruDrawTool::GetCharWidthA(const char* text)
{
    // 0.0 / 0 for an empty text: NaN, as intended.
    const CString ansi(text);
    return GetTextWidthA(ansi) / static_cast<double>(ansi.GetLength());
}

double CMoruDrawTool::GetCharWidthW(const wchar_t* text)
{
    const CString ansi(text);
    return GetTextWidthA(ansi) / static_cast<double>(ansi.GetLength());
}

double CMoruDrawTool::GetCharHeightA(const char* text) { return GetTextHeightA(text); }

double CMoruDrawTool::GetCharHeightW(const wchar_t* text)
{
    const CString ansi(text);
    return GetTextHeightA(ansi);
}

// ---- Alignment ----------------------------------------------------------------

UINT CMoruDrawTool::SetTextAlign(UINT align)
{
    m_textShiftY = 0;
    return AlignOn(m_dc, align);
}

UINT CMoruDrawTool::SetTextAlignEx(UINT align)
{
    if ((align & kBaselineBits) != kBaselineBits)
        return SetTextAlign(align);
    // Baseline alignment means vertical centring here, on purpose: the text is
    // drawn top-aligned and shifted by half the height of "dummy" in the
    // current font, measured now and not updated by later font changes.
    const double height = GetTextHeightA("dummy");
    m_textShiftY = WrappingNegate(RoundHalfAway(height * m_frame.scaleFact * 0.5));
    return AlignOn(m_dc, align & ~kBaselineBits);
}
