// Chains and periods over logs that are made by hand, and over random ones against a plain computation of their own.

#include "figures/daily_distance.h"
#include "figures/periods.h"
#include "platform/time.h"
#include "records/record_access.h"
#include "records/record_dates.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>

namespace {

constexpr double Ever = std::numeric_limits<double>::infinity();
constexpr int Day = 45361; // 10 March 2024

class Log {
public:
    ULONG Add(double date, CEntry::Type type, LONG odometer, float amount, float volume = 0) {
        auto entry = std::make_unique<CEntry>();
        ++last_;
        RecordAccess::MarkStored(entry.get(), last_, 1000U + static_cast<ULONG>(last_));
        entry->SetDate(date);
        entry->SetType(type);
        entry->SetOdometer(odometer);
        entry->SetAmount(amount);
        entry->SetCustom1(volume);
        Entries.Add(entry.get());
        return entry.release()->GetRefID();
    }
    ULONG Fill(int day, LONG odometer, float volume) {
        return Add(Day + day, CEntry::EntryTypeFuel, odometer, volume * 2, volume);
    }

    CObjectListT<CEntry> Entries;

private:
    LONG last_ = 0;
};

/// "DISTANCE:VOLUME ..." of all chains.
std::string Chains(const Log& log, const figures::FillMarks& marks) {
    std::string text;
    for (const figures::Chain& chain : figures::ChainsOf(log.Entries, marks))
        text += std::to_string(chain.distance) + ':' + std::to_string(std::lround(chain.volume * 10)) + ' ';
    return text;
}

TEST(Chains, GoFromFullTankToFullTank) {
    Log log;
    figures::FillMarks marks;
    const ULONG first = log.Fill(0, 50500, 41.25F);
    const ULONG second = log.Fill(11, 50640, 10);
    const ULONG third = log.Fill(20, 51240, 38.4F);
    log.Fill(21, 51240, 5); // no way between
    const ULONG last = log.Fill(30, 51740, 30);
    log.Add(Day + 31, CEntry::EntryTypeRepair, 51800, 100, 7);
    EXPECT_EQ(Chains(log, marks), "140:100 600:384 500:300 ");
    marks.missed = {first};
    marks.partial = {second};
    EXPECT_EQ(Chains(log, marks), "740:484 500:300 ");
    EXPECT_NEAR(figures::ChainsOf(log.Entries, marks)[0].volume / 740 * 100, 6.5405, 0.00005);
    marks.unknownOdometer = {third};
    EXPECT_EQ(Chains(log, marks), "740:534 500:300 ") << "the next reading ends the chain";
    marks = {{}, {third, last}, {}};
    EXPECT_EQ(Chains(log, marks), "140:100 ");
    marks.partial = {third};
    EXPECT_EQ(Chains(log, marks), "140:100 ") << "missed and partial: the chain begins at the next full tank";
}

TEST(DailyDistance, IsThatOfTheLastYear) {
    Log log;
    double day = 0;
    EXPECT_FALSE(figures::DailyDistance(log.Entries, {}).DayOf(100, &day));
    log.Fill(0, 1000, 10);
    log.Fill(400, 90000, 10);
    log.Fill(500, 91000, 10);
    const figures::DailyDistance daily(log.Entries, {});
    EXPECT_TRUE(daily.DayOf(91100, &day) && day == Day + 510);
    EXPECT_FALSE(daily.DayOf(INT32_MAX, &day)) << "beyond every calendar";
}

/// The month of a date, from a table of days.
std::string MonthOf(int day) {
    static std::map<int, std::string> months;
    static const bool isMade = [] {
        int at = -109205; // 1 January 1601
        for (int year = 1601; year < 2200; ++year) {
            const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
            const int lengths[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
            for (int month = 1; month <= 12; at += lengths[month++ - 1])
                months[at] = std::to_string(year) + (month < 10 ? "-0" : "-") + std::to_string(month);
        }
        return true;
    }();
    return isMade ? std::prev(months.upper_bound(day))->second : "";
}

struct Sums {
    double amount = 0, volume = 0, chainVolume = 0;
    std::int64_t distance = 0, chainDistance = 0;
};

TEST(Periods, OfRandomLogsAreThoseOfAPlainComputation) {
    std::mt19937 random(20260301);
    const auto draw = [&](int first, int last) {
        return first + static_cast<int>(random() % static_cast<unsigned>(last - first + 1));
    };
    for (int run = 0; run < 300; ++run) {
        Log log;
        figures::FillMarks marks;
        const int first = Day - draw(0, 300);
        const int last = Day + draw(0, 300);
        int day = Day - 400;
        LONG odometer = draw(0, 1000);
        std::map<std::string, Sums> wanted;
        LONG before = 0;
        std::int64_t chainStart = -1;
        double chainVolume = 0;
        for (int i = draw(0, 40); i > 0; --i) {
            day += draw(0, 40);
            odometer += draw(-20, 400);
            const auto type = static_cast<CEntry::Type>(draw(1, 4));
            const float volume = type == CEntry::EntryTypeTrip ? static_cast<float>(odometer - 10) : draw(0, 3) * 5.0F;
            const ULONG key = log.Add(day + 0.5, type, odometer, draw(0, 50) / 2.0F, volume);
            const bool isPartial = draw(1, 4) == 1, isMissed = draw(1, 8) == 1;
            if (isPartial)
                marks.partial.insert(key);
            if (isMissed)
                marks.missed.insert(key);
            const bool isWanted = day >= first && day <= last;
            Sums* sums = isWanted ? &wanted[MonthOf(day)] : nullptr;
            if (log.Entries.GetCount() == 1)
                before = type == CEntry::EntryTypeTrip ? odometer - 10 : odometer;
            if (sums) {
                sums->amount += double{log.Entries.Get(log.Entries.GetCount() - 1)->GetAmount()};
                sums->distance += odometer - before;
            }
            before = odometer;
            if (type != CEntry::EntryTypeFuel || volume == 0)
                continue;
            if (sums)
                sums->volume += double{volume};
            chainStart = isMissed ? -1 : chainStart;
            chainVolume += double{volume};
            if (isPartial)
                continue;
            if (chainStart >= 0 && odometer > chainStart && sums) {
                sums->chainDistance += odometer - chainStart;
                sums->chainVolume += chainVolume;
            }
            chainStart = odometer;
            chainVolume = 0;
        }
        const auto periods = figures::PeriodsOf(log.Entries, marks, figures::Length::Month, first, last + 0.9);
        ASSERT_EQ(periods.size(), wanted.size()) << run;
        for (const figures::Period& period : periods) {
            const Sums& sums = wanted[period.name];
            EXPECT_EQ(period.cost[0], sums.amount) << run << ' ' << period.name;
            EXPECT_EQ(period.volume, sums.volume) << run << ' ' << period.name;
            EXPECT_EQ(period.distance, sums.distance) << run << ' ' << period.name;
            EXPECT_EQ(period.chainDistance, sums.chainDistance) << run << ' ' << period.name;
            EXPECT_EQ(period.chainVolume, sums.chainVolume) << run << ' ' << period.name;
        }
        double total = 0;
        for (const auto& quarter : figures::PeriodsOf(log.Entries, marks, figures::Length::Quarter, -Ever, Ever))
            total += quarter.cost[1] + quarter.cost[2] + quarter.cost[3] + quarter.cost[4];
        double years = 0;
        for (const auto& year : figures::PeriodsOf(log.Entries, marks, figures::Length::Year, -Ever, Ever))
            years += year.cost[0];
        EXPECT_EQ(total, years);
    }
}

} // namespace
