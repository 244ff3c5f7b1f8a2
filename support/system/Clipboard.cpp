#include "support/system/Clipboard.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

/// Hands a copy of bytes to the open clipboard. On success the memory belongs
/// to the system; otherwise it is freed here.
void PutOnClipboard(UINT format, const void* bytes, size_t size)
{
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, size);
    if (!memory)
        return;
    void* const target = GlobalLock(memory);
    if (!target) {
        GlobalFree(memory);
        return;
    }
    std::memcpy(target, bytes, size);
    GlobalUnlock(memory);
    if (!SetClipboardData(format, memory))
        GlobalFree(memory);
}

} // namespace

CString GetClipboardText(HWND owner)
{
    CString text;
    if (!OpenClipboard(owner))
        return text;
    if (const HANDLE data = GetClipboardData(CF_TEXT)) {
        if (const auto* const locked = static_cast<const char*>(GlobalLock(data))) {
            text = CString(locked, static_cast<int>(strnlen(locked, GlobalSize(data))));
            GlobalUnlock(data);
        }
    }
    CloseClipboard();
    return text;
}

int SetClipboardText(HWND owner, const char* text, UINT alsoUnicode)
{
    const std::string ansi = text ? text : "";
    if (!OpenClipboard(owner))
        return 0;
    EmptyClipboard();
    PutOnClipboard(CF_TEXT, ansi.c_str(), ansi.size() + 1);

    std::string oem = ansi;
    CharToOemA(oem.data(), oem.data());
    PutOnClipboard(CF_OEMTEXT, oem.c_str(), oem.size() + 1);

    if (alsoUnicode) {
        const int count = MultiByteToWideChar(CP_ACP, MB_PRECOMPOSED, ansi.c_str(), -1, nullptr, 0);
        if (count > 0) {
            std::vector<wchar_t> wide(static_cast<size_t>(count));
            if (MultiByteToWideChar(CP_ACP, MB_PRECOMPOSED, ansi.c_str(), -1, wide.data(), count) == count)
                PutOnClipboard(CF_UNICODETEXT, wide.data(), wide.size() * sizeof(wchar_t));
        }
    }
    CloseClipboard();
    return 1;
}
