#include "support/system/SystemText.h"

CString SystemText::ErrorText(DWORD code)
{
    char* buffer = nullptr;
    const DWORD length = FormatMessageA(
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM, nullptr, code,
        MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), reinterpret_cast<char*>(&buffer), 0, nullptr);
    CString text;
    if (buffer) {
        text = CString(buffer, static_cast<int>(length));
        LocalFree(buffer);
    }
    return text;
}
