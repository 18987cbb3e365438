#include "exchange/drafts.h"
#include "exchange/odd_readings.h"
#include "exchange/own_rows.h"
#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace exchange {
namespace {

constexpr char Signs[] = {'.', ','};
constexpr DateOrder Orders[] = {DateOrder::DayMonthYear, DateOrder::MonthDayYear, DateOrder::YearMonthDay};
constexpr const char* OrderWords[] = {"day first", "month first", "year first"};
constexpr const char* RowTooShort = "the row has too few cells";

const char* WordsOf(DateOrder order) {
    return OrderWords[static_cast<int>(order)];
}

const char* WordsOf(char decimal) {
    return decimal == ',' ? "comma" : "point";
}

/// Ends the reading of a draft.
struct Broken {
    int cell;
    std::string reason;
};

/// All cells of drafts that hold numbers, with whether it is money.
template <typename Work> void ForEachNumber(const Drafts& drafts, Work work) {
    for (const EntryDraft& draft : drafts.entries) {
        for (const Cell* cell : {&draft.odometer, &draft.start, &draft.distance, &draft.volume})
            work(*cell, false);
        for (const Cell* cell : {&draft.price, &draft.total, &draft.further})
            work(*cell, true);
    }
    for (const ReminderDraft& draft : drafts.reminders)
        for (const Cell* cell : {&draft.odometer, &draft.interval})
            work(*cell, false);
}

class Settling {
public:
    Settling(Drafts* drafts, const ReadingOptions& options, Batch* batch)
        : drafts_(*drafts)
        , options_(options)
        , batch_(*batch) { }

    void Run() {
        SettleDecimal();
        SettleDates();
        SettleUnits();
        batch_.entries.reserve(drafts_.entries.size());
        for (; !drafts_.entries.empty(); drafts_.entries.pop_front())
            Take(drafts_.entries.front().line, [&] { AddEntry(drafts_.entries.front()); });
        for (const ReminderDraft& draft : drafts_.reminders)
            Take(draft.line, [&] { AddReminder(draft); });
        const auto tell = [&](const std::string& words, std::size_t entry) { drafts_.Notice(words, lines_[entry]); };
        for (auto& [vehicle, stretches] : stretches_)
            RebuildOdometers(&batch_, std::move(stretches), tell);
        TellOddities(batch_, drafts_.hasMissedFills, tell);
        batch_.distance = intoDistance_;
        batch_.volume = intoVolume_;
    }

private:
    void SettleDecimal() {
        WayFinder<char, std::size(Signs)> finder(Signs);
        ForEachNumber(drafts_, [&](const Cell& cell, bool isMoney) {
            if (cell.text.find_first_of(".,") != std::string::npos)
                finder.Look(cell.text, [&](char decimal) { return ReadWrittenNumber(cell.text, decimal, isMoney); });
        });
        const std::optional<char> sign = options_.decimal ? options_.decimal : finder.Found();
        decimal_ = sign.value_or('.');
        if (sign)
            drafts_.Facts().decimal = WordsOf(decimal_);
        if (options_.decimal && !finder.Found())
            Assume(std::string("a decimal ") + WordsOf(decimal_) + " (--decimal)");
        else if (!sign && finder.IsOpen())
            Ask("is the decimal sign in \"" + finder.Example() + "\" a point or a comma? Say --decimal point or comma",
                "");
    }

