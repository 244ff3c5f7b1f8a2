#include "AfxDC.h"

#include <algorithm>
#include <climits>

CDC::~CDC()
{
    DeleteDC();
}

BOOL CDC::Attach(HDC hdc)
{
    if (!hdc)
        return FALSE;
    m_hDC = m_hAttribDC = hdc;
    return TRUE;
}

HDC CDC::Detach()
{
    HDC hdc = m_hDC;
    m_hDC = m_hAttribDC = nullptr;
    return hdc;
}

BOOL CDC::CreateCompatibleDC(CDC* dc)
{
    return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr));
}

BOOL CDC::DeleteDC()
{
    if (!m_hDC)
        return FALSE;
    return ::DeleteDC(Detach());
}

namespace {

// Applies a state setter to the output DC (when distinct) and then to the
// attribute DC; the attribute DC's answer is the one reported, as in MFC.
// A null handle is skipped: `none` stands for GDI's answer to it.
template <class Result, class Set>
Result OnBothHandles(HDC output, HDC attrib, Result none, Set set)
{
    Result result = none;
    if (output && output != attrib)
        result = set(output);
    if (attrib)
        result = set(attrib);
    return result;
}

} // namespace

CPen* CDC::SelectObject(CPen* pen)
{
    if (!m_hDC)
        return nullptr;
    return CPen::FromHandle(static_cast<HPEN>(::SelectObject(m_hDC, CGdiObject::SafeHandle(pen))));
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    if (!m_hDC)
        return nullptr;
    return CBrush::FromHandle(static_cast<HBRUSH>(::SelectObject(m_hDC, CGdiObject::SafeHandle(brush))));
}

CFont* CDC::SelectObject(CFont* font)
{
    HGDIOBJ handle = CGdiObject::SafeHandle(font);
    HGDIOBJ old = OnBothHandles<HGDIOBJ>(m_hDC, m_hAttribDC, nullptr,
                                         [&](HDC hdc) { return ::SelectObject(hdc, handle); });
    return CFont::FromHandle(static_cast<HFONT>(old));
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    CPoint old;
    OnBothHandles<BOOL>(m_hDC, m_hAttribDC, FALSE, [&](HDC hdc) { return ::SetViewportOrgEx(hdc, x, y, &old); });
    return old;
}

CPoint CDC::GetViewportOrg() const
{
    CPoint origin(0, 0);
    if (m_hAttribDC)
        ::GetViewportOrgEx(m_hAttribDC, &origin);
    return origin;
}

COLORREF CDC::SetBkColor(COLORREF color)
{
    return OnBothHandles<COLORREF>(m_hDC, m_hAttribDC, CLR_INVALID, [&](HDC hdc) { return ::SetBkColor(hdc, color); });
}

COLORREF CDC::SetTextColor(COLORREF color)
{
    return OnBothHandles<COLORREF>(m_hDC, m_hAttribDC, CLR_INVALID, [&](HDC hdc) { return ::SetTextColor(hdc, color); });
}

int CDC::SetBkMode(int mode)
{
    return OnBothHandles<int>(m_hDC, m_hAttribDC, 0, [&](HDC hdc) { return ::SetBkMode(hdc, mode); });
}

int CDC::SetPolyFillMode(int mode)
{
    return OnBothHandles<int>(m_hDC, m_hAttribDC, 0, [&](HDC hdc) { return ::SetPolyFillMode(hdc, mode); });
}

int CDC::SetROP2(int rop)
{
    return OnBothHandles<int>(m_hDC, m_hAttribDC, 0, [&](HDC hdc) { return ::SetROP2(hdc, rop); });
}

int CDC::SetArcDirection(int direction)
{
    return OnBothHandles<int>(m_hDC, m_hAttribDC, 0, [&](HDC hdc) { return ::SetArcDirection(hdc, direction); });
}

UINT CDC::SetTextAlign(UINT flags)
{
    return OnBothHandles<UINT>(m_hDC, m_hAttribDC, GDI_ERROR, [&](HDC hdc) { return ::SetTextAlign(hdc, flags); });
}

int CDC::SaveDC()
{
    int saved = 0;
    if (m_hAttribDC)
        saved = ::SaveDC(m_hAttribDC);
    // With two distinct handles only -1 restores both consistently.
    if (m_hDC && m_hDC != m_hAttribDC && ::SaveDC(m_hDC) != 0)
        saved = -1;
    return saved;
}

