// Periods, presets, reminders and date pickers at random moments, against calendar arithmetic of the test's own.

#include "platform/controls/date_parts.h"
#include "reminder_fixture.h"
#include "reminders/due_reminders.h"
#include "units/date_ranges.h"

#include <random>

namespace {

using namespace std::chrono;
using Second = sys_seconds; // of whatever zone

/// A moment at which a zone's clocks jump, and how far from UTC they are before and after.
struct Jump {
    const char* zone;
    const char* utc;
    minutes before, after;
};

constexpr Jump Jumps[] = {
    {"America/Sao_Paulo", "2018-11-04T03:00:00Z", minutes{-180}, minutes{-120}}, // no midnight that day
    {"America/Sao_Paulo", "2018-02-18T02:00:00Z", minutes{-120}, minutes{-180}}, // two midnights
    {"Asia/Beirut", "2022-03-26T22:00:00Z", minutes{120}, minutes{180}},
    {"Asia/Beirut", "2022-10-29T21:00:00Z", minutes{180}, minutes{120}},
    {"Africa/Cairo", "2023-04-27T22:00:00Z", minutes{120}, minutes{180}},
    {"Africa/Cairo", "2023-10-26T21:00:00Z", minutes{180}, minutes{120}},
    {"America/New_York", "2026-03-08T07:00:00Z", minutes{-300}, minutes{-240}},
    {"Australia/Lord_Howe", "2025-10-04T15:30:00Z", minutes{630}, minutes{660}},
    {"Pacific/Apia", "2011-12-30T10:00:00Z", minutes{-600}, minutes{840}}, // a day that never was
};

constexpr sys_days Origin{1899y / December / 30};

struct Moment {
    Second utc, local;
    sys_days Today() const { return floor<days>(local); }
};

double OleDate(Second time) {
    const sys_days day = floor<days>(time);
    const auto whole = static_cast<double>((day - Origin).count());
    const double fraction = static_cast<double>((time - day).count()) / 86400;
    return whole < 0 ? whole - fraction : whole + fraction;
}

/// Year, month, day, day of the week, time of day.
std::string Text(sys_days day, seconds time = seconds{0}) {
    const year_month_day date{day};
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02u-%02u/%u+%d", int{date.year()}, unsigned{date.month()},
        unsigned{date.day()}, weekday{day}.c_encoding(), static_cast<int>(time.count()));
    return text;
}

std::string Text(const SYSTEMTIME& time) {
    char text[64];
    std::snprintf(text, sizeof text, "%d-%02d-%02d/%d+%d", time.wYear, time.wMonth, time.wDay, time.wDayOfWeek,
        (time.wHour * 60 + time.wMinute) * 60 + time.wSecond);
    return text;
}

class RandomClocks : public ReminderTest {
protected:
    ~RandomClocks() override { SetZone("UTC"); }

    int Draw(int first, int last) {
        return first + static_cast<int>(random_() % static_cast<unsigned>(last - first + 1));
    }
    /// Near the change of a day, a month or a year where `day` is one.
    Second Near(sys_days day) {
        constexpr int spans[] = {0, 1, 2, 3600, 86400, 3 * 86400};
        const int span = spans[Draw(0, 5)];
        return day + seconds{Draw(-span, span)};
    }
    sys_days SomeDay() {
        constexpr int years[] = {1601, 1899, 1900, 1999, 2000, 2024, 2026, 2100, 9999};
        const year chosen{Draw(0, 3) == 0 ? Draw(1601, 9999) : years[Draw(0, 8)]};
        return chosen / Draw(1, 12) / (Draw(0, 1) == 0 ? 1 : Draw(1, 28));
    }
    /// Sets the device's clock and zone.
    Moment SetMoment() {
        minutes offset{};
        Second utc;
        if (Draw(0, 1) == 0) {
            const Jump& jump = Jumps[Draw(0, std::size(Jumps) - 1)];
            const auto change = floor<seconds>(*device::ParseUtcTime(jump.utc));
            utc = change + seconds{Draw(-2, 2) * Draw(0, 40000)};
            offset = utc < change ? jump.before : jump.after;
            SetZone(jump.zone);
        } else {
            const int quarters = Draw(-12 * 4, 14 * 4);
            offset = minutes{15 * quarters};
            utc = Near(SomeDay()) - offset;
            char zone[32];
            std::snprintf(zone, sizeof zone, "<XXX>%c%02d:%02d", quarters > 0 ? '-' : '+', std::abs(quarters) / 4,
                std::abs(quarters) % 4 * 15);
            SetZone(zone);
        }
        device::StopClock(utc + milliseconds{Draw(0, 999)});
        return {utc, utc + offset};
    }

private:
    std::mt19937 random_{9};
};

TEST_F(RandomClocks, FilterPeriodsAreWholeDaysUpToToday) {
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const Moment now = SetMoment();
        const year_month_day today{now.Today()};
        const sys_days firsts[] = {now.Today(), now.Today() - days{6}, now.Today() - days{13},
            today.year() / today.month() / 1, today.year() / January / 1};
        const int type = Draw(0, 4);
        const sys_days first = firsts[type];
        SCOPED_TRACE(Text(now.Today(), now.local - now.Today()) + " type " + std::to_string(type));
        CEntryFilter filter;
        filter.SetVehicleID(1);
        filter.SetDateRangeType(static_cast<CEntryFilter::DateRangeType>(type));
        ASSERT_EQ(Text(*filter.GetStartDate()), Text(first));
        ASSERT_EQ(Text(*filter.GetEndDate()), Text(now.Today(), seconds{86399}));
        const Second dates[] = {Near(first), Near(now.Today() + days{1}), now.local, Near(SomeDay())};
        ASSERT_EQ(filter.HaveDateRange() != 0, type != 0);
        for (const Second date : dates) {
            CEntry entry;
            ASSERT_EQ(entry.GetDate(), OleDate(now.Today()));
            entry.SetVehicleID(1);
            entry.SetDate(OleDate(date));
            ASSERT_EQ(
                filter.EntryMatchesFilter(&entry) != 0, type == 0 || (date >= first && date < now.Today() + days{1}))
                << Text(floor<days>(date), date - floor<days>(date));
            entry.SetVehicleID(2);
            ASSERT_FALSE(filter.EntryMatchesFilter(&entry));
        }
    }
}

