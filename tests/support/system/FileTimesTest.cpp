// File times of real files whose stamps the test sets, read back as local time values.
#include "SystemTestHelpers.h"

namespace {

// Makes the file with these access and write stamps (UTC dates); whether the write stamp was kept.
bool MakeFile(const std::string& path, SYSTEMTIME accessed, SYSTEMTIME written)
{
    FILETIME stamps[3] = {};
    SystemTimeToFileTime(&accessed, &stamps[0]);
    SystemTimeToFileTime(&written, &stamps[1]);
    const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    SetFileTime(file, nullptr, &stamps[0], &stamps[1]);
    GetFileTime(file, nullptr, nullptr, &stamps[2]);
    CloseHandle(file);
    return CompareFileTime(&stamps[1], &stamps[2]) == 0;
}

} // namespace

// A local date converted back gives the instant itself (exactly in a zone without daylight saving, as
// under the test prefix; elsewhere within the hour); a stamp before 1900 gives 0, one the runtime cannot
// express -1; a file that cannot be opened gives 0 with cleared times.
TEST(FileTimes, StampsReadBackAsTimeValuesAndBefore1900AsZero)
{
    TIME_ZONE_INFORMATION zone{};
    const long long slack = GetTimeZoneInformation(&zone) == TIME_ZONE_ID_UNKNOWN ? 0 : 3600;
    // ext4 keeps nothing before 1901; a tmpfs keeps any stamp.
    const std::string path = "Z:\\dev\\shm\\system_tests_times.txt";
    if (!MakeFile(path, {2021, 3, 0, 4, 5, 6, 7, 0}, {1850, 1, 0, 1, 0, 0, 0, 0}))
        GTEST_SKIP() << "no file system here keeps a stamp from 1850";
    __time64_t times[3] = {5, 5, 5};
    EXPECT_EQ(1, GetFileTimes(path.c_str(), times[0], times[1], times[2]));
    EXPECT_NEAR(1614834367, times[1], slack) << "last access, 2021-03-04 05:06:07 UTC";
    EXPECT_EQ(0, times[2]) << "last write in 1850";
    MakeFile(path, {1900, 6, 0, 15, 0, 0, 0, 0}, {2001, 9, 0, 9, 1, 46, 40, 0});
    GetFileTimes(path.c_str(), times[0], times[1], times[2]);
    EXPECT_EQ(-1, times[1]) << "last access in 1900: the runtime has no time value before 1970";
    EXPECT_NEAR(1000000000, times[2], slack) << "last write, 2001-09-09 01:46:40 UTC";
    const HANDLE held = CreateFileA(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, held) << "GetFileTimes left its handle open";
    EXPECT_EQ(0, GetFileTimes(path.c_str(), times[0], times[1], times[2])) << "held without sharing";
    EXPECT_EQ((std::vector<__time64_t>{0, 0, 0}), std::vector<__time64_t>(times, times + 3));
    CloseHandle(held);
    DeleteFileA(path.c_str());
}
