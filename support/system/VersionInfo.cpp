#include "support/system/VersionInfo.h"

#include "AfxWinApp.h"

#include <cstring>
#include <vector>

namespace {

constexpr DWORD FixedRecordSignature = 0xFEEF04BD;
// The scan for the fixed record gives up after (resource bytes - 51) words.
constexpr DWORD ScanSizeAllowance = 51;
// Double words of the fixed record: signature, structure version, file
// version (two), product version (two).
constexpr size_t FileVersionWord = 2;
constexpr size_t ProductVersionWord = 4;
constexpr size_t FixedRecordBytes = 13 * sizeof(DWORD);

DWORD WordAt(const unsigned char* bytes, size_t index)
{
    DWORD word = 0;
    std::memcpy(&word, bytes + index * sizeof(DWORD), sizeof word);
    return word;
}

int ReadVersionParts(DWORD (&parts)[4], size_t firstWord)
{
    for (DWORD& part : parts)
        part = 0;
    const HMODULE module = AfxGetResourceHandle();
    if (!module)
        return 0;
    const HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(1), MAKEINTRESOURCEA(16)); // RT_VERSION
    if (!found)
        return 0;
    const DWORD size = SizeofResource(module, found);
    if (size == 0)
        return 0;
    const HGLOBAL loaded = LoadResource(module, found);
    const auto* const bytes = static_cast<const unsigned char*>(loaded ? LockResource(loaded) : nullptr);
    if (!bytes)
        return 0;

    // The step bound compares a count of words with a count of bytes; that is
    // intended and only matters for malformed resources. The record must also
    // lie wholly inside the resource, whatever its size (so a resource of 51
    // bytes, shorter than the record, is not scanned at all).
    const size_t wordsWithRoom = size >= FixedRecordBytes ? (size - FixedRecordBytes) / sizeof(DWORD) + 1 : 0;
    size_t step = 0;
    for (;; ++step) {
        if ((size > ScanSizeAllowance && step == size - ScanSizeAllowance) || step >= wordsWithRoom)
            return 0;
        if (WordAt(bytes, step) == FixedRecordSignature)
            break;
    }
    const DWORD high = WordAt(bytes, step + firstWord);
    const DWORD low = WordAt(bytes, step + firstWord + 1);
    parts[0] = HIWORD(high);
    parts[1] = LOWORD(high);
    parts[2] = HIWORD(low);
    parts[3] = LOWORD(low);
    return 1;
}

/// Reads one text of the host executable's version block; queryFormat has
/// one %s for the language and code page.
int ReadAppVersionText(CString& text, const char* queryFormat)
{
    text.Empty();
    char path[256] = "";
    const DWORD length = GetModuleFileNameA(GetModuleHandleA(nullptr), path, sizeof path);
    if (length == 0 || length >= sizeof path)
        return 0;

    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &ignored);
    if (size == 0)
        return 0;
    std::vector<char> block(size);
    if (!GetFileVersionInfoA(path, 0, size, block.data()))
        return 0;

    // Without a translation entry there is no language to ask for.
    void* value = nullptr;
    UINT valueLength = 0;
    if (!VerQueryValueA(block.data(), "\\VarFileInfo\\Translation", &value, &valueLength) || !value ||
        valueLength < 2 * sizeof(WORD))
        return 0;
    const auto* const pair = static_cast<const WORD*>(value);
    char language[16] = "";
    wsprintfA(language, "%04x%04x", pair[0], pair[1]);

    char query[64] = "";
    wsprintfA(query, queryFormat, language);
    value = nullptr;
    valueLength = 0;
    if (!VerQueryValueA(block.data(), query, &value, &valueLength) || !value)
        return 0;
    text.Format("%s", static_cast<const char*>(value));
    return 1;
}

} // namespace

int GetFileVersionParts(DWORD (&parts)[4])
{
    return ReadVersionParts(parts, FileVersionWord);
}

int GetProductVersionParts(DWORD (&parts)[4])
{
    return ReadVersionParts(parts, ProductVersionWord);
}

int GetAppLegalNotice(CString& text)
{
    return ReadAppVersionText(text, "\\StringFileInfo\\%s\\LegalCopyright");
}

int GetAppProductName(CString& text)
{
    return ReadAppVersionText(text, "\\StringFileInfo\\%s\\ProductName");
}
