// The tool's own GDI objects and what each displaced in the DC.
#pragma once

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
