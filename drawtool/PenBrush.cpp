#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/GdiSet.h"

void CMoruDrawTool::SetPen(int style, int width, COLORREF color)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    // The pen is deleted while still selected (GDI defers the deletion until
    // it is deselected); the brush setter below re-selects first. Both
    // orders are intended.
    m_gdiSet->pen.DeleteObject();
    m_gdiSet->pen.Attach(::CreatePen(style, width, color));
    DeviceOf(m_dc).SelectObject(&m_gdiSet->pen);
}

CPen* CMoruDrawTool::GetPen() { return m_gdiSet ? &m_gdiSet->pen : nullptr; }

COLORREF CMoruDrawTool::GetPenColor()
{
    LOGPEN logPen = {};
    if (!m_gdiSet || !m_gdiSet->pen.m_hObject)
        return 0;
    ::GetObjectA(m_gdiSet->pen.m_hObject, sizeof(LOGPEN), &logPen);
    return logPen.lopnColor;
}

void CMoruDrawTool::SetBrush(UINT style, COLORREF color, LONG hatch)
{
    if (!HasSelected(m_gdiSet, m_dc))
        return;
    CDC& dc = DeviceOf(m_dc);
    dc.SelectObject(m_gdiSet->oldBrush);
    m_gdiSet->brush.DeleteObject();
    m_logBrush.lbColor = color;
    m_logBrush.lbStyle = style;
    m_logBrush.lbHatch = static_cast<ULONG_PTR>(static_cast<LONG_PTR>(hatch));
    m_gdiSet->brush.Attach(::CreateBrushIndirect(&m_logBrush));
    KeepDisplaced(m_gdiSet->oldBrush, dc.SelectObject(&m_gdiSet->brush));
}

CBrush* CMoruDrawTool::GetBrush() { return m_gdiSet ? &m_gdiSet->brush : nullptr; }
