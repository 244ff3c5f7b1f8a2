// CGdiObject and its pen, brush and font classes, as MFC defines them: a thin
// owner of one GDI handle. Destruction deletes a handle the object still
// holds; Detach hands it back without deleting it.
#pragma once

#include <windows.h>

class CDC;

class CGdiObject {
public:
    CGdiObject() = default;
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    virtual ~CGdiObject() { DeleteObject(); }

    HGDIOBJ m_hObject = nullptr;

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    /// The handle of `object`, or null for a null pointer (MFC's
    /// GetSafeHandle answers so for a null object).
    static HGDIOBJ SafeHandle(const CGdiObject* object) { return object ? object->m_hObject : nullptr; }
    operator HGDIOBJ() const { return m_hObject; }

    /// Takes ownership of `handle`. A handle the object already held is
    /// deleted first, so re-attaching never leaks. Returns FALSE for null.
    BOOL Attach(HGDIOBJ handle);
    HGDIOBJ Detach();
    /// Deletes the held handle (GDI's answer is returned) and lets go of it
    /// whatever GDI answered; FALSE when nothing was held.
    BOOL DeleteObject();
    int GetObject(int count, void* buffer) const { return ::GetObjectA(m_hObject, count, buffer); }

    /// A stable, non-owning wrapper for a handle a DC handed back (null for
    /// null). Wrappers live for the rest of the process and never delete
    /// their handle; one wrapper per handle value and class.
    static CGdiObject* FromHandle(HGDIOBJ handle);
};

class CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF color) { CreatePen(style, width, color); }
    operator HPEN() const { return static_cast<HPEN>(m_hObject); }
    BOOL CreatePen(int style, int width, COLORREF color) { return Attach(::CreatePen(style, width, color)); }
    static CPen* FromHandle(HPEN handle);
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    operator HBRUSH() const { return static_cast<HBRUSH>(m_hObject); }
    BOOL CreateSolidBrush(COLORREF color) { return Attach(::CreateSolidBrush(color)); }
    BOOL CreateBrushIndirect(const LOGBRUSH* logBrush) { return Attach(::CreateBrushIndirect(logBrush)); }
    static CBrush* FromHandle(HBRUSH handle);
};

class CFont : public CGdiObject {
public:
    operator HFONT() const { return static_cast<HFONT>(m_hObject); }
    BOOL CreateFontIndirect(const LOGFONTA* logFont) { return Attach(::CreateFontIndirectA(logFont)); }
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic,
                    BYTE underline, BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision,
                    BYTE quality, BYTE pitchAndFamily, const char* faceName)
    {
        return Attach(::CreateFontA(height, width, escapement, orientation, weight, italic, underline,
                                    strikeOut, charSet, outPrecision, clipPrecision, quality, pitchAndFamily,
                                    faceName));
    }
    /// A font of `pointSize` tenths of a point in `faceName`, sized for `dc`
    /// (the screen when null), as MFC's point-font creation does.
    BOOL CreatePointFont(int pointSize, const char* faceName, CDC* dc = nullptr);
    /// As CreatePointFont, with lfHeight of `logFont` in tenths of a point,
    /// converted to `dc`'s logical units through its mapping mode.
    BOOL CreatePointFontIndirect(const LOGFONTA* logFont, CDC* dc = nullptr);
    static CFont* FromHandle(HFONT handle);
};
