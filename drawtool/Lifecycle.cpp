#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/GdiSet.h"
#include "support/numeric/IntegerConversion.h"

#include <new>

CMoruDrawTool::CMoruDrawTool(CWnd* wnd, CDC* dc)
    : m_gdiSet(new (std::nothrow) GdiSet), m_wnd(wnd), m_dc(dc)
{
}

CMoruDrawTool::~CMoruDrawTool()
{
    delete m_gdiSet;  // destroys brush, font, pen (reverse declaration order)
}

namespace {

// Finalize's first four steps: each tool object is deleted before the one it
// displaced is selected back, then the viewport origin is restored.
void RestoreDevice(CDC& dc, GdiSet& set)
{
    set.pen.DeleteObject();
    dc.SelectObject(set.oldPen);
    set.font.DeleteObject();
    dc.SelectObject(set.oldFont);
    set.brush.DeleteObject();
    dc.SelectObject(set.oldBrush);
    dc.SetViewportOrg(set.oldViewportOrg.x, set.oldViewportOrg.y);
    set.selected = false;
}

} // namespace

void CMoruDrawTool::Initialize(RECT* rect, int mode)
{
    // Without a DC or a GdiSet there is nothing to select and nothing that a
    // later Finalize could put back: the DC is left alone, only the frame
    // changes.
    const bool touchesDevice = m_gdiSet && !IsInert(m_dc);
    CDC& dc = DeviceOf(m_dc);
    if (touchesDevice && m_gdiSet->selected)
        RestoreDevice(dc, *m_gdiSet);

    m_keepYAxis = 1;
    CPoint origin(0, 0);
    if (mode == 1) {
        m_frame.scaleFactY = m_frame.scaleFactY * -1.0;
        m_keepYAxis = 0;
        origin = CPoint(m_frame.orgX, m_frame.orgY);
    } else if (mode == 2) {
        origin = CPoint(m_frame.orgX, WrappingAdd(m_frame.orgY, rect ? rect->bottom : 0));
    }
    m_logBrush = LOGBRUSH{BS_HOLLOW, RGB(255, 255, 255), 0};
    if (!touchesDevice)
        return;

    m_gdiSet->oldViewportOrg = dc.SetViewportOrg(origin.x, origin.y);
    m_gdiSet->selected = true;

    m_gdiSet->pen.Attach(::CreatePen(PS_SOLID, 0, RGB(0, 0, 0)));
    KeepDisplaced(m_gdiSet->oldPen, dc.SelectObject(&m_gdiSet->pen));

    // Before the first font call OldFont is null; SetFont1A's re-select of it
    // then selects nothing, and its selection of the new font stores the DC's
    // own font in OldFont.
    SetFont1A(50, 0.0, nullptr, 0.0);
    ::GetObjectA(m_gdiSet->font.m_hObject, sizeof(LOGFONTA), &m_logFont);

    m_gdiSet->brush.Attach(::CreateBrushIndirect(&m_logBrush));
    KeepDisplaced(m_gdiSet->oldBrush, dc.SelectObject(&m_gdiSet->brush));

    dc.SetTextColor(RGB(0, 0, 0));
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_TOP | TA_LEFT | TA_NOUPDATECP);
}

void CMoruDrawTool::Finalize()
{
    if (!m_gdiSet)
        return;
    // Without a matching Initialize nothing of the tool's is selected and the
    // viewport origin is the host's own: the DC is not touched. Neither is a
    // DC that has lost its handles since; the record's objects are deleted
    // with it.
    if (m_gdiSet->selected && !IsInert(m_dc))
        RestoreDevice(DeviceOf(m_dc), *m_gdiSet);
    delete m_gdiSet;
    m_gdiSet = nullptr;
}

CDC* CMoruDrawTool::GetDCPointer() { return m_dc; }

extern "C" CMoruDrawTool* CreateDrawTool(CWnd* wnd, CDC* dc)
{
    void* storage = ::operator new(sizeof(CMoruDrawTool), std::nothrow);
    if (!storage)
        return nullptr;
    return new (storage) CMoruDrawTool(wnd, dc);
}

extern "C" void DestroyDrawTool(CMoruDrawTool* tool)
{
    // Frees the storage without the destructor: Finalize owns the release of
    // the GDI objects, and a never-finalized tool keeps its GdiSet.
    ::operator delete(static_cast<void*>(tool));
}
