/*
 * The C interface's method table: one row per public method (or overload) of
 * CMoruDrawTool. DrawToolC.h expands it into declarations, DrawToolC.cpp into
 * the exported wrappers, and the interface test checks it against the class's
 * public declarations, so a method added to the class without a row here
 * fails the test.
 *
 * A row is X(Ret, Name, Method, Params, Args):
 *   Ret     the C return type; the class's CPoint comes back as POINT and its
 *           CPen*, CBrush*, CFont* and CDC* as the GDI handle they hold.
 *   Name    the C name after "DrawTool_": the method's own name, and for a
 *           second form of an overloaded name a suffix before any A/W ending:
 *           Pt   the POINT form (Pts: two POINTs), Rect the RECT form.
 *   Method  the class's method.
 *   Params  the C parameter list, the tool's handle first.
 *   Args    the method's arguments (C++ only; HBRUSH arguments reach the
 *           class as framework brushes through BrushOf).
 *
 * Units and outcomes are those of the method of the same name in DrawTool.h.
 * Valid C89: no comments inside the rows' continuation lines.
 */
#ifndef DRAWTOOL_METHODS_H
#define DRAWTOOL_METHODS_H

#define DRAWTOOL_METHODS(X) \
    X(void, Initialize, Initialize, (DrawToolHandle tool, RECT* rect, int mode), (rect, mode)) \
    X(void, Finalize, Finalize, (DrawToolHandle tool), ()) \
    X(HDC, GetDCPointer, GetDCPointer, (DrawToolHandle tool), ()) \
    \
    X(double, GetScaleFact, GetScaleFact, (DrawToolHandle tool), ()) \
    X(void, SetScaleFact, SetScaleFact, (DrawToolHandle tool, double scale), (scale)) \
    X(double, GetScaleFact2, GetScaleFact2, (DrawToolHandle tool), ()) \
    X(void, SetScaleFact2, SetScaleFact2, (DrawToolHandle tool, double scale), (scale)) \
    X(double, GetScaleFactX, GetScaleFactX, (DrawToolHandle tool), ()) \
    X(void, SetScaleFactX, SetScaleFactX, (DrawToolHandle tool, double scale), (scale)) \
    X(double, GetScaleFactY, GetScaleFactY, (DrawToolHandle tool), ()) \
    X(void, SetScaleFactY, SetScaleFactY, (DrawToolHandle tool, double scale), (scale)) \
    X(double, GetOffsetX, GetOffsetX, (DrawToolHandle tool), ()) \
    X(void, SetOffsetX, SetOffsetX, (DrawToolHandle tool, double offset), (offset)) \
    X(double, GetOffsetY, GetOffsetY, (DrawToolHandle tool), ()) \
    X(void, SetOffsetY, SetOffsetY, (DrawToolHandle tool, double offset), (offset)) \
    X(int, GetOrgX, GetOrgX, (DrawToolHandle tool), ()) \
    X(void, SetOrgX, SetOrgX, (DrawToolHandle tool, int x), (x)) \
    X(int, GetOrgY, GetOrgY, (DrawToolHandle tool), ()) \
    X(void, SetOrgY, SetOrgY, (DrawToolHandle tool, int y), (y)) \
    X(int, VtoLP_X, VtoLP_X, (DrawToolHandle tool, double v), (v)) \
    X(int, VtoLP_Y, VtoLP_Y, (DrawToolHandle tool, double v), (v)) \
    X(double, LPtoV_X, LPtoV_X, (DrawToolHandle tool, int lp), (lp)) \
    X(double, LPtoV_Y, LPtoV_Y, (DrawToolHandle tool, int lp), (lp)) \
    X(POINT, GetCurrentPosition, GetCurrentPosition, (DrawToolHandle tool), ()) \
    X(void, rotate, rotate, (DrawToolHandle tool, double x, double y, double* outX, double* outY, double angle), \
      (x, y, outX, outY, angle)) \
    \
    X(void, SetPen, SetPen, (DrawToolHandle tool, int style, int width, COLORREF color), (style, width, color)) \
    X(HPEN, GetPen, GetPen, (DrawToolHandle tool), ()) \
    X(COLORREF, GetPenColor, GetPenColor, (DrawToolHandle tool), ()) \
    X(void, SetBrush, SetBrush, (DrawToolHandle tool, UINT style, COLORREF color, LONG hatch), (style, color, hatch)) \
    X(HBRUSH, GetBrush, GetBrush, (DrawToolHandle tool), ()) \
    X(int, GetArcDirection, GetArcDirection, (DrawToolHandle tool), ()) \
    X(COLORREF, GetBkColor, GetBkColor, (DrawToolHandle tool), ()) \
    X(int, GetBkMode, GetBkMode, (DrawToolHandle tool), ()) \
    X(int, GetPolyFillMode, GetPolyFillMode, (DrawToolHandle tool), ()) \
    X(int, GetROP2, GetROP2, (DrawToolHandle tool), ()) \
    X(COLORREF, GetTextColor, GetTextColor, (DrawToolHandle tool), ()) \
    X(int, SetArcDirection, SetArcDirection, (DrawToolHandle tool, int direction), (direction)) \
    X(COLORREF, SetBkColor, SetBkColor, (DrawToolHandle tool, COLORREF color), (color)) \
    X(int, SetBkMode, SetBkMode, (DrawToolHandle tool, int mode), (mode)) \
    X(int, SetPolyFillMode, SetPolyFillMode, (DrawToolHandle tool, int mode), (mode)) \
    X(int, SetROP2, SetROP2, (DrawToolHandle tool, int rop), (rop)) \
    X(COLORREF, SetTextColor, SetTextColor, (DrawToolHandle tool, COLORREF color), (color)) \
    X(int, SaveDC, SaveDC, (DrawToolHandle tool), ()) \
    X(int, RestoreDC, RestoreDC, (DrawToolHandle tool, int saved), (saved)) \
    \
    X(void, SetFont1A, SetFont1A, (DrawToolHandle tool, int height, double escapement, const char* face, double orientation), \
      (height, escapement, face, orientation)) \
    X(void, SetFont1W, SetFont1W, (DrawToolHandle tool, int height, double escapement, const wchar_t* face, double orientation), \
      (height, escapement, face, orientation)) \
    X(void, SetFont2A, SetFont2A, (DrawToolHandle tool, int height, double escapement, const char* face, double orientation), \
      (height, escapement, face, orientation)) \
    X(void, SetFont2W, SetFont2W, (DrawToolHandle tool, int height, double escapement, const wchar_t* face, double orientation), \
      (height, escapement, face, orientation)) \
    X(void, SetPointFontA, SetPointFontA, (DrawToolHandle tool, int points, double escapement, const char* face, double orientation), \
      (points, escapement, face, orientation)) \
    X(void, SetPointFontW, SetPointFontW, (DrawToolHandle tool, int points, double escapement, const wchar_t* face, double orientation), \
      (points, escapement, face, orientation)) \
    X(const LOGFONTA*, SetPointFont0A, SetPointFont0A, (DrawToolHandle tool, int pointSize, double angle, const char* face, double unused), \
      (pointSize, angle, face, unused)) \
    X(void, SetPointFont0W, SetPointFont0W, (DrawToolHandle tool, int pointSize, double angle, const wchar_t* face, double unused), \
      (pointSize, angle, face, unused)) \
    X(int, SetFontWeight, SetFontWeight, (DrawToolHandle tool, int weight), (weight)) \
    X(int, SetFontItalic, SetFontItalic, (DrawToolHandle tool, int italic), (italic)) \
    X(void, SetFontStyle, SetFontStyle, (DrawToolHandle tool, int weight, int italic), (weight, italic)) \
    X(int, GetFontWeight, GetFontWeight, (DrawToolHandle tool), ()) \
    X(int, IsFontItalic, IsFontItalic, (DrawToolHandle tool), ()) \
    X(void, GetFontStyle, GetFontStyle, (DrawToolHandle tool, int* weight, int* italic), (weight, italic)) \
    X(HFONT, GetFont, GetFont, (DrawToolHandle tool), ()) \
    X(const LOGFONTA*, GetLogFont, GetLogFont, (DrawToolHandle tool), ()) \
    X(const LOGFONTA*, GetLogFontOld, GetLogFontOld, (DrawToolHandle tool), ()) \
    X(double, GetTextWidthA, GetTextWidthA, (DrawToolHandle tool, const char* text), (text)) \
    X(double, GetTextWidthW, GetTextWidthW, (DrawToolHandle tool, const wchar_t* text), (text)) \
    X(double, GetTextHeightA, GetTextHeightA, (DrawToolHandle tool, const char* text), (text)) \
    X(double, GetTextHeightW, GetTextHeightW, (DrawToolHandle tool, const wchar_t* text), (text)) \
    X(double, GetCharWidthA, GetCharWidthA, (DrawToolHandle tool, const char* text), (text)) \
    X(double, GetCharWidthW, GetCharWidthW, (DrawToolHandle tool, const wchar_t* text), (text)) \
    X(double, GetCharHeightA, GetCharHeightA, (DrawToolHandle tool, const char* text), (text)) \
    X(double, GetCharHeightW, GetCharHeightW, (DrawToolHandle tool, const wchar_t* text), (text)) \
    X(UINT, SetTextAlign, SetTextAlign, (DrawToolHandle tool, UINT align), (align)) \
    X(UINT, SetTextAlignEx, SetTextAlignEx, (DrawToolHandle tool, UINT align), (align)) \
    \
    X(POINT, MoveTo, MoveTo, (DrawToolHandle tool, int x, int y), (x, y)) \
    X(POINT, MoveToPt, MoveTo, (DrawToolHandle tool, POINT point), (point)) \
    X(POINT, MoveTo2, MoveTo2, (DrawToolHandle tool, int x, int y), (x, y)) \
    X(POINT, MoveTo2Pt, MoveTo2, (DrawToolHandle tool, POINT point), (point)) \
    X(int, LineTo, LineTo, (DrawToolHandle tool, int x, int y), (x, y)) \
    X(int, LineToPt, LineTo, (DrawToolHandle tool, POINT point), (point)) \
    X(int, LineTo2, LineTo2, (DrawToolHandle tool, int x, int y), (x, y)) \
    X(int, LineTo2Pt, LineTo2, (DrawToolHandle tool, POINT point), (point)) \
    X(int, Polyline, Polyline, (DrawToolHandle tool, POINT* points, int count), (points, count)) \
    X(int, PolylineTo, PolylineTo, (DrawToolHandle tool, const POINT* points, int count), (points, count)) \
    X(int, Polygon, Polygon, (DrawToolHandle tool, POINT* points, int count), (points, count)) \
    X(int, PolyBezier, PolyBezier, (DrawToolHandle tool, const POINT* points, int count), (points, count)) \
    X(int, PolyBezierTo, PolyBezierTo, (DrawToolHandle tool, const POINT* points, int count), (points, count)) \
    X(int, PolyDraw, PolyDraw, (DrawToolHandle tool, const POINT* points, const BYTE* types, int count), \
      (points, types, count)) \
    X(int, PolyPolyline, PolyPolyline, (DrawToolHandle tool, const POINT* points, const DWORD* polyCounts, int count), \
      (points, polyCounts, count)) \
    \
    X(int, Rectangle, Rectangle, (DrawToolHandle tool, int x1, int y1, int x2, int y2), (x1, y1, x2, y2)) \
    X(int, RectangleRect, Rectangle, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(int, RectanglePts, Rectangle, (DrawToolHandle tool, POINT p1, POINT p2), (p1, p2)) \
    X(int, RectanglePolygon, RectanglePolygon, (DrawToolHandle tool, POINT* corners, POINT* shifts), (corners, shifts)) \
    X(int, Ellipse, Ellipse, (DrawToolHandle tool, int x1, int y1, int x2, int y2), (x1, y1, x2, y2)) \
    X(int, EllipseRect, Ellipse, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(void, FillRect, FillRect, (DrawToolHandle tool, const RECT* rect, HBRUSH brush), (rect, BrushOf(brush))) \
    X(void, FillRect2, FillRect2, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(void, FrameRect, FrameRect, (DrawToolHandle tool, const RECT* rect, HBRUSH brush), (rect, BrushOf(brush))) \
    X(void, FrameRect2, FrameRect2, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(void, InvertRect, InvertRect, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(void, FillSolidRect, FillSolidRect, (DrawToolHandle tool, int x, int y, int cx, int cy, COLORREF color), \
      (x, y, cx, cy, color)) \
    X(void, FillSolidRectRect, FillSolidRect, (DrawToolHandle tool, const RECT* rect, COLORREF color), (rect, color)) \
    X(int, ExcludeClipRect, ExcludeClipRect, (DrawToolHandle tool, int x1, int y1, int x2, int y2), (x1, y1, x2, y2)) \
    X(int, ExcludeClipRectRect, ExcludeClipRect, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(int, IntersectClipRect, IntersectClipRect, (DrawToolHandle tool, int x1, int y1, int x2, int y2), (x1, y1, x2, y2)) \
    X(int, IntersectClipRectRect, IntersectClipRect, (DrawToolHandle tool, const RECT* rect), (rect)) \
    X(int, ExtFloodFill, ExtFloodFill, (DrawToolHandle tool, int x, int y, COLORREF color, UINT fillType), \
      (x, y, color, fillType)) \
    X(int, DrawIcon, DrawIcon, (DrawToolHandle tool, int x, int y, HICON icon), (x, y, icon)) \
    X(int, DrawIconPt, DrawIcon, (DrawToolHandle tool, POINT point, HICON icon), (point, icon)) \
    X(void, DrawDragRect, DrawDragRect, (DrawToolHandle tool, const RECT* rect, SIZE size, const RECT* rectLast, \
      SIZE sizeLast, HBRUSH brush, HBRUSH brushLast), (rect, size, rectLast, sizeLast, BrushOf(brush), BrushOf(brushLast))) \
    \
    X(int, Arc, Arc, (DrawToolHandle tool, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4), \
      (x1, y1, x2, y2, x3, y3, x4, y4)) \
    X(int, ArcRect, Arc, (DrawToolHandle tool, const RECT* rect, POINT start, POINT end), (rect, start, end)) \
    X(int, ArcTo, ArcTo, (DrawToolHandle tool, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4), \
      (x1, y1, x2, y2, x3, y3, x4, y4)) \
    X(int, ArcToRect, ArcTo, (DrawToolHandle tool, const RECT* rect, POINT start, POINT end), (rect, start, end)) \
    X(int, Pie, Pie, (DrawToolHandle tool, int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4), \
      (x1, y1, x2, y2, x3, y3, x4, y4)) \
    X(int, PieRect, Pie, (DrawToolHandle tool, const RECT* rect, POINT start, POINT end), (rect, start, end)) \
    X(int, AngleArc, AngleArc, (DrawToolHandle tool, int x, int y, int radius, float startAngle, float sweepAngle), \
      (x, y, radius, startAngle, sweepAngle)) \
    X(int, Circle, Circle, (DrawToolHandle tool, int x, int y, int radius), (x, y, radius)) \
    X(int, CirclePt, Circle, (DrawToolHandle tool, POINT centre, int radius), (centre, radius)) \
    X(int, Circle2, Circle2, (DrawToolHandle tool, int x, int y, int radius), (x, y, radius)) \
    X(int, Circle2Pt, Circle2, (DrawToolHandle tool, POINT centre, int radius), (centre, radius)) \
    X(int, Circle3, Circle3, (DrawToolHandle tool, int x, int y, int radius), (x, y, radius)) \
    X(int, Circle3Pt, Circle3, (DrawToolHandle tool, POINT centre, int radius), (centre, radius)) \
    X(int, Arch, Arch, (DrawToolHandle tool, int x, int y, int radius, double startAngle, double endAngle), \
      (x, y, radius, startAngle, endAngle)) \
    X(int, ArchPt, Arch, (DrawToolHandle tool, POINT centre, int radius, double startAngle, double endAngle), \
      (centre, radius, startAngle, endAngle)) \
    \
    X(void, Arrow, Arrow, (DrawToolHandle tool, int x, int y, int length, double angle, int headLength, \
      double headAngle, int style), (x, y, length, angle, headLength, headAngle, style)) \
    X(POINT, DrawTick, DrawTick, (DrawToolHandle tool, int x, int y, int length, int alongX), (x, y, length, alongX)) \
    X(POINT, DrawTickPt, DrawTick, (DrawToolHandle tool, POINT point, int length, int alongX), (point, length, alongX)) \
    X(POINT, DrawTick2, DrawTick2, (DrawToolHandle tool, int x, int y, int length, int alongX), (x, y, length, alongX)) \
    X(POINT, DrawTick2Pt, DrawTick2, (DrawToolHandle tool, POINT point, int length, int alongX), (point, length, alongX)) \
    \
    X(int, TextOutA, TextOutA, (DrawToolHandle tool, int x, int y, const char* text), (x, y, text)) \
    X(int, TextOutPtA, TextOutA, (DrawToolHandle tool, POINT point, const char* text), (point, text)) \
    X(int, TextOutW, TextOutW, (DrawToolHandle tool, int x, int y, const wchar_t* text), (x, y, text)) \
    X(int, TextOutPtW, TextOutW, (DrawToolHandle tool, POINT point, const wchar_t* text), (point, text)) \
    X(int, DrawTextA, DrawTextA, (DrawToolHandle tool, const char* text, RECT* rect, UINT format), (text, rect, format)) \
    X(int, DrawTextW, DrawTextW, (DrawToolHandle tool, const wchar_t* text, RECT* rect, UINT format), (text, rect, format))

#endif
