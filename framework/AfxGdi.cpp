#include "AfxGdi.h"
#include "AfxDC.h"

#include <cstdlib>
#include <map>
#include <memory>
#include <utility>

BOOL CGdiObject::Attach(HGDIOBJ handle)
{
    if (m_hObject && m_hObject != handle)
        DeleteObject();
    m_hObject = handle;
    return handle != nullptr;
}

HGDIOBJ CGdiObject::Detach()
{
    HGDIOBJ handle = m_hObject;
    m_hObject = nullptr;
    return handle;
}

BOOL CGdiObject::DeleteObject()
{
    if (!m_hObject)
        return FALSE;
    return ::DeleteObject(Detach());
}

namespace {

// Non-owning wrappers, one per (class, handle value). They never delete
// their handle, so they can safely outlive it; a recycled handle value simply
// maps to the same wrapper again. The table is bounded by the number of
// distinct handle values a process sees.
template <class T>
T* PermanentWrapper(HGDIOBJ handle)
{
    if (!handle)
        return nullptr;
    struct NonOwning : T {
        ~NonOwning() override { this->m_hObject = nullptr; }
    };
    static std::map<HGDIOBJ, std::unique_ptr<NonOwning>> wrappers;
    std::unique_ptr<NonOwning>& slot = wrappers[handle];
    if (!slot) {
        slot = std::make_unique<NonOwning>();
        slot->m_hObject = handle;
    }
    return slot.get();
}

} // namespace

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle)
{
    switch (::GetObjectType(handle)) {
    case OBJ_PEN:
    case OBJ_EXTPEN: return PermanentWrapper<CPen>(handle);
    case OBJ_BRUSH: return PermanentWrapper<CBrush>(handle);
    case OBJ_FONT: return PermanentWrapper<CFont>(handle);
    default: return PermanentWrapper<CGdiObject>(handle);
    }
}

CPen* CPen::FromHandle(HPEN handle) { return PermanentWrapper<CPen>(handle); }
CBrush* CBrush::FromHandle(HBRUSH handle) { return PermanentWrapper<CBrush>(handle); }
CFont* CFont::FromHandle(HFONT handle) { return PermanentWrapper<CFont>(handle); }

BOOL CFont::CreatePointFont(int pointSize, const char* faceName, CDC* dc)
{
    LOGFONTA logFont = {};
    logFont.lfCharSet = DEFAULT_CHARSET;
    logFont.lfHeight = pointSize;
    if (faceName)
        lstrcpynA(logFont.lfFaceName, faceName, LF_FACESIZE);
    return CreatePointFontIndirect(&logFont, dc);
}

BOOL CFont::CreatePointFontIndirect(const LOGFONTA* logFont, CDC* dc)
{
    if (!logFont)
        return FALSE;
    HDC hdc = dc && dc->m_hAttribDC ? dc->m_hAttribDC : ::GetDC(nullptr);
    // Tenths of a point to device pixels (720 per inch), then to logical
    // units by the DC's mapping; the height is asked for as a character height.
    LOGFONTA scaled = *logFont;
    POINT height = {0, ::MulDiv(::GetDeviceCaps(hdc, LOGPIXELSY), logFont->lfHeight, 720)};
    POINT origin = {0, 0};
    ::DPtoLP(hdc, &height, 1);
    ::DPtoLP(hdc, &origin, 1);
    scaled.lfHeight = -std::abs(height.y - origin.y);
    if (!(dc && dc->m_hAttribDC))
        ::ReleaseDC(nullptr, hdc);
    return CreateFontIndirect(&scaled);
}
