// Every public method of the tool called through one table: the class's
// methods with the C interface's signatures (one per row of
// DrawToolMethods.h, taking the tool itself as the handle), arguments of
// every type those signatures use, and a judge of the answers. The same rows
// drive the class, the C functions and the hostile-host tests.
#pragma once

#include "drawtool/DrawTool.h"
#include "drawtool/DrawToolC.h"

#include <climits>
#include <cmath>
#include <random>
#include <regex>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

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

/// Arguments of every type the methods take. Without a seed: samples that a
/// bitmap accepts (a call's ints run 1, 2, 20, 24, 1, ..., so that boxes have
/// an inside; a count after a point list is 7). With one: random values,
/// extreme ones only for DCs that draw nothing (Wine's own GDI stalls on
/// huge figures, pens and fonts); counts never exceed the lists.
class ArgSource {
public:
    ArgSource() = default;
    ArgSource(unsigned seed, bool extreme) : m_rng(seed), m_random(true), m_extreme(extreme) {}
    void NextCall()
    {
        m_ints = 0;
        m_countNext = false;
    }
    int Pick(int n) { return static_cast<int>(m_rng() % static_cast<unsigned>(n)); }
    int Int(int lo, int hi) { return lo + Pick(hi - lo + 1); }
    template <class V, size_t N>
    V One(const V (&values)[N]) { return values[Pick(static_cast<int>(N))]; }
    bool Null(int oneIn) { return m_random && Pick(oneIn) == 0; }
    template <class A>
    A Next() { return *this; }

    operator int()
    {
        const int cycle[] = {1, 2, 20, 24};
        if (std::exchange(m_countNext, false))
            return m_random ? Int(-1, 40) : 7;
        if (!m_random)
            return cycle[m_ints++ % 4];
        return m_extreme && Pick(3) == 0 ? One({INT_MIN, INT_MAX, 0, -1, 1 << 30}) : Int(-60, 200);
    }
    operator double()
    {
        if (!m_random)
            return 30.0;
        return m_extreme && Pick(3) == 0 ? One<double>({NAN, INFINITY, -INFINITY, 1e300, 5e-324})
                                         : One({1.0, 0.5, 2.5, -1.0, 0.01, -0.0});
    }
    operator float() { return static_cast<float>(operator double()); }
    // No format with two kinds of ellipsis: they end the process in Wine's
    // DrawText even without the tool.
    operator UINT()
    {
        return !m_random ? 1 : One<UINT>({0, 1, 0x80000000u, BS_HATCHED, TA_BASELINE, TA_BOTTOM | TA_RIGHT,
                                          DT_END_ELLIPSIS | DT_MODIFYSTRING, DT_WORD_ELLIPSIS | DT_WORDBREAK,
                                          DT_PATH_ELLIPSIS | DT_MODIFYSTRING | DT_SINGLELINE,
                                          DT_EXPANDTABS | DT_CALCRECT | DT_CENTER | DT_BOTTOM});
    }
    operator COLORREF() { return !m_random ? RGB(0, 0, 255) : Pick(4) ? m_rng() & 0xFFFFFF : CLR_INVALID; }
    operator LONG() { return !m_random ? 0 : Pick(4) ? Int(0, 6) : -1; }
    operator POINT() { return m_random ? POINT{operator int(), operator int()} : POINT{5, 9}; }
    operator SIZE() { return m_random ? SIZE{Int(-2, 8), Int(-2, 8)} : SIZE{2, 2}; }
    operator RECT*()
    {
        m_rect = m_random ? RECT{operator int(), operator int(), operator int(), operator int()} : RECT{2, 3, 20, 25};
        return Null(10) ? nullptr : &m_rect;
    }
    operator POINT*()
    {
        for (int i = 0; i < 256; ++i) {
            m_points[i] = m_random ? operator POINT() : POINT{i % 2 ? 3 * i : 40 - i, (i * i) % 30};
            m_types[i] = !m_random ? (i ? PT_LINETO : PT_MOVETO) : Pick(5) ? PT_LINETO : static_cast<BYTE>(Pick(256));
            m_counts[i] = m_random ? Pick(6) : 2;  // 40 polylines at most: 200 points
        }
        m_countNext = true;
        return Null(10) ? nullptr : m_points;
    }
    operator BYTE*() { return Null(8) ? nullptr : m_types; }
    operator DWORD*() { return Null(8) ? nullptr : m_counts; }
    operator const char*()
    {
        return !m_random ? "a\tb" : One<const char*>({nullptr, "", "a\tb", "a&b\r\nc d", "c:\\dir\\a file.txt",
                                                      "A longer line for the ellipsis to cut", "Liberation Sans"});
    }
    operator const wchar_t*()
    {
        return !m_random ? L"x\u00E9y"
                         : One<const wchar_t*>({nullptr, L"", L"x\u65E5y", L"\xD800", L"Liberation Serif"});
    }
    operator double*() { return Null(2) ? nullptr : &m_real; }
    operator int*() { return Null(2) ? nullptr : &m_integer; }
    operator HICON() { return Null(2) ? nullptr : SharedObjects().icon; }
    operator HBRUSH()
    {
        const Shared& shared = SharedObjects();
        return m_random ? One<HBRUSH>({nullptr, shared.gray, shared.brush}) : shared.gray;
    }
    /// The icon and brushes, made once per process (so that they never count as leaks).
    struct Shared {
        HICON icon;
        HBRUSH gray, brush;
    };
    static const Shared& SharedObjects()
    {
        static const Shared shared = {::LoadIconA(nullptr, reinterpret_cast<const char*>(IDI_APPLICATION)),
                                      HBRUSH(::GetStockObject(GRAY_BRUSH)), ::CreateSolidBrush(RGB(7, 8, 9))};
        return shared;
    }

private:
    std::mt19937 m_rng;
    bool m_random = false, m_extreme = false, m_countNext = false;
    int m_ints = 0, m_integer = 0;
    double m_real = 0.0;
    RECT m_rect = {};
    POINT m_points[256] = {};
    BYTE m_types[256] = {};
    DWORD m_counts[256] = {};
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

/// Calls `f` on `tool` with arguments from `args`, drawn in order (a count
/// after its points).
template <class R, class... A>
Answer Call(R (*f)(DrawToolHandle, A...), DrawToolHandle tool, ArgSource& args)
{
    args.NextCall();
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
    Answer (*call)(DrawToolHandle, ArgSource&);
};
#define DRAWTOOL_CLASS_ROW(Ret, Name, Method, Params, Args) \
    {#Name, [](DrawToolHandle t, ArgSource& a) { return Call(&ClassCalls::Name, t, a); }},
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
