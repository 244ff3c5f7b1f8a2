#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/GdiSet.h"
#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

#include <climits>

namespace {

// The face for a new font: the given one, or the face of the font the DC has
// selected now (the tool's own after Initialize).
CString FaceOrCurrent(CDC& dc, const char* face)
{
    if (face)
        return CString(face);
    char current[256] = {};
    if (const HDC handle = QueryHandle(&dc))
        ::GetTextFaceA(handle, sizeof current, current);
    return CString(current);
}

// Degrees to the tenths of a degree a LOGFONT holds, truncated toward zero.
int TenthsOfDegree(double degrees) { return TruncateToInt(degrees * 10.0); }

// Points to tenths of a millimetre, truncated: 10 points give 35.
int PointsToTenthMillimetres(int points) { return TruncateToInt(((points * 2.54) / 72.0) * 100.0); }

// A W face converted to the ANSI code page; null stays null so that the DC's
// current face is taken.
struct AnsiFace {
    explicit AnsiFace(const wchar_t* face) : text(face), given(face != nullptr) {}
    const char* Get() const { return given ? text.GetString() : nullptr; }
    CString text;
    bool given;
};

// Replaces the tool's font by a CreateFontA font `logicalHeight` high: the
// DC's own font is re-selected before the tool's is deleted.
void ReplaceFont(CDC& dc, GdiSet& set, int logicalHeight, double escapement, const char* face,
                 double orientation, int weight, int italic)
{
    const CString faceName = FaceOrCurrent(dc, face);
    dc.SelectObject(set.oldFont);
    set.font.DeleteObject();
    // Character set 128 for every font, whatever the face: intended.
    set.font.Attach(::CreateFontA(logicalHeight, 0, TenthsOfDegree(escapement), TenthsOfDegree(orientation),
                                  weight, static_cast<BYTE>(italic), 0, 0, SHIFTJIS_CHARSET, OUT_TT_PRECIS,
                                  CLIP_LH_ANGLES, DEFAULT_QUALITY, 0, faceName));
    KeepDisplaced(set.oldFont, dc.SelectObject(&set.font));
}

} // namespace

// ---- Font creation ----------------------------------------------------------

void CMoruDrawTool::SetFont1A(int height, double escapement, const char* face, double orientation)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    m_pointFontFlag = 0;
    ReplaceFont(DeviceOf(m_dc), *m_gdiSet, RoundToInt(height * m_frame.scaleFact), escapement, face, orientation,
                m_fontWeight, m_fontItalic);
}

void CMoruDrawTool::SetFont1W(int height, double escapement, const wchar_t* face, double orientation)
{
    SetFont1A(height, escapement, AnsiFace(face).Get(), orientation);
}

void CMoruDrawTool::SetFont2A(int height, double escapement, const char* face, double orientation)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    m_pointFontFlag = 0;
    ReplaceFont(DeviceOf(m_dc), *m_gdiSet, RoundToInt(height * m_frame.scaleFact2), escapement, face, orientation,
                m_fontWeight, m_fontItalic);
}

void CMoruDrawTool::SetFont2W(int height, double escapement, const wchar_t* face, double orientation)
{
    SetFont2A(height, escapement, AnsiFace(face).Get(), orientation);
}

void CMoruDrawTool::SetPointFontA(int points, double escapement, const char* face, double orientation)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    m_pointFontFlag = 1;
    // SetFont1A resets the flag to 0 and scales the height by ScaleFact: intended.
    SetFont1A(PointsToTenthMillimetres(points), escapement, face, orientation);
}

void CMoruDrawTool::SetPointFontW(int points, double escapement, const wchar_t* face, double orientation)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    m_pointFontFlag = 1;
    SetFont1W(PointsToTenthMillimetres(points), escapement, face, orientation);
}

LOGFONTA* CMoruDrawTool::SetPointFont0A(int pointSize, double angle, const char* face, double /*unused*/)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return &m_logFontOld;
    m_pointFontFlag = 1;
    CDC& dc = DeviceOf(m_dc);
    const CString faceName = FaceOrCurrent(dc, face);
    ::GetObjectA(m_gdiSet->font.m_hObject, sizeof(LOGFONTA), &m_logFontOld);
    dc.SelectObject(m_gdiSet->oldFont);
    m_gdiSet->font.DeleteObject();

    // The description starts from what MFC's point-font creation fills in for
    // this face and DC (character set included), then takes the tool's size,
    // weight, italic byte and angle; the height stays in tenths of a point.
    {
        CFont sample;
        sample.CreatePointFont(pointSize, faceName, &dc);
        ::GetObjectA(sample.m_hObject, sizeof(LOGFONTA), &m_logFont);
    }
    m_logFont.lfHeight = pointSize;
    m_logFont.lfWeight = m_fontWeight;
    m_logFont.lfItalic = static_cast<BYTE>(m_fontItalic);
    m_logFont.lfEscapement = m_logFont.lfOrientation = TenthsOfDegree(angle);
    m_gdiSet->font.CreatePointFontIndirect(&m_logFont, &dc);

    KeepDisplaced(m_gdiSet->oldFont, dc.SelectObject(&m_gdiSet->font));
    return &m_logFontOld;
}

void CMoruDrawTool::SetPointFont0W(int pointSize, double angle, const wchar_t* face, double unused)
{
    // Returns nothing, unlike SetPointFont0A: intended.
    SetPointFont0A(pointSize, angle, AnsiFace(face).Get(), unused);
}

// ---- Font settings ----------------------------------------------------------

int CMoruDrawTool::SetFontWeight(int weight)
{
    const int previous = m_fontWeight;
    m_fontWeight = weight;
    return previous;
}

int CMoruDrawTool::SetFontItalic(int italic)
{
    const int previous = m_fontItalic;
    m_fontItalic = italic;
    return previous;
}

void CMoruDrawTool::SetFontStyle(int weight, int italic)
{
    m_fontWeight = weight;
    m_fontItalic = italic;
}

int CMoruDrawTool::GetFontWeight() { return m_fontWeight; }

int CMoruDrawTool::IsFontItalic() { return m_fontItalic; }

void CMoruDrawTool::GetFontStyle(int* weight, int* italic)
{
    if (weight)
        *weight = m_fontWeight;
    if (italic)
        *italic = m_fontItalic;
}

CFont* CMoruDrawTool::GetFont() { return m_gdiSet ? &m_gdiSet->font : nullptr; }

LOGFONTA* CMoruDrawTool::GetLogFont() { return &m_logFont; }

LOGFONTA* CMoruDrawTool::GetLogFontOld() { return &m_logFontOld; }