    void SettleDates() {
        WayFinder<DateOrder, std::size(Orders)> finder(Orders);
        bool hasYearFirst = false;
        bool hasDots = false;
        const auto look = [&](const Cell& cell) {
            constexpr std::size_t DigitsOfYear = 4;
            const std::size_t mark = cell.text.find_first_not_of("0123456789");
            hasYearFirst = hasYearFirst || mark == DigitsOfYear;
            hasDots = hasDots || (mark < DigitsOfYear && cell.text[mark] == '.');
            finder.Look(cell.text, [&](DateOrder order) { return ReadWrittenDate(cell.text, order); });
        };
        for (const EntryDraft& draft : drafts_.entries)
            look(draft.date);
        for (const ReminderDraft& draft : drafts_.reminders)
            look(draft.date);
        const std::optional<DateOrder> stated = drafts_.dates ? drafts_.dates : options_.dates;
        const std::optional<DateOrder> order = stated ? stated : finder.Found();
        dates_ = order.value_or(DateOrder::DayMonthYear);
        if (order)
            drafts_.Facts().dates = WordsOf(*order);
        else if (!finder.IsOpen() && hasYearFirst)
            drafts_.Facts().dates = WordsOf(DateOrder::YearMonthDay);
        else if (!finder.IsOpen() && hasDots)
            drafts_.Facts().dates = WordsOf(DateOrder::DayMonthYear);
        if (!order && finder.IsOpen())
            Ask("which date is \"" + finder.Example() + "\"? Say --dates dmy, mdy or ymd", drafts_.dateHabit);
        else if (!drafts_.dates && options_.dates && !finder.Found())
            Assume(std::string("dates ") + WordsOf(dates_) + " (--dates)");
    }

    void SettleUnits() {
        bool hasDistances = std::any_of(drafts_.reminders.begin(), drafts_.reminders.end(),
            [](const ReminderDraft& draft) { return !draft.odometer.text.empty(); });
        bool hasVolumes = false;
        std::string distances;
        std::string volumes;
        for (const EntryDraft& draft : drafts_.entries) {
            if (IsCutOff(draft))
                continue;
            AddWord(NameOf(draft.distanceUnit), &distances);
            AddWord(NameOf(draft.volumeUnit), &volumes);
            hasDistances = hasDistances || (!draft.distanceUnit && !draft.odometer.text.empty());
            hasVolumes = hasVolumes
                || (!draft.volumeUnit && draft.type == CEntry::EntryTypeFuel && draft.otherThanFuel.empty());
        }
        if (!drafts_.distance && hasDistances)
            AskForDistance();
        if (!drafts_.volume && hasVolumes)
            AskForVolume();
        const UnitDistance someDistance = drafts_.distance.value_or(DistanceKilometres);
        const UnitVolume someVolume = drafts_.volume.value_or(VolumeLitres);
        intoDistance_ = options_.intoDistance.value_or(someDistance);
        intoVolume_ = options_.intoVolume.value_or(someVolume);
        AddWord(NameOf(drafts_.distance), &distances);
        AddWord(NameOf(drafts_.volume), &volumes);
        drafts_.Facts().distance = distances;
        drafts_.Facts().volume = volumes;
        drafts_.distance = someDistance;
        drafts_.volume = someVolume;
    }

    static void AddWord(const std::string& word, std::string* words) {
        if (words->find(word) == std::string::npos)
            words->append(words->empty() ? "" : " and ").append(word);
    }

    void AskForDistance() {
        drafts_.distance = options_.distance;
        if (options_.distance)
            Assume(std::string("readings in ") + NameOf(options_.distance) + " (--distance)");
        else
            Ask("are its readings miles or kilometres? Say --distance mi or km", "");
    }

    void AskForVolume() {
        const bool isRefused = drafts_.isGallons && options_.volume && *options_.volume == VolumeLitres;
        if (options_.volume && !isRefused) {
            drafts_.volume = options_.volume;
            Assume(std::string("volumes in ") + NameOf(options_.volume) + " (--volume)");
        } else if (drafts_.isGallons) {
            Ask("are its gallons those of the US or of the UK? Say --volume usgal or ukgal", drafts_.volumeHabit);
        } else {
            Ask("are its volumes litres or gallons? Say --volume l, usgal or ukgal", drafts_.volumeHabit);
        }
    }

    void Ask(const std::string& question, const std::string& habit) {
        drafts_.Facts().questions.push_back(question + (habit.empty() ? "" : "; usually it is " + habit));
    }
    void Assume(const std::string& words) { drafts_.Facts().assumed.push_back(words); }

