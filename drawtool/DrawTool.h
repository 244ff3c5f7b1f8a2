// CMoruDrawTool: draws on a host's device context in the host's own
// "virtual" units.
//
// What the tool borrows and what it owns. The host owns the window (CWnd) and
// the device context (CDC); the tool stores both, never creates or releases
// them, and the host keeps the DC alive until Finalize. The tool owns one pen,
// one font and one brush (its GdiSet), selected into the DC from Initialize
// to Finalize, and the coordinate frame that maps virtual units to the DC's
// logical ("device") units:
//   per axis:   device x = RoundToInt(x * ScaleFactX + OffsetX)
//               device y = RoundToInt(y * ScaleFactY + OffsetY)
//   uniform:    the "2" line calls use ScaleFact for both axes;
//               font heights and text metrics scale by ScaleFact.
// RoundToInt pushes every non-integer away from zero (2.1 -> 3, -2.1 -> -3);
// text, arrows and ticks use RoundHalfAway (nearest, halves away from zero).
// Offsets are in device units and added after scaling. Initialize mode 1
// negates ScaleFactY so that virtual y points up.
//
// Life cycle: CreateDrawTool -> Initialize -> drawing, state and metric calls
// -> Finalize -> DestroyDrawTool. DestroyDrawTool frees the object without
// running its destructor, so Finalize is what releases the GDI objects.
//
// Defined outcomes where the host breaks the life cycle (the tool validates
// nothing else and never throws). Whatever the order of the calls, after
// Finalize the DC has again the pen, brush, font and viewport origin it had
// when Initialize first selected the tool's objects (unless the host, after
// Finalize, restores a DC state it saved while they were selected).
// - An inert DC: a null CDC*, or a CDC without an output handle (m_hDC). The
//   tool makes no GDI, user32 or CDC call on it (a null handle never reaches
//   GDI): every device call answers 0 (points (0, 0); GetPen, GetBrush and
//   GetFont give objects without a handle), metrics answer 0, or NaN where
//   they divide by a zero length or ScaleFact, and Initialize changes only
//   the coordinate frame. A CDC with an output handle but no attribute
//   handle draws; its queries answer 0.
// - Before Initialize: pen, brush and font calls do nothing (nothing of the
//   tool's is selected yet); drawing calls reach the DC with its own objects.
//   Finalize without Initialize leaves the DC alone and releases the GdiSet.
// - An object GDI refuses (a pen or brush style or hatch it does not know, a
//   font it cannot make): its select fails and changes nothing, and the tool
//   keeps the object it displaced earlier as the one Finalize puts back.
// - SaveDC/RestoreDC: the tool does not follow what RestoreDC selects; it
//   goes on with its own objects, and Finalize still puts back the DC's.
// - A failed allocation of the GdiSet, and every call after Finalize: the tool
//   has no GdiSet; Initialize changes only the coordinate frame, pen, brush
//   and font calls do nothing, GetPen, GetBrush and GetFont return null,
//   GetPenColor returns 0, and Finalize does nothing. Drawing calls still
//   reach the DC (with its own objects selected).
// - Initialize again without Finalize: the DC is first put back as Finalize
//   would (the GdiSet is kept), so no GDI object leaks and a later Finalize
//   restores the DC's own objects and viewport origin.
// - Finalize releases the GdiSet and forgets it, so deleting the tool through
//   its destructor after Finalize is safe as well.
#pragma once

#include "DrawToolExport.h"
#include "framework/afxwin.h"

struct GdiSet;

/// The coordinate frame. Scales are device units per virtual unit; offsets
/// and origins are device (logical) units.
struct CoordinateFrame {
    int orgX = 0;             ///< viewport origin x used by Initialize
    int orgY = 0;             ///< viewport origin y used by Initialize
    double scaleFact = 1.0;   ///< uniform scale: "2" line calls, fonts, metrics, radii
    double scaleFact2 = 0.0;  ///< second uniform scale, for SetFont2A/W
    double scaleFactX = 1.0;
    double scaleFactY = 1.0;
    double offsetX = 0.0;
    double offsetY = 0.0;
};

class DRAWTOOL_API CMoruDrawTool {
public:
    // ---- Life cycle --------------------------------------------------------

