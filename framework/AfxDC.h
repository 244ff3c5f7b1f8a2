// CDC: a device context with MFC's two handles. m_hDC receives output;
// m_hAttribDC answers queries. Attach sets both to one handle, as for screen,
// memory and metafile DCs. State changes go to both handles when they differ,
// drawing goes to m_hDC, and members that MFC declares virtual are virtual
// here too, so a host-derived CDC can intercept them.
//
// A CDC with null handles is inert: no member hands a null HDC to GDI or
// user32; each answers what GDI answers for one (FALSE, 0, CLR_INVALID,
// GDI_ERROR, a null object or the point (0, 0)) without making the call.
#pragma once

#include "AfxGdi.h"
#include "AfxString.h"
#include "AfxTypes.h"

class CDC {
public:
    CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    /// Deletes an attached DC (use Detach to keep it), as MFC does.
    virtual ~CDC();

    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    BOOL Attach(HDC hdc);
    HDC Detach();
    BOOL CreateCompatibleDC(CDC* dc);
    BOOL DeleteDC();

    // Objects. MFC declares only the font overload virtual.
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    virtual CFont* SelectObject(CFont* font);

    // Coordinates and modes.
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    CPoint GetViewportOrg() const;
    virtual COLORREF SetBkColor(COLORREF color);
    virtual COLORREF SetTextColor(COLORREF color);
    int SetBkMode(int mode);
    int SetPolyFillMode(int mode);
    int SetROP2(int rop);
    int SetArcDirection(int direction);
    UINT SetTextAlign(UINT flags);
    virtual int SaveDC();
    virtual BOOL RestoreDC(int savedDC);

    // Lines and paths; the "To" members keep the attribute DC's current
    // position in step with the output DC.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Polyline(const POINT* points, int count) { return m_hDC && ::Polyline(m_hDC, points, count); }
    BOOL Polygon(const POINT* points, int count) { return m_hDC && ::Polygon(m_hDC, points, count); }
    BOOL PolyBezier(const POINT* points, int count) { return m_hDC && ::PolyBezier(m_hDC, points, static_cast<DWORD>(count)); }
    BOOL PolyPolyline(const POINT* points, const DWORD* counts, int polylines) { return m_hDC && ::PolyPolyline(m_hDC, points, counts, static_cast<DWORD>(polylines)); }
    BOOL PolylineTo(const POINT* points, int count);
    BOOL PolyBezierTo(const POINT* points, int count);
    BOOL PolyDraw(const POINT* points, const BYTE* types, int count);
    BOOL ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);

    // Areas and clipping.
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    /// A null rect fills nothing and keeps the background colour (MFC asserts).
    void FillSolidRect(const RECT* rect, COLORREF color);
    int ExcludeClipRect(const RECT* rect);
    int IntersectClipRect(const RECT* rect);
    /// Draws or moves a drag rectangle: the frame of `rect` `size` thick,
    /// after removing the frame of `rectLast` (`sizeLast` thick) where it
    /// differs; patterns are XORed with `brush` (a halftone brush when null).
    void DrawDragRect(const RECT* rect, SIZE size, const RECT* rectLast, SIZE sizeLast,
                      CBrush* brush = nullptr, CBrush* brushLast = nullptr);

    // Text.
    virtual BOOL TextOut(int x, int y, const char* text, int count);
    BOOL TextOut(int x, int y, const CString& text) { return TextOut(x, y, text.GetString(), text.GetLength()); }
    virtual int DrawText(const char* text, int count, RECT* rect, UINT format);
    int DrawText(const CString& text, RECT* rect, UINT format) { return DrawText(text.GetString(), text.GetLength(), rect, format); }
    CSize GetTextExtent(const char* text, int count) const;
};

/// A CDC that does not own its handle: attaches on construction, detaches on
/// destruction. The framework's stand-in for MFC's temporary CDC wrappers.
class CBorrowedDC : public CDC {
public:
    explicit CBorrowedDC(HDC hdc) { Attach(hdc); }
    ~CBorrowedDC() override { Detach(); }
};