    template <typename Work> void Take(int line, Work work) {
        try {
            work();
        } catch (const Broken& broken) {
            drafts_.Fault(line, broken.cell, broken.reason);
        }
    }

    /// The row ends before what no entry can be without.
    static bool IsCutOff(const EntryDraft& draft) {
        return draft.date.place == 0 || draft.odometer.place == 0 || draft.volume.place == 0;
    }

    double Date(const Cell& cell) const {
        if (cell.place <= 0)
            throw Broken{0, cell.place == 0 ? RowTooShort : "there is no date"};
        const std::optional<double> date = ReadWrittenDate(cell.text, dates_);
        if (!date)
            throw Broken{cell.place, '"' + cell.text + "\" is no date"};
        return *date;
    }

    /// Nothing where nothing was written.
    std::optional<double> Number(const Cell& cell, bool isMoney) const {
        if (cell.text.empty())
            return std::nullopt;
        const std::optional<double> number = ReadWrittenNumber(cell.text, decimal_, isMoney);
        if (!number || std::fabs(*number) > double{std::numeric_limits<float>::max()})
            throw Broken{cell.place, '"' + cell.text + "\" is no number"};
        return number;
    }

    std::optional<double> NumberFrom0(const Cell& cell, bool isMoney) const {
        const std::optional<double> number = Number(cell, isMoney);
        if (number && *number < 0)
            throw Broken{cell.place, '"' + cell.text + "\" is less than nothing"};
        return number;
    }

    std::optional<LONG> Reading(const Cell& cell, UnitDistance unit) const {
        const std::optional<double> number = NumberFrom0(cell, false);
        if (!number)
            return std::nullopt;
        const double reading = *number * DistanceFactor(unit);
        if (reading > std::numeric_limits<LONG>::max())
            throw Broken{cell.place, '"' + cell.text + "\" is too large a reading"};
        return WholeReading(reading);
    }

    /// "12.345": with a decimal point in other columns these are twelve kilometres, which nobody has driven.
    bool IsRatherThousands(const std::string& reading) const {
        constexpr std::size_t LongestGroup = 3;
        const std::size_t place = reading.find(decimal_);
        return !options_.decimal && place <= LongestGroup && reading.size() == place + 1 + LongestGroup;
    }

    double DistanceFactor(UnitDistance unit) const { return KilometresOf(unit) / KilometresOf(intoDistance_); }

    void AddEntry(const EntryDraft& draft) {
        EntryItem item{std::make_unique<CEntry>(Date(draft.date))};
        CEntry* entry = item.record.get();
        item.isPartial = draft.isPartial;
        item.isMissed = draft.isMissed;
        entry->SetType(draft.type);
        if (IsCutOff(draft))
            throw Broken{0, RowTooShort};
        const UnitDistance unit = draft.distanceUnit.value_or(*drafts_.distance);
        const std::optional<LONG> odometer = Reading(draft.odometer, unit);
        if (IsRatherThousands(draft.odometer.text))
            drafts_.Notice("the reading has three decimals; if they are thousands, say --decimal", draft.line);
        const bool isKnown = odometer && (*odometer != 0 || draft.isZeroReading);
        item.hasUnknownOdometer = item.lacksOdometer = !isKnown;
        entry->SetOdometer(odometer.value_or(0));
        if (draft.type == CEntry::EntryTypeFuel)
            SetFuel(draft, entry);
        else
            entry->SetAmount(Float(Number(draft.total, true).value_or(0) + Number(draft.further, true).value_or(0)));
        if (draft.type == CEntry::EntryTypeTrip)
            SetTrip(draft, unit, entry);
        entry->SetName(device::FromUtf8(TitleOf(draft)).c_str());
        entry->SetVendor(device::FromUtf8(draft.vendor).c_str());
        entry->SetNotes(device::FromUtf8(draft.notes).c_str());
        const double distance = NumberFrom0(draft.distance, false).value_or(0) * DistanceFactor(unit);
        item.vehicle = drafts_.VehicleOf(draft.vehicle);
        if (draft.distance.place > 0)
            stretches_[item.vehicle].push_back({batch_.entries.size(), distance, isKnown});
        lines_.push_back(draft.line);
        batch_.entries.push_back(std::move(item));
    }

