// Thin pass-throughs for the DC's drawing modes and saved states: queries on
// the attribute handle, changes through the CDC.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"

int CMoruDrawTool::GetArcDirection() const { return ::GetArcDirection(DeviceOf(m_dc).m_hAttribDC); }
COLORREF CMoruDrawTool::GetBkColor() const { return ::GetBkColor(DeviceOf(m_dc).m_hAttribDC); }
int CMoruDrawTool::GetBkMode() const { return ::GetBkMode(DeviceOf(m_dc).m_hAttribDC); }
int CMoruDrawTool::GetPolyFillMode() const { return ::GetPolyFillMode(DeviceOf(m_dc).m_hAttribDC); }
int CMoruDrawTool::GetROP2() const { return ::GetROP2(DeviceOf(m_dc).m_hAttribDC); }
COLORREF CMoruDrawTool::GetTextColor() const { return ::GetTextColor(DeviceOf(m_dc).m_hAttribDC); }

int CMoruDrawTool::SetArcDirection(int direction) { return DeviceOf(m_dc).SetArcDirection(direction); }
COLORREF CMoruDrawTool::SetBkColor(COLORREF color) { return DeviceOf(m_dc).SetBkColor(color); }
int CMoruDrawTool::SetBkMode(int mode) { return DeviceOf(m_dc).SetBkMode(mode); }
int CMoruDrawTool::SetPolyFillMode(int mode) { return DeviceOf(m_dc).SetPolyFillMode(mode); }
int CMoruDrawTool::SetROP2(int rop) { return DeviceOf(m_dc).SetROP2(rop); }
COLORREF CMoruDrawTool::SetTextColor(COLORREF color) { return DeviceOf(m_dc).SetTextColor(color); }
int CMoruDrawTool::SaveDC() { return DeviceOf(m_dc).SaveDC(); }
int CMoruDrawTool::RestoreDC(int saved) { return DeviceOf(m_dc).RestoreDC(saved); }
