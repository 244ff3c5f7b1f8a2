#include "support/system/PathText.h"

#include "support/InvalidParameter.h"

#include <windows.h>
#include <shlwapi.h>

#include <mbctype.h>

#include <cstring>
#include <vector>

CString CompactPath(const char* text, unsigned max)
{
    const CString path(text ? text : "");
    const unsigned length = static_cast<unsigned>(path.GetLength());
    // One that fits is copied unchanged; this also keeps the buffer below
    // no larger than the path.
    if (path.IsEmpty() || length < max)
        return path;
    std::vector<char> buffer(static_cast<size_t>(max) + 1, '\0');
    PathCompactPathExA(buffer.data(), path, max, 0);
    return CString(buffer.data());
}

CString PadToWidth(const char* text, int width)
{
    if (width < 0)
        width = 0;
    const size_t length = text ? std::strlen(text) : 0;
    if (length > static_cast<size_t>(width)) {
        RaiseInvalidParameter();
        return CString();
    }
    CString padded(' ', width);
    for (size_t i = 0; i < length; ++i)
        padded.SetAt(static_cast<int>(i), text[i]);
    return padded;
}

CString FitPathToWidth(const char* path, int width)
{
    CString fitted(path ? path : "");
    if (fitted.GetLength() > width) {
        std::vector<char> buffer(width > 0 ? static_cast<size_t>(width) : 1, '\0');
        const DWORD length = width > 0 ? GetShortPathNameA(fitted, buffer.data(), static_cast<DWORD>(width)) : 0;
        fitted = length > 0 && length < static_cast<DWORD>(width) ? CString(buffer.data()) : CString();
    }
    return PadToWidth(fitted, width);
}

int IsValidPathChars(const char* path, int rejectSeparators)
{
    if (!path)
        return 1;
    for (const unsigned char* c = reinterpret_cast<const unsigned char*>(path); *c; ++c) {
        if (_ismbblead(*c)) {
            // The trail byte may look like a separator or wild card; it is
            // part of the character.
            if (!c[1])
                break;
            ++c;
            continue;
        }
        const UINT type = PathGetCharTypeA(*c);
        if (type == GCT_INVALID || (type & GCT_WILD))
            return 0;
        if (rejectSeparators && (type & GCT_SEPARATOR))
            return 0;
    }
    return 1;
}
