// Hostile hosts: calls out of the life cycle, objects GDI refuses, DCs
// without handles, text that DrawText rewrites, and seeded random sequences
// of every method, each seed in a child process of its own.
#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/HostDcState.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <malloc.h>

#include <climits>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace {

// Host objects made once per process (so that they never count as leaks),
// selected into a host's DC with an origin of its own before the tool comes.
struct HostObjects {
    HPEN pen = ::CreatePen(PS_DOT, 1, RGB(1, 2, 3));
    HBRUSH brush = ::CreateSolidBrush(RGB(4, 5, 6));
    HFONT font = ::CreateFontA(17, 0, 0, 0, 0, 0, 0, 0, ANSI_CHARSET, 0, 0, 0, 0, "Liberation Sans");
    CBrush wrapped{RGB(7, 8, 9)};
    HICON icon = ::LoadIconA(nullptr, reinterpret_cast<const char*>(IDI_APPLICATION));
    static HostObjects& Get() { static HostObjects objects; return objects; }
    HostDcState Prepare(HDC hdc) const
    {
        for (HGDIOBJ o : {HGDIOBJ(pen), HGDIOBJ(brush), HGDIOBJ(font)})
            ::SelectObject(hdc, o);
        ::SetViewportOrgEx(hdc, 3, -4, nullptr);
        return HostDcState::Of(hdc);
    }
};

// A host's CDC without handles whose virtual members count the calls they
// get: an inert DC must not see any.
struct HandlelessDc : CDC {
    int calls = 0;
    CFont* SelectObject(CFont* f) override { ++calls; return CDC::SelectObject(f); }
    CPoint SetViewportOrg(int x, int y) override { ++calls; return CDC::SetViewportOrg(x, y); }
    COLORREF SetBkColor(COLORREF c) override { ++calls; return CDC::SetBkColor(c); }
    COLORREF SetTextColor(COLORREF c) override { ++calls; return CDC::SetTextColor(c); }
    int SaveDC() override { ++calls; return CDC::SaveDC(); }
    BOOL RestoreDC(int n) override { ++calls; return CDC::RestoreDC(n); }
    BOOL TextOut(int x, int y, const char* t, int n) override { ++calls; return CDC::TextOut(x, y, t, n); }
    int DrawText(const char* t, int n, RECT* r, UINT f) override { ++calls; return CDC::DrawText(t, n, r, f); }
};

// Draws the arguments of one call. Wine's own GDI stalls or crashes on
// circles a million units wide, pens 2^20 wide and fonts tens of thousands
// of units high, even without the tool, so a bitmap gets tame figures, a
// metafile (which only records) and a deleted DC extreme coordinates with
// tame scales and sizes, and an inert DC extremes of every kind.
enum Level { kTame, kWildCoordinates, kExtreme };
struct Args {
    std::mt19937 rng;
    Level level = kTame;
    POINT points[40] = {};
    BYTE types[40] = {};
    DWORD counts[40] = {};
    RECT rects[2] = {};