    /// Stores `wnd` (never used) and `dc` (drawn on until Finalize); does not
    /// touch the DC.
    CMoruDrawTool(CWnd* wnd, CDC* dc);
    /// Deletes the GdiSet's objects and record if the tool still has one.
    virtual ~CMoruDrawTool();
    CMoruDrawTool(const CMoruDrawTool&) = delete;
    CMoruDrawTool& operator=(const CMoruDrawTool&) = delete;

    /// Selects the tool's pen (solid, width 0, black), font (50 virtual units
    /// high in the DC's face) and hollow white brush, sets text colour black,
    /// transparent background and TA_TOP|TA_LEFT, and moves the viewport
    /// origin. mode 1: y points up (ScaleFactY is negated), origin
    /// (OrgX, OrgY). mode 2: origin (OrgX, OrgY + rect->bottom); a null rect
    /// counts as bottom 0. Other modes: origin (0, 0), rect is not read. On
    /// an inert DC or without a GdiSet only the frame changes (see above).
    void Initialize(RECT* rect, int mode);
    /// Deletes the tool's objects, re-selects the DC's own and restores the
    /// viewport origin; text colour, background mode and alignment stay.
    /// Without a matching Initialize it only releases the GdiSet.
    void Finalize();
    CDC* GetDCPointer();

    // ---- Coordinate frame --------------------------------------------------

    double GetScaleFact();
    /// Also sets ScaleFact2 while ScaleFact2 is still exactly 0.0.
    void SetScaleFact(double scale);
    double GetScaleFact2();
    void SetScaleFact2(double scale);
    double GetScaleFactX();
    void SetScaleFactX(double scale);
    double GetScaleFactY();
    void SetScaleFactY(double scale);
    double GetOffsetX();
    void SetOffsetX(double offset);
    double GetOffsetY();
    void SetOffsetY(double offset);
    int GetOrgX();
    void SetOrgX(int x);
    int GetOrgY();
    void SetOrgY(int y);

    /// Virtual to device: (v * ScaleFactX + 0.5) + OffsetX truncated toward
    /// zero (so -2.3 gives -1). Out of the 32-bit range: INT_MIN.
    int VtoLP_X(double v);
    int VtoLP_Y(double v);
    /// Device to virtual: (lp - OffsetX) / ScaleFactX.
    double LPtoV_X(int lp);
    double LPtoV_Y(int lp);
    /// The DC's current position in virtual units, by
    /// RoundToInt(device / ScaleFact - Offset) per axis (scale divided first).
    /// (0, 0) on an inert DC, whatever the offsets.
    CPoint GetCurrentPosition();
    /// Rotates (x, y) about the origin by `angle` degrees, counter-clockwise
    /// when y points up. The outputs may alias the caller's inputs; a null
    /// output pointer is skipped.
    void rotate(double x, double y, double* outX, double* outY, double angle);

    // ---- Pen, brush and device modes ---------------------------------------

    /// Replaces the pen; `width` in logical units, not scaled. Between
    /// Initialize and Finalize only; after a refused pen the previous one
    /// stays in use.
    void SetPen(int style, int width, COLORREF color);
    CPen* GetPen();
    COLORREF GetPenColor();
    /// Replaces the brush (a BS_ style, colour 0x00BBGGRR, HS_ hatch).
    /// Between Initialize and Finalize only; a refused brush leaves the DC
    /// with its own brush until the next SetBrush or Finalize.
    void SetBrush(UINT style, COLORREF color, LONG hatch);
    CBrush* GetBrush();

    int GetArcDirection() const;
    COLORREF GetBkColor() const;
    int GetBkMode() const;
    int GetPolyFillMode() const;
    int GetROP2() const;
    COLORREF GetTextColor() const;
    int SetArcDirection(int direction);
    COLORREF SetBkColor(COLORREF color);
    int SetBkMode(int mode);
    int SetPolyFillMode(int mode);
    int SetROP2(int rop);
    COLORREF SetTextColor(COLORREF color);
    int SaveDC();
    int RestoreDC(int saved);