    /// No form takes an entry without a name, but fuel.
    static std::string TitleOf(const EntryDraft& draft) {
        constexpr const char* Names[] = {"", "", "Repair", "Trip", "Expense"};
        if (!draft.otherThanFuel.empty())
            return draft.otherThanFuel;
        return draft.name.empty() ? Names[draft.type] : draft.name;
    }

    static float Float(double number) {
        constexpr double Greatest{std::numeric_limits<float>::max()};
        return static_cast<float>(std::clamp(number, -Greatest, Greatest));
    }

    /// What was paid in all is what a person checked; with the volume it gives the price.
    void SetFuel(const EntryDraft& draft, CEntry* entry) {
        constexpr double Cents = 100;
        constexpr double Tolerance = 0.01;
        const UnitVolume unit = draft.volumeUnit.value_or(*drafts_.volume);
        const double factor = LitresOf(unit) / LitresOf(intoVolume_);
        const std::optional<double> volume = NumberFrom0(draft.volume, false);
        if (!volume)
            throw Broken{std::max(draft.volume.place, 0), "there is no volume"};
        double price = Number(draft.price, true).value_or(0);
        double total = Number(draft.total, true).value_or(0);
        const double product = price * *volume;
        const bool isContradiction
            = price != 0 && total != 0 && std::fabs(product - total) > std::fabs(total) * Tolerance;
        if (total == 0)
            total = std::round(product * Cents) / Cents;
        else if (*volume > 0 && (price == 0 || isContradiction))
            price = total / *volume;
        if (isContradiction)
            drafts_.Notice("the total is not price times volume; the total counts", draft.line);
        entry->SetAmount(Float(total));
        if (!draft.otherThanFuel.empty())
            return entry->SetType(CEntry::EntryTypeExpense);
        entry->SetCustom1(Float(*volume * factor));
        entry->SetCustom2(Float(price / factor));
    }

    void SetTrip(const EntryDraft& draft, UnitDistance unit, CEntry* entry) {
        const LONG start = Reading(draft.start, unit).value_or(entry->GetOdometer());
        if (start > entry->GetOdometer())
            throw Broken{draft.odometer.place, "the trip ends below its start"};
        entry->SetCustom1(static_cast<float>(start));
        entry->SetCustom2(static_cast<float>(entry->GetOdometer()));
    }

    void AddReminder(const ReminderDraft& draft) {
        ReminderItem item{std::make_unique<CNotification>()};
        item.record->SetDate(draft.date.text.empty() ? NoDate : Date(draft.date));
        const std::optional<double> base = NumberFrom0(draft.odometer, false);
        const double reading
            = (base.value_or(0) + NumberFrom0(draft.interval, false).value_or(0)) * DistanceFactor(*drafts_.distance);
        item.record->SetOdometer(base ? std::min(WholeReading(reading), NoOdometer) : NoOdometer);
        item.record->SetName(device::FromUtf8(draft.name.empty() ? "Reminder" : draft.name).c_str());
        item.record->SetNotes(device::FromUtf8(draft.notes).c_str());
        item.vehicle = drafts_.VehicleOf(draft.vehicle);
        batch_.reminders.push_back(std::move(item));
    }

    Drafts& drafts_;
    const ReadingOptions& options_;
    Batch& batch_;
    char decimal_ = '.';
    DateOrder dates_ = DateOrder::DayMonthYear;
    UnitDistance intoDistance_ = DistanceKilometres;
    UnitVolume intoVolume_ = VolumeLitres;
    std::map<std::size_t, std::vector<Stretch>> stretches_; ///< by vehicle
    std::vector<int> lines_; ///< of the entries
};

} // namespace

void Settle(Drafts* drafts, const ReadingOptions& options, Batch* batch) {
    Settling(drafts, options, batch).Run();
}

} // namespace exchange
