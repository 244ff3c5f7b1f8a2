// Every public method of the tool called through one table: the class's
// methods with the C interface's signatures (one per row of
// DrawToolMethods.h, taking the tool itself as the handle), arguments of
// every type those signatures use, and a judge of the answers. The same rows
// drive the class, the C functions and the hostile-host tests.
#pragma once

#include "drawtool/DrawTool.h"
#include "drawtool/DrawToolC.h"

#include <array>
#include <climits>
#include <cmath>
#include <regex>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace ClassCalls {

inline CMoruDrawTool& Tool(DrawToolHandle handle) { return *reinterpret_cast<CMoruDrawTool*>(handle); }
inline DrawToolHandle Handle(CMoruDrawTool& tool) { return reinterpret_cast<DrawToolHandle>(&tool); }
inline CBrush* BrushOf(HBRUSH brush) { return CBrush::FromHandle(brush); }
inline POINT Plain(CPoint point) { return POINT{point.x, point.y}; }
inline HDC Plain(CDC* dc) { return dc ? dc->m_hDC : nullptr; }
inline HPEN Plain(CPen* pen) { return static_cast<HPEN>(CGdiObject::SafeHandle(pen)); }
inline HBRUSH Plain(CBrush* brush) { return static_cast<HBRUSH>(CGdiObject::SafeHandle(brush)); }
inline HFONT Plain(CFont* font) { return static_cast<HFONT>(CGdiObject::SafeHandle(font)); }
template <class T>
T Plain(T value) { return value; }
template <class Ret, class Method>
Ret Plainly(Method method)
{
    if constexpr (std::is_void_v<Ret>)
        method();
    else
        return Plain(method());
}
#define DRAWTOOL_CLASS_CALL(Ret, Name, Method, Params, Args) \
    inline Ret Name Params { return Plainly<Ret>([&] { return Tool(tool).Method Args; }); }
DRAWTOOL_METHODS(DRAWTOOL_CLASS_CALL)
#undef DRAWTOOL_CLASS_CALL

} // namespace ClassCalls

/// Sample arguments of every type the methods take, all of which a bitmap
/// accepts: a call's ints run 1, 2, 20, 24, 1, ..., so that boxes have an
/// inside, and a count after a point list is 7 (PolyPolyline: 7 pairs).
class SampleArgs {
public:
    SampleArgs()
    {
        for (int i = 0; i < 14; ++i)
            m_points[i] = POINT{i % 2 ? 3 * i : 40 - i, (i * i) % 30};
    }
    template <class A>
    A Next() { return *this; }
    operator int() { return std::exchange(m_countNext, false) ? 7 : std::array{1, 2, 20, 24}[m_ints++ % 4]; }
    operator double() { return 30.0; }
    operator float() { return 30.0f; }
    operator UINT() { return 1; }
    operator COLORREF() { return RGB(0, 0, 255); }
    operator LONG() { return 0; }
    operator POINT() { return POINT{5, 9}; }
    operator SIZE() { return SIZE{2, 2}; }
    operator RECT*() { return &m_rect; }
    operator POINT*()
    {
        m_countNext = true;
        return m_points;
    }
    operator BYTE*() { return m_types; }
    operator DWORD*() { return m_counts; }
    operator const char*() { return "a\tb"; }
    operator const wchar_t*() { return L"x\u00E9y"; }
    operator double*() { return &m_real; }
    operator int*() { return &m_integer; }
    operator HICON()
    {
        static const HICON icon = ::LoadIconA(nullptr, reinterpret_cast<const char*>(IDI_APPLICATION));
        return icon;  // made once per process, so that it never counts as a leak
    }
    operator HBRUSH() { return HBRUSH(::GetStockObject(GRAY_BRUSH)); }

private:
    bool m_countNext = false;
    int m_ints = 0, m_integer = 0;
    double m_real = 0.0;
    RECT m_rect = {2, 3, 20, 25};
    POINT m_points[14] = {};
    BYTE m_types[7] = {PT_MOVETO, PT_LINETO, PT_LINETO, PT_LINETO, PT_LINETO, PT_LINETO, PT_LINETO};
    DWORD m_counts[7] = {2, 2, 2, 2, 2, 2, 2};
};

/// An answer: zero (0, null, the point (0, 0), or NaN), or what a failed GDI
/// call answers (0; CLR_INVALID for colours, GDI_ERROR for text alignments);
/// a void call's counts as both.
struct Answer {
    bool zero = true, failed = true, none = true;
};
inline Answer Judge(int v) { return {v == 0, v == 0, false}; }
inline Answer Judge(UINT v) { return {v == 0, v == GDI_ERROR, false}; }
inline Answer Judge(COLORREF v) { return {v == 0, v == CLR_INVALID, false}; }
inline Answer Judge(double v) { return {v == 0.0 || std::isnan(v), v == 0.0, false}; }
inline Answer Judge(POINT p) { return {p.x == 0 && p.y == 0, p.x == 0 && p.y == 0, false}; }
inline Answer Judge(const void* p) { return {!p, !p, false}; }

/// Calls `f` on `tool` with sample arguments, drawn in order (a count after
/// its points).
template <class R, class... A>
Answer Call(R (*f)(DrawToolHandle, A...), DrawToolHandle tool)
{
    SampleArgs args;
    std::tuple<A...> values{args.Next<A>()...};
    if constexpr (std::is_void_v<R>) {
        std::apply([&](A... a) { f(tool, a...); }, values);
        return Answer{};
    } else {
        return Judge(std::apply([&](A... a) { return f(tool, a...); }, values));
    }
}

/// The class's methods by their C names, in the table's order.
struct ClassRow {
    const char* name;
    Answer (*call)(DrawToolHandle);
};
#define DRAWTOOL_CLASS_ROW(Ret, Name, Method, Params, Args) {#Name, [](DrawToolHandle t) { return Call(&ClassCalls::Name, t); }},
inline const ClassRow kClassRows[] = {DRAWTOOL_METHODS(DRAWTOOL_CLASS_ROW)};
#undef DRAWTOOL_CLASS_ROW

/// The life cycle and the methods that only read or set the tool's own
/// fields: they answer the same whatever the DC.
inline bool IsPure(const char* name)
{
    static const std::regex pure("Initialize|Finalize|GetDCPointer|[GS]et(ScaleFact|Offset|Org).*|VtoLP_.|LPtoV_.|"
                                 "rotate|[GS]etFont(Weight|Italic|Style)|IsFontItalic|GetLogFont.*|SetPointFont0A");
    return std::regex_match(name, pure);
}

/// The pen, brush and font selected into a DC, and its viewport origin.
inline std::vector<INT_PTR> HostStateOf(HDC hdc)
{
    POINT origin = {};
    ::GetViewportOrgEx(hdc, &origin);
    return {INT_PTR(::GetCurrentObject(hdc, OBJ_PEN)), INT_PTR(::GetCurrentObject(hdc, OBJ_BRUSH)),
            INT_PTR(::GetCurrentObject(hdc, OBJ_FONT)), origin.x, origin.y};
}