    // ---- Fonts and text metrics --------------------------------------------
    // Heights: virtual units times ScaleFact (ScaleFact2 for SetFont2),
    // rounded by RoundToInt, passed as a cell height (never negated). Angles:
    // degrees, given to the font in tenths truncated toward zero. A null face
    // takes the face of the font the DC has selected. W methods convert text
    // to the ANSI code page and make only 8-bit GDI calls. Every font call
    // creates character set 128 (SHIFTJIS_CHARSET), OUT_TT_PRECIS and
    // CLIP_LH_ANGLES with FontWeight and the low byte of FontItalic, and
    // re-selects the DC's own font before deleting the tool's; a font GDI
    // refuses leaves the DC's own selected. Font calls do nothing outside
    // Initialize..Finalize or on an inert DC (SetPointFont0A still returns
    // GetLogFontOld()).

    void SetFont1A(int height, double escapement, const char* face, double orientation);
    void SetFont1W(int height, double escapement, const wchar_t* face, double orientation);
    void SetFont2A(int height, double escapement, const char* face, double orientation);
    void SetFont2W(int height, double escapement, const wchar_t* face, double orientation);
    /// `points` converted to tenths of a millimetre, truncated (10 points ->
    /// 35), then as SetFont1A, so also scaled by ScaleFact.
    void SetPointFontA(int points, double escapement, const char* face, double orientation);
    void SetPointFontW(int points, double escapement, const wchar_t* face, double orientation);
    /// `pointSize` in tenths of a point for the DC (ScaleFact not applied),
    /// `angle` as escapement and orientation. Keeps the replaced font's
    /// description in LogFontOld and the new one (height in tenths of a
    /// point) in LogFont; returns GetLogFontOld(). The W form returns nothing.
    LOGFONTA* SetPointFont0A(int pointSize, double angle, const char* face, double unused);
    void SetPointFont0W(int pointSize, double angle, const wchar_t* face, double unused);

    /// Weight and italic for the next font call (the current font stays);
    /// the setters return the previous value. GetFontStyle skips a null
    /// output pointer.
    int SetFontWeight(int weight);
    int SetFontItalic(int italic);
    void SetFontStyle(int weight, int italic);
    int GetFontWeight();
    int IsFontItalic();
    void GetFontStyle(int* weight, int* italic);
    CFont* GetFont();
    /// Set by Initialize and the SetPointFont0 pair only: after SetFont1/2 and
    /// SetPointFont it still describes the earlier font, as intended.
    LOGFONTA* GetLogFont();
    LOGFONTA* GetLogFontOld();

    /// Text extents in virtual units: GetTextExtentPoint32A on the DC's
    /// output handle divided by ScaleFact (never ScaleFactX/Y); W text is
    /// measured after conversion. A null text counts as empty. Char widths
    /// are means over the (converted) byte length: NaN for an empty text.
    double GetTextWidthA(const char* text);
    double GetTextWidthW(const wchar_t* text);
    double GetTextHeightA(const char* text);
    double GetTextHeightW(const wchar_t* text);
    double GetCharWidthA(const char* text);
    double GetCharWidthW(const wchar_t* text);
    double GetCharHeightA(const char* text);
    double GetCharHeightW(const wchar_t* text);

    /// Passes `align` to the DC, clears TextShiftY; returns the previous one.
    UINT SetTextAlign(UINT align);
    /// As SetTextAlign, except that TA_BASELINE means "centred vertically":
    /// it becomes TA_TOP and TextShiftY = -RoundHalfAway(half the height of
    /// "dummy" in the current font), measured now and kept through later font
    /// changes; centred on a DC whose logical y axis points up.
    UINT SetTextAlignEx(UINT align);

    // ---- Lines and paths (virtual units) -----------------------------------
    // Every point is mapped per axis (MoveTo2/LineTo2: by ScaleFact), so a
    // mapped value beyond the 32-bit range holds at INT_MAX or INT_MIN and a
    // NaN one is 0. Point arrays: a count below 2, a null array (or null
    // types or polyCounts) and a failed allocation of the mapped copy all
    // return 0 without a device call. The host's arrays are never written.

