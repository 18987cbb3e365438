#include "time_text.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

SYSTEMTIME Date(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int milliseconds = 0) {
    const auto word = [](int number) { return static_cast<WORD>(number); };
    return {word(year), word(month), 0, word(day), word(hour), word(minute), word(second), word(milliseconds)};
}

TEST(OleDates, ComeBackBitForBitForEverySecondOfADay) {
    for (const double day : {46082.0, -18076.0, 2958465.0}) {
        for (int second = 0; second < 86400; ++second) {
            const double date = day + std::copysign(second / 86400.0, day);
            double again = 0;
            SYSTEMTIME time;
            ASSERT_TRUE(VariantTimeToSystemTime(date, &time) && SystemTimeToVariantTime(&time, &again));
            ASSERT_EQ(again, date) << Text(time);
        }
    }
}

TEST(OleDates, RoundUpIntoTheNextDayAndRefuseWhatIsNoDate) {
    SYSTEMTIME time;
    ASSERT_TRUE(VariantTimeToSystemTime(39467.999999, &time));
    EXPECT_EQ(Text(time), "2008-01-21T00:00:00.000/1");
    // Counted forward from the 28th.
    ASSERT_TRUE(VariantTimeToSystemTime(-2.999999, &time));
    EXPECT_EQ(Text(time), "1899-12-29T00:00:00.000/5");

    for (const double date : {std::nan(""), 1e300, -657435.0, 2958466.0, 2958465.9999999})
        EXPECT_FALSE(VariantTimeToSystemTime(date, &time)) << date;
    double date = 7;
    for (const SYSTEMTIME& wrong : {Date(99, 12, 31), Date(10000, 1, 1), Date(2026, 2, 29), Date(2026, 13, 1),
             Date(2026, 0, 1), Date(2026, 4, 31), Date(2026, 1, 0), Date(2026, 1, 1, 24), Date(2026, 1, 1, 0, 60),
             Date(2026, 1, 1, 0, 0, 60), Date(2026, 257, 1), Date(2026, 1, 257)}) {
        EXPECT_FALSE(SystemTimeToVariantTime(&wrong, &date)) << Text(wrong);
    }
    EXPECT_EQ(date, 7);
}

TEST(FileTimes, CountFrom1601To30827) {
    FILETIME former{};
    for (const SYSTEMTIME& edge : {Date(1601, 1, 1), Date(30827, 12, 31, 23, 59, 59, 999)}) {
        FILETIME ticks;
        SYSTEMTIME back;
        ASSERT_TRUE(SystemTimeToFileTime(&edge, &ticks) && FileTimeToSystemTime(&ticks, &back));
        back.wDayOfWeek = 0;
        EXPECT_EQ(Text(back), Text(edge));
        EXPECT_EQ(CompareFileTime(&former, &ticks), edge.wYear == 1601 ? 0 : -1);
        former = ticks;
    }
    for (const SYSTEMTIME& wrong : {Date(1600, 12, 31), Date(30828, 1, 1), Date(2026, 2, 30)})
        EXPECT_FALSE(SystemTimeToFileTime(&wrong, &former)) << Text(wrong);
    SYSTEMTIME time;
    const FILETIME late{0, 0x80000000};
    EXPECT_FALSE(FileTimeToSystemTime(&late, &time));
}

} // namespace
