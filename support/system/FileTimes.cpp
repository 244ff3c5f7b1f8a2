#include "support/system/FileTimes.h"

#include <windows.h>

namespace {

__time64_t LocalTimeValue(const FILETIME& stamp)
{
    FILETIME local{};
    SYSTEMTIME date{};
    if (!FileTimeToLocalFileTime(&stamp, &local) || !FileTimeToSystemTime(&local, &date) || date.wYear < 1900)
        return 0;
    std::tm fields{};
    fields.tm_year = date.wYear - 1900;
    fields.tm_mon = date.wMonth - 1;
    fields.tm_mday = date.wDay;
    fields.tm_hour = date.wHour;
    fields.tm_min = date.wMinute;
    fields.tm_sec = date.wSecond;
    fields.tm_isdst = -1;
    return _mktime64(&fields);
}

} // namespace

int GetFileTimes(const char* fileName, __time64_t& creation, __time64_t& lastAccess, __time64_t& lastWrite)
{
    creation = 0;
    lastAccess = 0;
    lastWrite = 0;
    if (!fileName)
        return 0;
    const HANDLE file = CreateFileA(fileName, GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return 0;
    // A stamp GetFileTime cannot give stays 0 (the year 1601), so its value is 0.
    FILETIME created{}, accessed{}, written{};
    GetFileTime(file, &created, &accessed, &written);
    CloseHandle(file);
    creation = LocalTimeValue(created);
    lastAccess = LocalTimeValue(accessed);
    lastWrite = LocalTimeValue(written);
    return 1;
}
