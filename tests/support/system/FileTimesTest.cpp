// File times of real files whose stamps the test sets, read back as local time values.
#include "support/system/FileTimes.h"
#include "SystemTestHelpers.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr long long EpochGap = 11644473600LL;   // seconds from 1601-01-01 to 1970-01-01

/// Makes the file with these access and write stamps (seconds since 1970); the three stamps
/// the system then reports, creation first.
std::vector<long long> MakeFile(const std::string& path, long long accessed, long long written)
{
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ULARGE_INTEGER ticks[3] = {};
    ticks[1].QuadPart = static_cast<ULONGLONG>((accessed + EpochGap) * 10000000LL);
    ticks[2].QuadPart = static_cast<ULONGLONG>((written + EpochGap) * 10000000LL);
    SetFileTime(file, nullptr, reinterpret_cast<FILETIME*>(&ticks[1]), reinterpret_cast<FILETIME*>(&ticks[2]));
    GetFileTime(file, reinterpret_cast<FILETIME*>(&ticks[0]), reinterpret_cast<FILETIME*>(&ticks[1]),
                reinterpret_cast<FILETIME*>(&ticks[2]));
    CloseHandle(file);
    std::vector<long long> seconds;
    for (const ULARGE_INTEGER& stamp : ticks)
        seconds.push_back(static_cast<long long>(stamp.QuadPart / 10000000ULL) - EpochGap);
    return seconds;
}

std::vector<long long> TimesOf(const std::string& path, int& result)
{
    __time64_t times[3] = {5, 5, 5};
    result = GetFileTimes(path.empty() ? nullptr : path.c_str(), times[0], times[1], times[2]);
    return {times[0], times[1], times[2]};
}

} // namespace

// A local date converted back gives the instant itself (exactly in a zone without daylight saving, as
// under the test prefix; elsewhere within the hour the system's current bias may differ from the
// date's); a stamp before 1900 gives 0; files that cannot be opened give 0 with cleared times.
TEST(FileTimes, StampsReadBackAsTimeValuesAndBefore1900AsZero)
{
    TIME_ZONE_INFORMATION zone{};
    const long long slack = GetTimeZoneInformation(&zone) == TIME_ZONE_ID_UNKNOWN ? 0 : 3600;
    const ScratchDir dir("times");
    const std::string path = dir / "stamped.txt";
    const long long accessed = 1614834367;   // 2021-03-04 05:06:07 UTC
    const long long written = 1000000000;    // 2001-09-09 01:46:40 UTC
    const std::vector<long long> reported = MakeFile(path, accessed, written);
    ASSERT_EQ(reported[1], accessed) << "the file system kept the access stamp";
    int result = -1;
    const std::vector<long long> times = TimesOf(path, result), expected = {reported[0], accessed, written};
    EXPECT_EQ(result, 1);
    for (size_t i = 0; i < 3; ++i)
        EXPECT_NEAR(times[i], expected[i], slack) << "creation, access, write: " << i;

    const HANDLE held = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    const struct {
        std::string path;
        const char* why;
    } unreadable[] = {{path, "held without sharing"}, {dir / "missing.txt", "missing"}, {"", "null name"}};
    for (const auto& row : unreadable) {
        EXPECT_EQ(TimesOf(row.path, result), (std::vector<long long>{0, 0, 0})) << row.why;
        EXPECT_EQ(result, 0) << row.why;
    }
    CloseHandle(held);
    TimesOf(path, result);
    EXPECT_EQ(result, 1) << "read again: no handle is left open";

    // ext4 keeps nothing before 1901; a tmpfs keeps any stamp.
    const std::string early = "Z:\\dev\\shm\\system_tests_1850.txt";
    const long long in1900 = -2194732800;    // 1900-06-15 00:00:00 UTC
    const long long in1850 = -3786825600;    // 1850-01-01 00:00:00 UTC
    if (MakeFile(early, in1900, in1850)[2] != in1850)
        GTEST_SKIP() << "no file system here keeps a stamp from 1850";
    const std::vector<long long> earlyTimes = TimesOf(early, result);
    EXPECT_EQ(earlyTimes[1], -1) << "last access in 1900: the runtime has no time value before 1970";
    EXPECT_EQ(earlyTimes[2], 0) << "last write in 1850";
    DeleteFileA(early.c_str());
}