BOOL CDC::RestoreDC(int savedDC)
{
    BOOL ok = TRUE;
    if (m_hDC != m_hAttribDC)
        ok = m_hDC && ::RestoreDC(m_hDC, savedDC);
    if (m_hAttribDC)
        ok = ok && ::RestoreDC(m_hAttribDC, savedDC);
    return ok;
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint old;
    OnBothHandles<BOOL>(m_hDC, m_hAttribDC, FALSE, [&](HDC hdc) { return ::MoveToEx(hdc, x, y, &old); });
    return old;
}

BOOL CDC::LineTo(int x, int y)
{
    if (!m_hDC)
        return FALSE;
    if (m_hAttribDC && m_hDC != m_hAttribDC)
        ::MoveToEx(m_hAttribDC, x, y, nullptr);
    return ::LineTo(m_hDC, x, y);
}

namespace {

// After a call that moved the output DC's current position, carries it over
// to a distinct attribute DC.
void SyncCurrentPosition(HDC output, HDC attrib)
{
    if (!output || !attrib || output == attrib)
        return;
    POINT at;
    if (::GetCurrentPositionEx(output, &at))
        ::MoveToEx(attrib, at.x, at.y, nullptr);
}

} // namespace

BOOL CDC::PolylineTo(const POINT* points, int count)
{
    BOOL result = m_hDC && ::PolylineTo(m_hDC, points, static_cast<DWORD>(count));
    SyncCurrentPosition(m_hDC, m_hAttribDC);
    return result;
}

BOOL CDC::PolyBezierTo(const POINT* points, int count)
{
    BOOL result = m_hDC && ::PolyBezierTo(m_hDC, points, static_cast<DWORD>(count));
    SyncCurrentPosition(m_hDC, m_hAttribDC);
    return result;
}

BOOL CDC::PolyDraw(const POINT* points, const BYTE* types, int count)
{
    BOOL result = m_hDC && ::PolyDraw(m_hDC, points, types, count);
    SyncCurrentPosition(m_hDC, m_hAttribDC);
    return result;
}

BOOL CDC::ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4)
{
    BOOL result = m_hDC && ::ArcTo(m_hDC, x1, y1, x2, y2, x3, y3, x4, y4);
    SyncCurrentPosition(m_hDC, m_hAttribDC);
    return result;
}

void CDC::FillSolidRect(int x, int y, int cx, int cy, COLORREF color)
{
    if (!m_hDC)
        return;
    ::SetBkColor(m_hDC, color);
    // The far edges are summed in 64 bits and held in the 32-bit range.
    auto edge = [](int from, int extent) {
        const long long sum = static_cast<long long>(from) + extent;
        return static_cast<LONG>(sum > INT_MAX ? INT_MAX : sum < INT_MIN ? INT_MIN : sum);
    };
    RECT rect = {x, y, edge(x, cx), edge(y, cy)};
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
}

void CDC::FillSolidRect(const RECT* rect, COLORREF color)
{
    if (!rect || !m_hDC)
        return;
    ::SetBkColor(m_hDC, color);
    ::ExtTextOutA(m_hDC, 0, 0, ETO_OPAQUE, rect, nullptr, 0, nullptr);
}

int CDC::ExcludeClipRect(const RECT* rect)
{
    if (!rect)
        return ERROR;
    return OnBothHandles<int>(m_hDC, m_hAttribDC, ERROR, [&](HDC hdc) {
        return ::ExcludeClipRect(hdc, rect->left, rect->top, rect->right, rect->bottom);
    });
}

int CDC::IntersectClipRect(const RECT* rect)
{
    if (!rect)
        return ERROR;
    return OnBothHandles<int>(m_hDC, m_hAttribDC, ERROR, [&](HDC hdc) {
        return ::IntersectClipRect(hdc, rect->left, rect->top, rect->right, rect->bottom);
    });
}

BOOL CDC::TextOut(int x, int y, const char* text, int count)
{
    return m_hDC && ::TextOutA(m_hDC, x, y, text, count);
}

int CDC::DrawText(const char* text, int count, RECT* rect, UINT format)
{
    return m_hDC ? ::DrawTextA(m_hDC, text, count, rect, format) : 0;
}

CSize CDC::GetTextExtent(const char* text, int count) const
{
    CSize size(0, 0);
    if (m_hAttribDC)
        ::GetTextExtentPoint32A(m_hAttribDC, text, count, &size);
    return size;
}