TEST_F(RandomClocks, PresetsCountFromToday) {
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const Moment now = SetMoment();
        const sys_days today = now.Today();
        const seconds time = now.local - today;
        const year_month_day date{today};
        if (date.year() < 1603y)
            continue; // where file times begin
        const sys_days month = date.year() / date.month() / 1;
        const year_month_day before{month - days{1}};
        const std::pair<sys_days, sys_days> expected[]
            = {{today - days{90}, today}, {today - days{180}, today}, {today - days{365}, today},
                {today - days{30}, today}, {before.year() / before.month() / 1, month - days{1}},
                {(date.year() - years{1}) / January / 1, (date.year() - years{1}) / December / 31}};
        const int preset = Draw(0, 5);
        SYSTEMTIME local;
        GetLocalTime(&local);
        ASSERT_EQ(Text(local), Text(today, time));
        const DatePeriod periods[] = {DaysUntil(local, 90), DaysUntil(local, 180), DaysUntil(local, 365),
            DaysUntil(local, 30), MonthBefore(local), YearBefore(local)};
        DatePeriod period = periods[preset];
        AddDays(&period.start, 0, &period.start); // the day of the week
        AddDays(&period.end, 0, &period.end);
        ASSERT_EQ(Text(period.start), Text(expected[preset].first, time)) << preset << ' ' << Text(local);
        ASSERT_EQ(Text(period.end), Text(expected[preset].second, time)) << preset << ' ' << Text(local);
    }
}

TEST_F(RandomClocks, RemindersFallDueAtTheirSecondInUtc) {
    for (int round = 0; round < 100 && !HasFailure(); ++round) {
        Moment now = SetMoment();
        if (now.utc < Origin)
            continue;
        const Second date = now.utc + seconds{Draw(-1, 1) * Draw(0, 1) * Draw(1, 90000)};
        const bool isDue = now.utc >= date;
        Remind(L"Oil", Highest, OleDate(date));
        bool shown = false;
        Host.Then([&] {
            shown = GetActiveWindow() != Frame.GetHandle();
            Host.Press(VK_TSOFT1);
        });
        CheckDueReminders(&Car);
        Host.Pump();
        ASSERT_EQ(shown, isDue) << Text(floor<days>(now.utc), now.utc - floor<days>(now.utc));
        const auto left = LoadAll<CNotification>(Car.GetRefID());
        ASSERT_EQ(left->GetCount(), isDue ? 0 : 1);
        if (!isDue)
            Layer.Delete(left->Get(0));
    }
}

TEST_F(RandomClocks, PickersKeepEveryDayAndStepByTheCalendar) {
    using Kind = device::ShortDatePart::Kind;
    constexpr Kind kinds[] = {Kind::Month, Kind::Day, Kind::Year};
    for (int round = 0; round < 20000 && !HasFailure(); ++round) {
        const sys_days ends[] = {1601y / January / 1, 9999y / December / 31, SomeDay(),
            std::max<sys_days>(1601y / January / 1, SomeDay() - days{1})};
        const sys_days day = ends[Draw(0, 3)];
        const year_month_day date{day};
        device::DateParts parts({{kinds[0], {}, false}, {kinds[1], {}, false}, {kinds[2], {}, false}});
        ASSERT_TRUE(parts.Set({static_cast<WORD>(int{date.year()}), static_cast<WORD>(unsigned{date.month()}), 0,
            static_cast<WORD>(unsigned{date.day()}), 1, 2, 3}));
        ASSERT_EQ(Text(parts.Get()), Text(day, seconds{3723}));
        const int part = Draw(0, 2);
        const int by = Draw(0, 1) == 0 ? 1 : -1;
        year_month_day expected = date;
        const unsigned length = unsigned{(date.year() / date.month() / last).day()};
        if (part == 0)
            expected
                = date.year() / month{(unsigned{date.month()} + 11 + static_cast<unsigned>(by)) % 12 + 1} / date.day();
        else if (part == 1)
            expected = date.year() / date.month()
                / std::chrono::day{(unsigned{date.day()} + length - 1 + static_cast<unsigned>(by)) % length + 1};
        else
            expected = year{std::clamp(int{date.year()} + by, 1601, 9999)} / date.month() / date.day();
        if (!expected.ok())
            expected = sys_days{expected.year() / expected.month() / last};
        parts.Choose(part + 1);
        parts.Step(by);
        ASSERT_EQ(Text(parts.Get()), Text(expected, seconds{3723})) << Text(day) << ' ' << part << ' ' << by;
        // Typed over, whatever stood there before.
        const int typed[] = {Draw(1, 12), Draw(1, 31), Draw(1601, 9999)};
        char digits[16];
        std::snprintf(digits, sizeof digits, "%02d%02d%04d", typed[0], typed[1], typed[2]);
        parts.Choose(1);
        for (const char* digit = digits; *digit != 0; ++digit)
            parts.Type(*digit - '0');
        const auto end = unsigned{(year{typed[2]} / typed[0] / last).day()};
        ASSERT_EQ(Text(parts.Get()),
            Text(year{typed[2]} / typed[0] / std::min(typed[1], static_cast<int>(end)), seconds{3723}))
            << digits;
    }
}

} // namespace