    /// Returns the previous current position in device units.
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point);
    CPoint MoveTo2(int x, int y);
    CPoint MoveTo2(POINT point);
    int LineTo(int x, int y);
    int LineTo(POINT point);
    int LineTo2(int x, int y);
    int LineTo2(POINT point);
    /// Long lists are drawn in runs of 15000 points sharing one point at each
    /// seam; returns the last run's result, even when that run is a single
    /// point (which GDI refuses on a bitmap).
    int Polyline(POINT* points, int count);
    int PolylineTo(const POINT* points, int count);
    int Polygon(POINT* points, int count);
    int PolyBezier(const POINT* points, int count);
    int PolyBezierTo(const POINT* points, int count);
    int PolyDraw(const POINT* points, const BYTE* types, int count);
    /// Maps the first `count` points (count = number of polylines), or, when
    /// the first `count` polyCounts add up to more, exactly that many points,
    /// so that GDI draws the polylines described (the host's array must hold
    /// them). Refused (0, no device call) when they add up to more than
    /// kMaxPolyPolylinePoints.
    int PolyPolyline(const POINT* points, const DWORD* polyCounts, int count);
    /// The most points PolyPolyline maps in one call (a 512 MiB copy).
    static constexpr unsigned long long kMaxPolyPolylinePoints = 1ull << 26;

    // ---- Rectangles, fills and clipping (virtual units) --------------------
    // Mapped corner by corner; only FrameRect/FrameRect2 (after mapping) and
    // the RECT FillSolidRect (before mapping) put the box in order. A null
    // RECT or corner pointer draws nothing (0; ERROR for the clip calls).
    // Integer sums (shifts, RECT extents) beyond 32 bits hold at the ends.

    int Rectangle(int x1, int y1, int x2, int y2);
    int Rectangle(const RECT* rect);
    int Rectangle(POINT p1, POINT p2);
    /// Four mapped corners, each then moved by `shifts` device units (null:
    /// no shift).
    int RectanglePolygon(POINT* corners, POINT* shifts);
    int Ellipse(int x1, int y1, int x2, int y2);
    int Ellipse(const RECT* rect);
    /// A null brush reaches user32 as a null handle.
    void FillRect(const RECT* rect, CBrush* brush);
    /// With the tool's brush (a null handle after Finalize).
    void FillRect2(const RECT* rect);
    void FrameRect(const RECT* rect, CBrush* brush);
    void FrameRect2(const RECT* rect);
    void InvertRect(const RECT* rect);
    /// The extent is mapped like a coordinate: offsets are added to it too.
    /// Leaves the DC's background colour at `color`.
    void FillSolidRect(int x, int y, int cx, int cy, COLORREF color);
    void FillSolidRect(const RECT* rect, COLORREF color);
    int ExcludeClipRect(int x1, int y1, int x2, int y2);
    int ExcludeClipRect(const RECT* rect);
    int IntersectClipRect(int x1, int y1, int x2, int y2);
    int IntersectClipRect(const RECT* rect);
    int ExtFloodFill(int x, int y, COLORREF color, UINT fillType);
    int DrawIcon(int x, int y, HICON icon);
    int DrawIcon(POINT point, HICON icon);
    /// Device units, not mapped.
    void DrawDragRect(const RECT* rect, SIZE size, const RECT* rectLast, SIZE sizeLast, CBrush* brush,
                      CBrush* brushLast);

    // ---- Arcs and circles (virtual units) ----------------------------------
    // Corners and centres mapped per axis, boxes not put in order except
    // Arch's. A null RECT draws nothing and returns 0.

    int Arc(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    int Arc(const RECT* rect, POINT start, POINT end);
    int ArcTo(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    int ArcTo(const RECT* rect, POINT start, POINT end);
    int Pie(int x1, int y1, int x2, int y2, int x3, int y3, int x4, int y4);
    int Pie(const RECT* rect, POINT start, POINT end);
    /// Radius scaled by ScaleFact (no offset); angles in degrees, passed
    /// unchanged. GDI refuses a negative device radius.
    int AngleArc(int x, int y, int radius, float startAngle, float sweepAngle);
    /// Radius scaled by ScaleFact: round on the device whatever the axes.
    int Circle(int x, int y, int radius);
    int Circle(POINT centre, int radius);
    /// Radius in device pixels, added to the mapped centre; box edges beyond
    /// 32 bits hold at INT_MAX or INT_MIN.
    int Circle2(int x, int y, int radius);
    int Circle2(POINT centre, int radius);
    /// Radius in device pixels, 2 * radius + 1 pixels across.
    int Circle3(int x, int y, int radius);
    /// Kept narrower on purpose: draws as Circle2.
    int Circle3(POINT centre, int radius);
    /// Circular arc, radius in virtual units, angles in degrees from +x
    /// toward +y. The virtual box is put in order (its edges held within 32
    /// bits); the radial points are truncated toward zero before mapping,
    /// and a NaN or out-of-range one becomes INT_MIN.
    int Arch(int x, int y, int radius, double startAngle, double endAngle);
    int Arch(POINT centre, int radius, double startAngle, double endAngle);

    // ---- Arrows and ticks --------------------------------------------------

    /// Arrow from (x, y), `length` virtual units toward `angle` degrees (0 =
    /// +y, positive turns toward -x); style = 10 * head position + head kind.
    /// Figure points are rounded half away from zero. A line or polygon
    /// through a point that is NaN or beyond the 32-bit range is left out:
    /// a 90-degree head angle (180 for kind 2) draws the shaft alone (kind 2:
    /// nothing), a NaN or infinite angle draws nothing.
    void Arrow(int x, int y, int length, double angle, int headLength, double headAngle, int style);
    /// Tick of RoundHalfAway(length * ScaleFact) device units (INT_MIN when
    /// beyond 32 bits) from the start rounded half away from zero; its end
    /// holds at INT_MAX or INT_MIN. Returns the end in virtual units by
    /// GetCurrentPosition's rule.
    CPoint DrawTick(int x, int y, int length, int alongX);
    CPoint DrawTick(POINT point, int length, int alongX);
    /// As DrawTick with the start point in device units.
    CPoint DrawTick2(int x, int y, int length, int alongX);
    CPoint DrawTick2(POINT point, int length, int alongX);

    // ---- Text output (virtual units, RoundHalfAway, minus TextShiftY) ------
    // x' = RoundHalfAway(x * ScaleFactX + OffsetX), y' = RoundHalfAway(y *
    // ScaleFactY + OffsetY) - TextShiftY. One call to the DC's virtual 8-bit
    // TextOut/DrawText with the byte length (W text converted first, with '?'
    // for characters outside the code page); its answer is returned. A null
    // text counts as empty (the DC is still called, with length 0).

    int TextOutA(int x, int y, const char* text);
    int TextOutA(POINT point, const char* text);
    int TextOutW(int x, int y, const wchar_t* text);
    int TextOutW(POINT point, const wchar_t* text);
    /// Draws in a mapped copy of `rect` (TextShiftY off both top and bottom,
    /// not put in order); the host's rectangle is read, never written, even
    /// with DT_CALCRECT. A null rect, or a DC handle the host has deleted,
    /// draws nothing and returns 0 without calling DrawText. With
    /// DT_MODIFYSTRING the text as shown (with its ellipsis, up to four
    /// characters longer) goes to the tool's own copy, which has room for it;
    /// the host's text is never written.
    int DrawTextA(const char* text, RECT* rect, UINT format);
    int DrawTextW(const wchar_t* text, RECT* rect, UINT format);

private:
    GdiSet* m_gdiSet;
    CWnd* m_wnd;
    CDC* m_dc;
    int m_fontWeight = 0;
    int m_fontItalic = 0;
    LOGBRUSH m_logBrush = {};
    LOGFONTA m_logFont = {};
    LOGFONTA m_logFontOld = {};
    CoordinateFrame m_frame;
    int m_textShiftY = 0;
    int m_keepYAxis = 1;
    int m_pointFontFlag = 0;
};

extern "C" {
/// Allocates and constructs a tool; null only when allocation fails.
DRAWTOOL_API CMoruDrawTool* CreateDrawTool(CWnd* wnd, CDC* dc);
/// Frees the tool's storage without running its destructor: call Finalize
/// first, which releases the GDI objects.
DRAWTOOL_API void DestroyDrawTool(CMoruDrawTool* tool);
}
