// Thin pass-throughs for the DC's drawing modes and saved states: queries on
// the attribute handle, changes through the CDC.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"

namespace {

// A query of the DC's attribute handle, or 0 when there is none.
template <class Result, class Query>
Result Ask(const CDC* dc, Query query)
{
    const HDC handle = QueryHandle(dc);
    return handle ? query(handle) : Result(0);
}

// A change made through the CDC, or 0 without a call on an inert DC.
template <class Result, class Call>
Result Change(CDC* dc, Call change)
{
    return IsInert(dc) ? Result(0) : change(*dc);
}

} // namespace

int CMoruDrawTool::GetArcDirection() const { return Ask<int>(m_dc, ::GetArcDirection); }
COLORREF CMoruDrawTool::GetBkColor() const { return Ask<COLORREF>(m_dc, ::GetBkColor); }
int CMoruDrawTool::GetBkMode() const { return Ask<int>(m_dc, ::GetBkMode); }
int CMoruDrawTool::GetPolyFillMode() const { return Ask<int>(m_dc, ::GetPolyFillMode); }
int CMoruDrawTool::GetROP2() const { return Ask<int>(m_dc, ::GetROP2); }
COLORREF CMoruDrawTool::GetTextColor() const { return Ask<COLORREF>(m_dc, ::GetTextColor); }

int CMoruDrawTool::SetArcDirection(int direction)
{
    return Change<int>(m_dc, [&](CDC& dc) { return dc.SetArcDirection(direction); });
}
COLORREF CMoruDrawTool::SetBkColor(COLORREF color)
{
    return Change<COLORREF>(m_dc, [&](CDC& dc) { return dc.SetBkColor(color); });
}
int CMoruDrawTool::SetBkMode(int mode) { return Change<int>(m_dc, [&](CDC& dc) { return dc.SetBkMode(mode); }); }
int CMoruDrawTool::SetPolyFillMode(int mode)
{
    return Change<int>(m_dc, [&](CDC& dc) { return dc.SetPolyFillMode(mode); });
}
int CMoruDrawTool::SetROP2(int rop) { return Change<int>(m_dc, [&](CDC& dc) { return dc.SetROP2(rop); }); }
COLORREF CMoruDrawTool::SetTextColor(COLORREF color)
{
    return Change<COLORREF>(m_dc, [&](CDC& dc) { return dc.SetTextColor(color); });
}
int CMoruDrawTool::SaveDC() { return Change<int>(m_dc, [](CDC& dc) { return dc.SaveDC(); }); }
int CMoruDrawTool::RestoreDC(int saved) { return Change<int>(m_dc, [&](CDC& dc) { return dc.RestoreDC(saved); }); }