    template <class V, size_t N>
    V One(const V (&values)[N]) { return values[Pick(static_cast<int>(N))]; }
    int Pick(int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); }
    int Int(int lo, int hi) { return lo + static_cast<int>(rng() % static_cast<unsigned>(hi - lo + 1)); }
    int Coord() { return level != kTame && Pick(3) == 0 ? One({INT_MIN, INT_MAX, 0, -1, 1 << 30, -(1 << 30)}) : Int(-300, 300); }
    POINT Point() { return POINT{Coord(), Coord()}; }
    double Real() { return level == kExtreme && Pick(3) == 0 ? One<double>({NAN, INFINITY, -INFINITY, 1e300, -0.0, 5e-324}) : Int(-3600, 3600) / 10.0; }
    double Scale() { return level == kExtreme ? Real() : One({1.0, 0.5, 2.5, -1.0, 0.01}); }
    int Size() { return level == kExtreme ? Coord() : Int(-60, 200); }  // font heights, radii, lengths
    int Width() { return Int(-2, 60); }
    COLORREF Colour() { return Pick(4) == 0 ? CLR_INVALID : rng() & 0x00FFFFFF; }
    int Style() { return Pick(5) == 0 ? static_cast<int>(rng()) : Int(0, 8); }
    UINT BrushStyle() { return Pick(5) == 0 ? 0x80000000u : static_cast<UINT>(Int(0, 3)); }
    LONG Hatch() { return Pick(4) == 0 ? -1 : Int(0, 6); }
    const char* Text() { return One<const char*>({nullptr, "", "a\tb", "a&b\r\nc d", "c:\\dir\\some file.txt", "A longer line for the ellipsis to cut"}); }
    const wchar_t* WText() { return One<const wchar_t*>({nullptr, L"", L"x\u65E5y", L"\xD800", L"tab\there"}); }
    const char* Face() { return One<const char*>({nullptr, "", "Liberation Sans", "No Such Face Has Ever Been Seen Anywhere"}); }
    const wchar_t* WFace() { return Pick(2) ? nullptr : L"Liberation Serif"; }
    UINT Format()
    {
        // Two kinds of ellipsis at once (DT_PATH_ELLIPSIS and DT_END_ELLIPSIS)
        // end the process in Wine's DrawText even without the tool: one at most.
        UINT f = One<UINT>({0, DT_END_ELLIPSIS, DT_WORD_ELLIPSIS, DT_PATH_ELLIPSIS});
        for (UINT flag : {DT_CALCRECT, DT_EXPANDTABS, DT_SINGLELINE, DT_WORDBREAK, DT_NOPREFIX, DT_CENTER, DT_BOTTOM, DT_MODIFYSTRING})
            f |= Pick(3) == 0 ? flag : 0;
        return f;
    }
    POINT* Points()
    {
        for (int i = 0; i < 40; ++i) {
            points[i] = Point();
            types[i] = static_cast<BYTE>(Pick(5) == 0 ? Pick(256) : (Pick(2) ? PT_LINETO : PT_BEZIERTO));
            counts[i] = static_cast<DWORD>(Pick(6));
        }
        return Pick(10) == 0 ? nullptr : points;
    }
    int Count() { return Int(-1, 40); }
    RECT* Rect(int which = 0)
    {
        rects[which] = RECT{Coord(), Coord(), Coord(), Coord()};
        return Pick(10) == 0 ? nullptr : &rects[which];
    }
    SIZE Thickness() { return SIZE{Int(-2, 8), Int(-2, 8)}; }
    CBrush* Brush(CMoruDrawTool& t) { return One<CBrush*>({nullptr, t.GetBrush(), &HostObjects::Get().wrapped}); }
    HICON Icon() { return Pick(2) ? HostObjects::Get().icon : nullptr; }
};

// ---- The interface --------------------------------------------------------------

// What a method answers on an inert DC: Pure methods work on the tool's own
// fields and answer as usual; Device methods answer 0 (pointers to objects
// without handles, points (0, 0)); Metric methods answer 0, or NaN when
// they divide by a zero length or scale.
enum class Kind { Pure, Device, Metric };

double Num(long long v) { return static_cast<double>(v); }
double Num(POINT p) { return std::fabs(static_cast<double>(p.x)) + std::fabs(static_cast<double>(p.y)); }
double Num(const CGdiObject* o) { return o && o->m_hObject ? 1.0 : 0.0; }
double Num(const LOGFONTA* f) { return f ? f->lfHeight : -1.0; }

using T = CMoruDrawTool;
struct Method {
    const char* name;
    Kind kind;
    std::function<double(T&, Args&)> call;
};

