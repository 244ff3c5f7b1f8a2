// The C interface: one wrapper per row of the method table, the handles'
// creation and destruction, and the module's version.
#include "drawtool/DrawToolC.h"

#include "drawtool/DrawTool.h"
#include "drawtool/ToolRegistry.h"

#include <cstring>
#include <memory>
#include <type_traits>

namespace {

// Results of the class in C terms.
POINT ToPlain(const CPoint& point) { return POINT{point.x, point.y}; }
HPEN ToPlain(CPen* pen) { return static_cast<HPEN>(CGdiObject::SafeHandle(pen)); }
HBRUSH ToPlain(CBrush* brush) { return static_cast<HBRUSH>(CGdiObject::SafeHandle(brush)); }
HFONT ToPlain(CFont* font) { return static_cast<HFONT>(CGdiObject::SafeHandle(font)); }
HDC ToPlain(CDC* dc) { return dc ? dc->GetSafeHdc() : nullptr; }
template <class T>
T ToPlain(T value) { return value; }

/// The host's brush as the framework's (null stays null).
CBrush* BrushOf(HBRUSH brush) { return CBrush::FromHandle(brush); }

/// What a call on a bad handle returns: what the matching failed GDI call
/// would (CLR_INVALID for colours, GDI_ERROR for text alignments), else zero.
template <class Ret>
Ret Neutral()
{
    if constexpr (std::is_void_v<Ret>)
        return;
    else if constexpr (std::is_same_v<Ret, COLORREF>)
        return CLR_INVALID;
    else if constexpr (std::is_same_v<Ret, UINT>)
        return static_cast<UINT>(GDI_ERROR);
    else
        return Ret{};
}

/// Runs `call` on the handle's tool; nothing crosses into the C host, not
/// even an exception (an allocation failing in a framework wrapper).
template <class Ret, class Call>
Ret OnTool(DrawToolHandle handle, Call&& call)
{
    CMoruDrawTool* tool = Tools().Find(handle);
    if (!tool)
        return Neutral<Ret>();
    try {
        if constexpr (std::is_void_v<Ret>)
            return call(*tool);
        else
            return ToPlain(call(*tool));
    } catch (...) {
        return Neutral<Ret>();
    }
}

} // namespace

DrawToolHandle DrawTool_Create(HWND wnd, HDC dc)
{
    try {
        auto binding = std::make_unique<ToolBinding>();
        binding->wnd.Attach(wnd);
        if (dc)
            binding->dc = std::make_unique<CBorrowedDC>(dc);
        binding->tool = CreateDrawTool(&binding->wnd, binding->dc.get());
        if (!binding->tool)
            return nullptr;
        return Tools().Add(std::move(binding));
    } catch (...) {
        return nullptr;
    }
}

void DrawTool_Destroy(DrawToolHandle tool)
{
    // Released outside the registry's lock: finalizing makes GDI calls.
    Tools().Remove(tool).reset();
}

int DrawTool_GetVersion(int* major, int* minor, int* build, int* revision)
{
    HMODULE module = nullptr;
    if (!::GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              reinterpret_cast<const char*>(&DrawTool_GetVersion), &module))
        return 0;
    const HRSRC resource = ::FindResourceA(module, MAKEINTRESOURCEA(VS_VERSION_INFO), MAKEINTRESOURCEA(16));  // RT_VERSION
    const HGLOBAL loaded = resource ? ::LoadResource(module, resource) : nullptr;
    const BYTE* bytes = loaded ? static_cast<const BYTE*>(::LockResource(loaded)) : nullptr;
    const DWORD size = resource ? ::SizeofResource(module, resource) : 0;
    // VS_VERSIONINFO: three WORDs (length, value length, type), the key
    // L"VS_VERSION_INFO" with its terminator, padding to a 32-bit boundary,
    // then the VS_FIXEDFILEINFO value.
    const size_t at = (3 * sizeof(WORD) + sizeof(L"VS_VERSION_INFO") + 3) & ~size_t{3};
    VS_FIXEDFILEINFO info = {};
    if (!bytes || size < at + sizeof info)
        return 0;
    std::memcpy(&info, bytes + at, sizeof info);
    if (info.dwSignature != VS_FFI_SIGNATURE)
        return 0;
    const int parts[4] = {HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS), HIWORD(info.dwFileVersionLS),
                          LOWORD(info.dwFileVersionLS)};
    int* outputs[4] = {major, minor, build, revision};
    for (int i = 0; i < 4; ++i)
        if (outputs[i])
            *outputs[i] = parts[i];
    return 1;
}

#define DRAWTOOL_DEFINE_METHOD(Ret, Name, Method, Params, Args) \
    Ret DrawTool_##Name Params \
    { \
        return OnTool<Ret>(tool, [&](CMoruDrawTool& t) -> decltype(auto) { return t.Method Args; }); \
    }
DRAWTOOL_METHODS(DRAWTOOL_DEFINE_METHOD)
#undef DRAWTOOL_DEFINE_METHOD
