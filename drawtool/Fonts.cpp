#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/GdiSet.h"
#include "support/numeric/Rounding.h"

namespace {

// The face for a new font: the given one, or the face of the font the DC has
// selected now (the tool's own after Initialize).
CString FaceOrCurrent(CDC& dc, const char* face)
{
    if (face)
        return CString(face);
    char current[256] = {};
    ::GetTextFaceA(dc.m_hAttribDC, sizeof current, current);
    return CString(current);
}

// Degrees to the tenths of a degree a LOGFONT holds, truncated toward zero.
int TenthsOfDegree(double degrees) { return static_cast<int>(degrees * 10.0); }

} // namespace

void CMoruDrawTool::SetFont1A(int height, double escapement, const char* face, double orientation)
{
    if (!m_gdiSet)
        return;
    m_pointFontFlag = 0;
    CDC& dc = DeviceOf(m_dc);
    const CString faceName = FaceOrCurrent(dc, face);
    dc.SelectObject(m_gdiSet->oldFont);
    m_gdiSet->font.DeleteObject();
    m_gdiSet->font.Attach(::CreateFontA(RoundToInt(height * m_frame.scaleFact), 0, TenthsOfDegree(escapement),
                                        TenthsOfDegree(orientation), m_fontWeight,
                                        static_cast<BYTE>(m_fontItalic), 0, 0, SHIFTJIS_CHARSET, OUT_TT_PRECIS,
                                        CLIP_LH_ANGLES, DEFAULT_QUALITY, 0, faceName));
    m_gdiSet->oldFont = dc.SelectObject(&m_gdiSet->font);
}