// Every public method of the tool but the life cycle's (Initialize and
// Finalize frame each sequence), with arguments drawn from `a`.
const std::vector<Method>& Interface()
{
    static const std::vector<Method> methods = {
        {"GetDCPointer", Kind::Pure, [](T& t, Args&) { return Num(t.GetDCPointer() != nullptr); }},
        {"GetScaleFact", Kind::Pure, [](T& t, Args&) { return t.GetScaleFact(); }},
        {"SetScaleFact", Kind::Pure, [](T& t, Args& a) { return t.SetScaleFact(a.Scale()), 0.0; }},
        {"GetScaleFact2", Kind::Pure, [](T& t, Args&) { return t.GetScaleFact2(); }},
        {"SetScaleFact2", Kind::Pure, [](T& t, Args& a) { return t.SetScaleFact2(a.Scale()), 0.0; }},
        {"GetScaleFactX", Kind::Pure, [](T& t, Args&) { return t.GetScaleFactX(); }},
        {"SetScaleFactX", Kind::Pure, [](T& t, Args& a) { return t.SetScaleFactX(a.Scale()), 0.0; }},
        {"GetScaleFactY", Kind::Pure, [](T& t, Args&) { return t.GetScaleFactY(); }},
        {"SetScaleFactY", Kind::Pure, [](T& t, Args& a) { return t.SetScaleFactY(a.Scale()), 0.0; }},
        {"GetOffsetX", Kind::Pure, [](T& t, Args&) { return t.GetOffsetX(); }},
        {"SetOffsetX", Kind::Pure, [](T& t, Args& a) { return t.SetOffsetX(a.level == kExtreme ? a.Real() : a.Int(-50, 50)), 0.0; }},
        {"GetOffsetY", Kind::Pure, [](T& t, Args&) { return t.GetOffsetY(); }},
        {"SetOffsetY", Kind::Pure, [](T& t, Args& a) { return t.SetOffsetY(a.level == kExtreme ? a.Real() : a.Int(-50, 50)), 0.0; }},
        {"GetOrgX", Kind::Pure, [](T& t, Args&) { return Num(t.GetOrgX()); }},
        {"SetOrgX", Kind::Pure, [](T& t, Args& a) { return t.SetOrgX(a.Coord()), 0.0; }},
        {"GetOrgY", Kind::Pure, [](T& t, Args&) { return Num(t.GetOrgY()); }},
        {"SetOrgY", Kind::Pure, [](T& t, Args& a) { return t.SetOrgY(a.Coord()), 0.0; }},
        {"VtoLP_X", Kind::Pure, [](T& t, Args& a) { return Num(t.VtoLP_X(a.Real())); }},
        {"VtoLP_Y", Kind::Pure, [](T& t, Args& a) { return Num(t.VtoLP_Y(a.Real())); }},
        {"LPtoV_X", Kind::Pure, [](T& t, Args& a) { return t.LPtoV_X(a.Coord()); }},
        {"LPtoV_Y", Kind::Pure, [](T& t, Args& a) { return t.LPtoV_Y(a.Coord()); }},
        {"GetCurrentPosition", Kind::Device, [](T& t, Args&) { return Num(t.GetCurrentPosition()); }},
        {"rotate", Kind::Pure, [](T& t, Args& a) { double x = a.Real(), y = a.Real(); t.rotate(x, y, &x, a.Pick(2) ? &y : nullptr, a.Real()); return 0.0; }},

        {"SetPen", Kind::Device, [](T& t, Args& a) { return t.SetPen(a.Style(), a.Width(), a.Colour()), 0.0; }},
        {"GetPen", Kind::Device, [](T& t, Args&) { return Num(t.GetPen()); }},
        {"GetPenColor", Kind::Device, [](T& t, Args&) { return Num(t.GetPenColor()); }},
        {"SetBrush", Kind::Device, [](T& t, Args& a) { return t.SetBrush(a.BrushStyle(), a.Colour(), a.Hatch()), 0.0; }},
        {"GetBrush", Kind::Device, [](T& t, Args&) { return Num(t.GetBrush()); }},
        {"GetArcDirection", Kind::Device, [](T& t, Args&) { return Num(t.GetArcDirection()); }},
        {"GetBkColor", Kind::Device, [](T& t, Args&) { return Num(t.GetBkColor()); }},
        {"GetBkMode", Kind::Device, [](T& t, Args&) { return Num(t.GetBkMode()); }},
        {"GetPolyFillMode", Kind::Device, [](T& t, Args&) { return Num(t.GetPolyFillMode()); }},
        {"GetROP2", Kind::Device, [](T& t, Args&) { return Num(t.GetROP2()); }},
        {"GetTextColor", Kind::Device, [](T& t, Args&) { return Num(t.GetTextColor()); }},
        {"SetArcDirection", Kind::Device, [](T& t, Args& a) { return Num(t.SetArcDirection(a.Int(0, 3))); }},
        {"SetBkColor", Kind::Device, [](T& t, Args& a) { return Num(t.SetBkColor(a.Colour())); }},
        {"SetBkMode", Kind::Device, [](T& t, Args& a) { return Num(t.SetBkMode(a.Int(0, 3))); }},
        {"SetPolyFillMode", Kind::Device, [](T& t, Args& a) { return Num(t.SetPolyFillMode(a.Int(0, 3))); }},
        {"SetROP2", Kind::Device, [](T& t, Args& a) { return Num(t.SetROP2(a.Int(0, 17))); }},
        {"SetTextColor", Kind::Device, [](T& t, Args& a) { return Num(t.SetTextColor(a.Colour())); }},
        {"SaveDC", Kind::Device, [](T& t, Args&) { return Num(t.SaveDC()); }},
        // RestoreDC(INT_MIN) stalls Wine's GDI even without the tool.
        {"RestoreDC", Kind::Device, [](T& t, Args& a) { return Num(t.RestoreDC(a.Pick(2) ? -1 : a.Int(-3, 3))); }},

        {"SetFont1A", Kind::Device, [](T& t, Args& a) { return t.SetFont1A(a.Size(), a.Real(), a.Face(), a.Real()), 0.0; }},
        {"SetFont1W", Kind::Device, [](T& t, Args& a) { return t.SetFont1W(a.Size(), a.Real(), a.WFace(), a.Real()), 0.0; }},
        {"SetFont2A", Kind::Device, [](T& t, Args& a) { return t.SetFont2A(a.Size(), a.Real(), a.Face(), a.Real()), 0.0; }},
        {"SetFont2W", Kind::Device, [](T& t, Args& a) { return t.SetFont2W(a.Size(), a.Real(), a.WFace(), a.Real()), 0.0; }},
        {"SetPointFontA", Kind::Device, [](T& t, Args& a) { return t.SetPointFontA(a.Size() / 3, a.Real(), a.Face(), a.Real()), 0.0; }},
        {"SetPointFontW", Kind::Device, [](T& t, Args& a) { return t.SetPointFontW(a.Size() / 3, a.Real(), a.WFace(), a.Real()), 0.0; }},
        {"SetPointFont0A", Kind::Device, [](T& t, Args& a) { return Num(t.SetPointFont0A(a.Size() * 3, a.Real(), a.Face(), a.Real())); }},
        {"SetPointFont0W", Kind::Device, [](T& t, Args& a) { return t.SetPointFont0W(a.Size() * 3, a.Real(), a.WFace(), a.Real()), 0.0; }},
        {"SetFontWeight", Kind::Pure, [](T& t, Args& a) { return Num(t.SetFontWeight(a.Int(-100, 1000))); }},
        {"SetFontItalic", Kind::Pure, [](T& t, Args& a) { return Num(t.SetFontItalic(a.Int(-1, 300))); }},
        {"SetFontStyle", Kind::Pure, [](T& t, Args& a) { return t.SetFontStyle(a.Int(0, 900), a.Int(0, 1)), 0.0; }},
        {"GetFontWeight", Kind::Pure, [](T& t, Args&) { return Num(t.GetFontWeight()); }},
        {"IsFontItalic", Kind::Pure, [](T& t, Args&) { return Num(t.IsFontItalic()); }},
        {"GetFontStyle", Kind::Pure, [](T& t, Args& a) { int w = 0; t.GetFontStyle(&w, a.Pick(2) ? &w : nullptr); return 0.0; }},
        {"GetFont", Kind::Device, [](T& t, Args&) { return Num(t.GetFont()); }},
        {"GetLogFont", Kind::Device, [](T& t, Args&) { return Num(t.GetLogFont()); }},
        {"GetLogFontOld", Kind::Device, [](T& t, Args&) { return Num(t.GetLogFontOld()); }},
        {"GetTextWidthA", Kind::Metric, [](T& t, Args& a) { return t.GetTextWidthA(a.Text()); }},
        {"GetTextWidthW", Kind::Metric, [](T& t, Args& a) { return t.GetTextWidthW(a.WText()); }},
        {"GetTextHeightA", Kind::Metric, [](T& t, Args& a) { return t.GetTextHeightA(a.Text()); }},
        {"GetTextHeightW", Kind::Metric, [](T& t, Args& a) { return t.GetTextHeightW(a.WText()); }},
        {"GetCharWidthA", Kind::Metric, [](T& t, Args& a) { return t.GetCharWidthA(a.Text()); }},
        {"GetCharWidthW", Kind::Metric, [](T& t, Args& a) { return t.GetCharWidthW(a.WText()); }},
        {"GetCharHeightA", Kind::Metric, [](T& t, Args& a) { return t.GetCharHeightA(a.Text()); }},
        {"GetCharHeightW", Kind::Metric, [](T& t, Args& a) { return t.GetCharHeightW(a.WText()); }},
        {"SetTextAlign", Kind::Device, [](T& t, Args& a) { return Num(t.SetTextAlign(a.Int(0, 31))); }},
        {"SetTextAlignEx", Kind::Device, [](T& t, Args& a) { return Num(t.SetTextAlignEx(a.Int(0, 31))); }},

        {"MoveTo", Kind::Device, [](T& t, Args& a) { return Num(t.MoveTo(a.Coord(), a.Coord())); }},
        {"MoveTo(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.MoveTo(a.Point())); }},
        {"MoveTo2", Kind::Device, [](T& t, Args& a) { return Num(t.MoveTo2(a.Coord(), a.Coord())); }},
        {"MoveTo2(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.MoveTo2(a.Point())); }},
        {"LineTo", Kind::Device, [](T& t, Args& a) { return Num(t.LineTo(a.Coord(), a.Coord())); }},
        {"LineTo(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.LineTo(a.Point())); }},
        {"LineTo2", Kind::Device, [](T& t, Args& a) { return Num(t.LineTo2(a.Coord(), a.Coord())); }},
        {"LineTo2(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.LineTo2(a.Point())); }},
        {"Polyline", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.Polyline(p, a.Count())); }},
        {"PolylineTo", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.PolylineTo(p, a.Count())); }},
        {"Polygon", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.Polygon(p, a.Count())); }},
        {"PolyBezier", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.PolyBezier(p, a.Count())); }},
        {"PolyBezierTo", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.PolyBezierTo(p, a.Count())); }},
        {"PolyDraw", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.PolyDraw(p, a.Pick(8) ? a.types : nullptr, a.Count())); }},
        {"PolyPolyline", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.PolyPolyline(p, a.Pick(8) ? a.counts : nullptr, a.Count())); }},

        {"Rectangle", Kind::Device, [](T& t, Args& a) { return Num(t.Rectangle(a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"Rectangle(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.Rectangle(a.Rect())); }},
        {"Rectangle(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.Rectangle(a.Point(), a.Point())); }},
        {"RectanglePolygon", Kind::Device, [](T& t, Args& a) { POINT* p = a.Points(); return Num(t.RectanglePolygon(p, a.Pick(2) ? a.points + 4 : nullptr)); }},
        {"Ellipse", Kind::Device, [](T& t, Args& a) { return Num(t.Ellipse(a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"Ellipse(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.Ellipse(a.Rect())); }},
        {"FillRect", Kind::Device, [](T& t, Args& a) { return t.FillRect(a.Rect(), a.Brush(t)), 0.0; }},
        {"FillRect2", Kind::Device, [](T& t, Args& a) { return t.FillRect2(a.Rect()), 0.0; }},
        {"FrameRect", Kind::Device, [](T& t, Args& a) { return t.FrameRect(a.Rect(), a.Brush(t)), 0.0; }},
        {"FrameRect2", Kind::Device, [](T& t, Args& a) { return t.FrameRect2(a.Rect()), 0.0; }},
        {"InvertRect", Kind::Device, [](T& t, Args& a) { return t.InvertRect(a.Rect()), 0.0; }},
        {"FillSolidRect", Kind::Device, [](T& t, Args& a) { return t.FillSolidRect(a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Colour()), 0.0; }},
        {"FillSolidRect(RECT)", Kind::Device, [](T& t, Args& a) { return t.FillSolidRect(a.Rect(), a.Colour()), 0.0; }},
        {"ExcludeClipRect", Kind::Device, [](T& t, Args& a) { return Num(t.ExcludeClipRect(a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"ExcludeClipRect(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.ExcludeClipRect(a.Rect())); }},
        {"IntersectClipRect", Kind::Device, [](T& t, Args& a) { return Num(t.IntersectClipRect(a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"IntersectClipRect(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.IntersectClipRect(a.Rect())); }},
        {"ExtFloodFill", Kind::Device, [](T& t, Args& a) { return Num(t.ExtFloodFill(a.Coord(), a.Coord(), a.Colour(), a.Int(0, 2))); }},
        {"DrawIcon", Kind::Device, [](T& t, Args& a) { return Num(t.DrawIcon(a.Coord(), a.Coord(), a.Icon())); }},
        {"DrawIcon(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.DrawIcon(a.Point(), a.Icon())); }},
        {"DrawDragRect", Kind::Device, [](T& t, Args& a) { return t.DrawDragRect(a.Rect(0), a.Thickness(), a.Rect(1), a.Thickness(), a.Brush(t), a.Brush(t)), 0.0; }},

        {"Arc", Kind::Device, [](T& t, Args& a) { return Num(t.Arc(a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"Arc(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.Arc(a.Rect(), a.Point(), a.Point())); }},
        {"ArcTo", Kind::Device, [](T& t, Args& a) { return Num(t.ArcTo(a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"ArcTo(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.ArcTo(a.Rect(), a.Point(), a.Point())); }},
        {"Pie", Kind::Device, [](T& t, Args& a) { return Num(t.Pie(a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord(), a.Coord())); }},
        {"Pie(RECT)", Kind::Device, [](T& t, Args& a) { return Num(t.Pie(a.Rect(), a.Point(), a.Point())); }},
        {"AngleArc", Kind::Device, [](T& t, Args& a) { return Num(t.AngleArc(a.Coord(), a.Coord(), a.Size(), float(a.Real()), float(a.Real()))); }},
        {"Circle", Kind::Device, [](T& t, Args& a) { return Num(t.Circle(a.Coord(), a.Coord(), a.Size())); }},
        {"Circle(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.Circle(a.Point(), a.Size())); }},
        {"Circle2", Kind::Device, [](T& t, Args& a) { return Num(t.Circle2(a.Coord(), a.Coord(), a.Size())); }},
        {"Circle2(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.Circle2(a.Point(), a.Size())); }},
        {"Circle3", Kind::Device, [](T& t, Args& a) { return Num(t.Circle3(a.Coord(), a.Coord(), a.Size())); }},
        {"Circle3(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.Circle3(a.Point(), a.Size())); }},
        {"Arch", Kind::Device, [](T& t, Args& a) { return Num(t.Arch(a.Coord(), a.Coord(), a.Size(), a.Real(), a.Real())); }},
        {"Arch(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.Arch(a.Point(), a.Size(), a.Real(), a.Real())); }},

        {"Arrow", Kind::Device, [](T& t, Args& a) { return t.Arrow(a.Coord(), a.Coord(), a.Size(), a.Real(), a.Size() / 4, a.Real(), a.Int(-1, 23)), 0.0; }},
        {"DrawTick", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTick(a.Coord(), a.Coord(), a.Size(), a.Pick(2))); }},
        {"DrawTick(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTick(a.Point(), a.Size(), a.Pick(2))); }},
        {"DrawTick2", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTick2(a.Coord(), a.Coord(), a.Size(), a.Pick(2))); }},
        {"DrawTick2(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTick2(a.Point(), a.Size(), a.Pick(2))); }},

        {"TextOutA", Kind::Device, [](T& t, Args& a) { return Num(t.TextOutA(a.Coord(), a.Coord(), a.Text())); }},
        {"TextOutA(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.TextOutA(a.Point(), a.Text())); }},
        {"TextOutW", Kind::Device, [](T& t, Args& a) { return Num(t.TextOutW(a.Coord(), a.Coord(), a.WText())); }},
        {"TextOutW(POINT)", Kind::Device, [](T& t, Args& a) { return Num(t.TextOutW(a.Point(), a.WText())); }},
        {"DrawTextA", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTextA(a.Text(), a.Rect(), a.Format())); }},
        {"DrawTextW", Kind::Device, [](T& t, Args& a) { return Num(t.DrawTextW(a.WText(), a.Rect(), a.Format())); }},
    };
    return methods;
}

// Empty when `answer` is what `method` answers on an inert DC.
std::string CheckInertAnswer(const Method& method, double answer)
{
    const bool ok = method.kind == Kind::Pure || answer == 0.0 || (method.kind == Kind::Metric && std::isnan(answer));
    return ok ? "" : std::string(method.name) + " answered " + std::to_string(answer) + " on an inert DC, expected 0; ";
}

} // namespace

// ---- Direct cases -------------------------------------------------------------------

TEST(HostileCalls, RefusedObjectsAndCallsOutsideInitializeAndFinalizeLeaveTheHostsObjectsAndOrigin)
{
    // Regressions: a brush GDI refuses was selected as null, and SetBrush
    // kept that null as the brush to put back, so Finalize left the tool's
    // brush (brought back by RestoreDC) in the host's DC; SetPen or SetBrush
    // before Initialize made the tool record its own object as the one it
    // displaced; Finalize without Initialize, and a second Initialize/Finalize
    // pair, moved the origin to (0, 0).
    const struct { const char* what; void (*steps)(T&); } cases[] = {
        {"refused brush style", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(0x80000000u, 1, 0); t.RestoreDC(-1); t.Finalize(); }},
        {"BS_HATCHED, hatch -1", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(BS_HATCHED, 1, -1); t.RestoreDC(-1); t.Finalize(); }},
        {"solid, then refused", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(BS_SOLID, 0, 0); t.SetBrush(0x80000000u, 0, 0); t.RestoreDC(-1); t.Finalize(); }},
        {"SetPen, Initialize, Finalize", [](T& t) { t.SetPen(PS_DASH, 3, RGB(9, 9, 9)); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"SetBrush, Initialize, Finalize", [](T& t) { t.SetBrush(BS_SOLID, RGB(9, 9, 9), 0); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"fonts, Initialize, Finalize", [](T& t) { t.SetFont1A(30, 0, nullptr, 0); t.SetPointFont0A(90, 0, nullptr, 0); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"Finalize alone", [](T& t) { t.Finalize(); }},
        {"Initialize, Finalize twice", [](T& t) { t.Initialize(nullptr, 2); t.Finalize(); t.Initialize(nullptr, 1); t.Finalize(); }},
        {"Finalize, then objects", [](T& t) { t.Initialize(nullptr, 0); t.Finalize(); t.SetPen(0, 2, 0); t.SetBrush(BS_SOLID, 0, 0); t.SetFont2A(20, 0, nullptr, 0); }},
    };
    for (const auto& c : cases) {
        DibCanvas canvas(16, 16);
        const HostDcState host = HostObjects::Get().Prepare(canvas.Dc().m_hDC);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        c.steps(tool);
        EXPECT_EQ("", host.Differences(HostDcState::Of(canvas.Dc().m_hDC))) << c.what;
    }
}

TEST(HostileCalls, EveryMethodOnADcWithoutHandlesAnswersZeroAndCallsNothing)
{
    // Regressions: on such a DC SetTextAlign, SetTextAlignEx, GetBkColor,
    // SetBkColor and SetTextColor answered 0xFFFFFFFF, RestoreDC and DrawIcon
    // 1, and DrawTextA("a\tb", DT_EXPANDTABS) ended the process in user32.
    // Each method runs 8 times with drawn arguments, extremes included.
    HandlelessDc handleless;
    for (CDC* dc : {static_cast<CDC*>(nullptr), static_cast<CDC*>(&handleless)}) {
        CMoruDrawTool* tool = CreateDrawTool(nullptr, dc);
        ASSERT_NE(nullptr, tool);
        RECT area = {0, 0, 10, 10};
        tool->Initialize(&area, 2);
        Args args{std::mt19937(16), kExtreme};
        EXPECT_EQ(0, tool->DrawTextA("a\tb", &area, DT_EXPANDTABS)) << (dc ? "handleless" : "null");
        for (int round = 0; round < 8; ++round)
            for (const Method& m : Interface())
                EXPECT_EQ("", CheckInertAnswer(m, m.call(*tool, args))) << (dc ? "handleless" : "null") << " CDC";
        tool->Finalize();
        DestroyDrawTool(tool);
    }
    EXPECT_EQ(0, handleless.calls) << "calls the CDC's virtual members received";
}

TEST(HostileCalls, DrawTextRewritesOnlyTheToolsOwnCopyWithRoomForTheEllipsis)
{
    // Regression: with DT_MODIFYSTRING DrawText writes up to four characters
    // past the count it gets (Wine: "...ab" for "ab" with DT_PATH_ELLIPSIS),
    // and the tool's copy had room only for the text itself. The host's DC
    // measures the room of each buffer it gets before GDI writes into it.
    struct RoomCheckingDc : CDC {
        const char* hostText = nullptr;
        std::string log;
        RoomCheckingDc() { Attach(::CreateCompatibleDC(nullptr)); }
        int DrawText(const char* t, int n, RECT* r, UINT f) override
        {
            const HANDLE heap = reinterpret_cast<HANDLE>(_get_heap_handle());
            if (t == hostText)
                log += "the host's own text; ";
            else if (!::HeapValidate(heap, 0, t))
                log += "a buffer that is not a heap block; ";
            else if (::HeapSize(heap, 0, t) < static_cast<SIZE_T>(n) + 5)
                log += std::to_string(n) + " chars in " + std::to_string(::HeapSize(heap, 0, t)) + " bytes; ";
            return CDC::DrawText(t, n, r, f);
        }
    } dc;
    const std::string text = "c:\\a directory\\with a longer name\\file.txt";  // beyond any in-place buffer
    dc.hostText = text.c_str();
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    for (UINT ellipsis : {DT_PATH_ELLIPSIS, DT_END_ELLIPSIS, DT_WORD_ELLIPSIS})
        for (LONG width : {0, 20, 2000}) {
            RECT box = {0, 0, width, 40};
            tool.DrawTextA(text.c_str(), &box, ellipsis | DT_MODIFYSTRING | DT_SINGLELINE);
            tool.DrawTextW(L"c:\\a directory\\with a longer name\\file.txt", &box, ellipsis | DT_MODIFYSTRING);
        }
    tool.Finalize();
    EXPECT_EQ("", dc.log) << "the buffers DrawText got";
    EXPECT_EQ("c:\\a directory\\with a longer name\\file.txt", text) << "the host's text";
}

// ---- Seeded random sequences ----------------------------------------------------

namespace {

enum DcKind { kBitmap, kMetafile, kNull, kHandleless, kDeleted };
const char* const kDcKinds[] = {"a bitmap", "a metafile", "a null CDC", "a CDC without handles", "a deleted DC"};

// One sequence: a fresh DC of `kind` with the host's objects, a tool, calls
// before Initialize, one or two Initialize, calls, Finalize, calls after it,
// and the tool's release. Returns what went wrong, empty when nothing did.
std::string RunSequence(DcKind kind, Args& a, std::string& trace)
{
    DibCanvas canvas(48, 48);
    EmfRecorder recorder;
    HandlelessDc handleless;
    CBorrowedDC deleted(::CreateCompatibleDC(nullptr));  // a handle the host has deleted
    ::DeleteDC(deleted.m_hDC);
    CDC* const dcs[] = {&canvas.Dc(), &recorder.Dc(), nullptr, &handleless, &deleted};
    CDC* const dc = dcs[kind];
    const bool live = kind == kBitmap || kind == kMetafile;
    a.level = kind == kBitmap ? kTame : live || kind == kDeleted ? kWildCoordinates : kExtreme;
    const HostDcState host = live ? HostObjects::Get().Prepare(dc->m_hDC) : HostDcState{};

    std::string problems;
    CMoruDrawTool* tool = CreateDrawTool(nullptr, dc);
    // Every other call changes the objects or the saved states, so that
    // refused objects meet SaveDC and RestoreDC often.
    const std::vector<Method>& methods = Interface();
    std::vector<const Method*> objectCalls;
    for (const Method& m : methods)
        for (const char* name : {"SaveDC", "RestoreDC", "SetPen", "SetBrush", "SetFont1A", "SetPointFont0A"})
            if (std::string(m.name) == name)
                objectCalls.push_back(&m);
    auto calls = [&](int n, bool finalized) {
        for (int i = 0; i < n; ++i) {
            const Method& m = a.Pick(2) ? *objectCalls[static_cast<size_t>(a.Pick(static_cast<int>(objectCalls.size())))]
                                        : methods[static_cast<size_t>(a.Pick(static_cast<int>(methods.size())))];
            // A state saved while the tool's objects were selected would
            // bring them back after Finalize: the host's error, not tried.
            if (finalized && std::string(m.name) == "RestoreDC")
                continue;
            trace += std::string(m.name) + " ";
            const double answer = m.call(*tool, a);
            if (kind == kNull || kind == kHandleless)
                problems += CheckInertAnswer(m, answer);
        }
    };
    auto initialize = [&] {
        RECT area = {0, 0, 48, a.Coord()};
        const int mode = a.Int(0, 3);
        trace += "Initialize(" + std::to_string(mode) + ") ";
        tool->Initialize(a.Pick(4) ? &area : nullptr, mode);
    };
    calls(a.Int(0, 3), false);
    initialize();
    calls(a.Int(0, 30), false);
    if (a.Pick(5) == 0)
        initialize(), calls(a.Int(0, 10), false);
    trace += "Finalize ";
    tool->Finalize();
    calls(a.Int(0, 4), true);
    if (a.Pick(2)) {
        trace += "Finalize DestroyDrawTool";
        tool->Finalize();
        DestroyDrawTool(tool);
    } else {
        trace += "delete";
        delete tool;  // safe after Finalize
    }
    if (live)
        problems += host.Differences(HostDcState::Of(dc->m_hDC));
    if (handleless.calls)
        problems += std::to_string(handleless.calls) + " calls reached the CDC without handles; ";
    return problems;
}

// The child's work for one seed: sequences until `budgetMs` is spent or
// `sequences` are done. Ends the process: 0 when all went well, else 1 after
// telling which sequence of the seed failed and how.
[[noreturn]] void RunSeed(unsigned seed, int sequences, DWORD budgetMs)
{
    const GdiHandleTable table;
    HostObjects::Get();
    const int free = table.FreeSlots();
    Args args{std::mt19937(seed)};
    const DWORD start = ::GetTickCount();
    for (int s = 0; s < sequences && ::GetTickCount() - start < budgetMs; ++s) {
        const DcKind kind = static_cast<DcKind>(args.Pick(5));
        std::string trace;
        std::string problems = RunSequence(kind, args, trace);
        if (const int leaked = free - table.FreeSlots())
            problems += " GDI objects leaked: " + std::to_string(leaked);
        if (!problems.empty()) {
            std::fprintf(stderr, "seed %u, sequence %d on %s: %s\n  calls: %s\n", seed, s, kDcKinds[kind],
                         problems.c_str(), trace.c_str());
            std::fflush(stderr);
            std::_Exit(1);
        }
    }
    std::_Exit(0);
}

} // namespace

TEST(HostileCalls, SeededRandomSequencesGiveTheHostsDcBackAndLeakNothing)
{
    // Each seed runs in a child process, so that a crash or a stall names its
    // seed; the child stops after 150 sequences or 0.8 s.
    for (unsigned seed : {1u, 2u, 2024u})
        EXPECT_EXIT(RunSeed(seed, 150, 800), ::testing::ExitedWithCode(0), "") << "seed " << seed;
}
