// The tool's own GDI objects and what each displaced in the DC.
#pragma once

#include "drawtool/Device.h"
#include "framework/afxwin.h"

struct GdiSet {
    CPen pen;
    CPen* oldPen = nullptr;      ///< the DC's pen, displaced by Initialize
    CFont font;
    CFont* oldFont = nullptr;    ///< the DC's font; re-selected before each font change
    CBrush brush;
    CBrush* oldBrush = nullptr;  ///< the DC's brush
    CPoint oldViewportOrg;       ///< the viewport origin Initialize replaced
    bool selected = false;       ///< Initialize has selected the objects, Finalize not yet restored them
};

/// Keeps what a select displaced. A select that fails (GDI refused to
/// create the object, or the DC is gone) answers null; the object displaced
/// earlier then stays the one to put back.
template <class Object>
void KeepDisplaced(Object*& kept, Object* displaced)
{
    if (displaced)
        kept = displaced;
}

/// Pen, brush and font calls change the DC only while the tool's objects are
/// selected in it: from Initialize to Finalize, on a DC with handles.
inline bool HasSelected(const GdiSet* set, const CDC* dc) { return set && set->selected && !IsInert(dc); }
