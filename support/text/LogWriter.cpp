#include "support/text/LogWriter.h"

#include "support/InvalidParameter.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr size_t kLogFileNameCapacity = 1001;

char LogFileName[kLogFileNameCapacity] = "_DEFAULT.LOG";
int LogStarted = 0;

// The first message of a process empties the default log of an earlier run.
void StartLog()
{
    if (LogStarted == 0) {
        LogStarted = 1;
        std::remove(LogFileName);
    }
}

FILE* OpenLog()
{
    FILE* file = nullptr;
    // "t" keeps text mode even when the host made binary the default (_fmode).
    if (fopen_s(&file, LogFileName, "at") != 0)
        return nullptr;
    return file;
}

bool BeginsWith(const char* format, char marker)
{
    return format && format[0] == marker && format[1] == ':';
}

int WriteTimeStamp(FILE* file)
{
    const __time64_t now = _time64(nullptr);
    struct tm local = {};
    if (_localtime64_s(&local, &now) != 0)
        local = tm{};
    return std::fprintf(file, "%2.2d/%2.2d/%2.2d %2.2d.%2.2d.%2.2d:", local.tm_year % 100, local.tm_mon + 1,
                        local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec);
}

// The caller's message, if it gave a format; returns what printf counted.
int WriteMessage(FILE* file, const char* format, va_list args)
{
    return format ? std::vfprintf(file, format, args) : 0;
}

} // namespace

int LogWrite(const char* source, int code, const char* format, ...)
{
    StartLog();
    int count = 0;
    if (FILE* file = OpenLog()) {
        if (source && *source)
            count += std::fprintf(file, "%s", source);
        if (code > 0)
            count += std::fprintf(file, "(%ld)", static_cast<long>(code));
        if (count > 0)
            count += std::fprintf(file, ":");
        if (BeginsWith(format, 'S') || BeginsWith(format, 'E'))
            count += WriteTimeStamp(file);
        va_list args;
        va_start(args, format);
        count += WriteMessage(file, format, args);
        va_end(args);
        std::fclose(file);
    }
    if (BeginsWith(format, 'S')) {
        _fcloseall();
        std::exit(1);
    }
    return count;
}

int LogPrintf(const char* format, ...)
{
    StartLog();
    FILE* file = OpenLog();
    if (!file)
        return 0;
    int count = WriteTimeStamp(file);
    va_list args;
    va_start(args, format);
    count += WriteMessage(file, format, args);
    va_end(args);
    std::fclose(file);
    return count;
}

char* GetLogFileName()
{
    return LogFileName;
}

void SetLogFileName(const char* path)
{
    LogStarted = 1;
    // A bounded copy: a name that does not fit leaves the store empty.
    if (!path || strnlen(path, kLogFileNameCapacity) >= kLogFileNameCapacity) {
        LogFileName[0] = '\0';
        RaiseInvalidParameter();
        return;
    }
    std::memmove(LogFileName, path, std::strlen(path) + 1);  // the path may be the store itself
}

int DeleteLogFile()
{
    return std::remove(LogFileName);
}
