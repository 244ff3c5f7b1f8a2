/*
 * The drawing tool's C interface, for hosts built with any compiler or
 * written in any language that can call C (C, C#, Delphi, Python's ctypes).
 * Valid C89, C99 and C++; it uses Windows types only.
 *
 * Calling convention: the module is 64-bit x86 only, where every function
 * uses the platform's single x64 calling convention; no keyword is needed in
 * declarations or in function-pointer types. Names are exported undecorated,
 * so GetProcAddress finds "DrawTool_LineTo" as written here.
 *
 * Use:
 *   DrawToolHandle tool = DrawTool_Create(hwnd, hdc);
 *   DrawTool_Initialize(tool, &area, 1);
 *   ... setters, drawing calls and metric queries ...
 *   DrawTool_Finalize(tool);
 *   DrawTool_Destroy(tool);
 * The host owns the window and the DC: the tool wraps the DC in its own
 * framework object, never releases it and needs it until DrawTool_Finalize.
 *
 * Functions: one per public method of CMoruDrawTool, named "DrawTool_" and
 * the method's name, with the tool's handle as first parameter and the
 * method's units and outcomes (documented in DrawTool.h). Where the class
 * overloads a name, the integer form keeps the plain name and the other
 * forms carry a suffix before any A/W ending: Pt for the POINT form
 * (DrawTool_LineToPt, DrawTool_TextOutPtA), Pts for two POINTs
 * (DrawTool_RectanglePts), Rect for the RECT form (DrawTool_EllipseRect,
 * DrawTool_ArcRect). Text calls come in A (ANSI code page) and W (UTF-16)
 * forms. Results that the class gives as framework objects come back plain:
 * positions as POINT, the tool's pen, brush and font as their HPEN, HBRUSH
 * and HFONT (owned by the tool, valid until its next change of that object
 * or DrawTool_Finalize; null without one), the DC as the host's HDC. Brushes
 * are passed as HBRUSH (null as the method's null brush). LOGFONTA pointers
 * point into the tool and stay valid until DrawTool_Destroy. The full list is
 * the table in DrawToolMethods.h.
 *
 * Bad handles: a null handle, a handle after DrawTool_Destroy and any value
 * that DrawTool_Create did not return are recognised; a handle value is not
 * handed out again before some 4 billion later creations, even when a new
 * tool takes the old one's memory. The call then does nothing, writes no
 * out-parameter and returns its neutral value: 0 for int results,
 * CLR_INVALID for COLORREF, GDI_ERROR for the UINT text alignments, 0.0 for
 * doubles, the point (0, 0) for POINT and null for handles and pointers.
 *
 * Threads: handles may be created and destroyed on any thread; one tool is
 * used by one thread at a time, as its DC is, and is not destroyed while
 * another thread draws with it.
 */
#ifndef DRAWTOOL_C_H
#define DRAWTOOL_C_H

#include <stddef.h>
#include <windows.h>

#include "DrawToolExport.h"
#include "DrawToolMethods.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A drawing tool. Opaque: never dereferenced, compared only for identity. */
typedef struct DrawToolObject* DrawToolHandle;

/**
 * Creates a tool drawing on `dc` (its window `wnd` is stored and never used;
 * either may be null: a null DC makes every device call fail harmlessly).
 * Returns null only when memory runs out.
 */
DRAWTOOL_API DrawToolHandle DrawTool_Create(HWND wnd, HDC dc);

/**
 * Frees the tool. A tool still initialized is finalized first, so the DC gets
 * its own pen, font, brush and viewport origin back and no GDI object leaks.
 * A bad handle is ignored.
 */
DRAWTOOL_API void DrawTool_Destroy(DrawToolHandle tool);

/**
 * The four parts of the module's file version (major.minor.build.revision,
 * 1.0.0.0 for version 1.0.0). Returns 1, or 0 when the module carries no
 * version resource (the parts are then left untouched). Null pointers are
 * skipped.
 */
DRAWTOOL_API int DrawTool_GetVersion(int* major, int* minor, int* build, int* revision);

#define DRAWTOOL_DECLARE_METHOD(Ret, Name, Method, Params, Args) DRAWTOOL_API Ret DrawTool_##Name Params;
DRAWTOOL_METHODS(DRAWTOOL_DECLARE_METHOD)
#undef DRAWTOOL_DECLARE_METHOD

#ifdef __cplusplus
}
#endif

#endif
