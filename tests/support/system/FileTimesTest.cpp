// File times of real files whose stamps the test sets, read back as local time values.
#include "SystemTestHelpers.h"

namespace {

// Makes the file with these access and write stamps (seconds since 1970, UTC); the write stamp kept.
long long MakeFile(const std::string& path, long long accessed, long long written)
{
    constexpr long long gap = 11644473600LL;   // seconds from 1601 to 1970; stamps count 100 ns from 1601
    ULARGE_INTEGER ticks[2] = {};
    ticks[0].QuadPart = static_cast<ULONGLONG>((accessed + gap) * 10000000LL);
    ticks[1].QuadPart = static_cast<ULONGLONG>((written + gap) * 10000000LL);
    auto* const stamps = reinterpret_cast<FILETIME*>(ticks);
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    SetFileTime(file, nullptr, &stamps[0], &stamps[1]);
    GetFileTime(file, nullptr, nullptr, &stamps[1]);
    CloseHandle(file);
    return static_cast<long long>(ticks[1].QuadPart / 10000000ULL) - gap;
}

} // namespace

// A local date converted back gives the instant itself (exactly in a zone without daylight saving, as
// under the test prefix; elsewhere within the hour); a stamp before 1900 gives 0; files that cannot be
// opened give 0 with cleared times.
TEST(FileTimes, StampsReadBackAsTimeValuesAndBefore1900AsZero)
{
    TIME_ZONE_INFORMATION zone{};
    const long long slack = GetTimeZoneInformation(&zone) == TIME_ZONE_ID_UNKNOWN ? 0 : 3600;
    const ScratchDir dir("times");
    const std::string path = dir / "stamped.txt";
    MakeFile(path, 1614834367, 1000000000);   // 2021-03-04 05:06:07 and 2001-09-09 01:46:40 UTC
    __time64_t times[3] = {5, 5, 5};
    EXPECT_EQ(1, GetFileTimes(path.c_str(), times[0], times[1], times[2]));
    EXPECT_NEAR(1614834367, times[1], slack) << "last access";
    EXPECT_NEAR(1000000000, times[2], slack) << "last write";
    const HANDLE held = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, held) << "GetFileTimes left its handle open";
    EXPECT_EQ(0, GetFileTimes(path.c_str(), times[0], times[1], times[2])) << "held without sharing";
    EXPECT_EQ((std::vector<__time64_t>{0, 0, 0}), std::vector<__time64_t>(times, times + 3));
    CloseHandle(held);

    // ext4 keeps nothing before 1901; a tmpfs keeps any stamp.
    const std::string early = "Z:\\dev\\shm\\system_tests_1850.txt";
    const bool kept = MakeFile(early, -2194732800, -3786825600) == -3786825600;   // 1900-06-15, 1850-01-01
    GetFileTimes(early.c_str(), times[0], times[1], times[2]);
    DeleteFileA(early.c_str());
    if (!kept)
        GTEST_SKIP() << "no file system here keeps a stamp from 1850";
    EXPECT_EQ(-1, times[1]) << "last access in 1900: the runtime has no time value before 1970";
    EXPECT_EQ(0, times[2]) << "last write in 1850";
}
