#pragma once

#include "exchange/csv_table.h"
#include "exchange/reading.h"

#include <deque>

namespace exchange {

/// An entry as a file has it: texts, which get their meaning once all of the file was seen.
struct EntryDraft {
    CEntry::Type type = CEntry::EntryTypeExpense;
    int line = 0;
    std::string vehicle; ///< its name
    Cell date; ///< with a time of day behind it or not
    Cell odometer; ///< of a trip, at its end
    Cell start; ///< of a trip
    Cell distance; ///< from the fill before; counts where there is no reading
    Cell volume;
    Cell price; ///< of one unit of volume
    Cell total;
    Cell further; ///< money to be added to the total
    std::string name;
    std::string vendor;
    std::string notes;
    /// What was filled in is paid for by volume, but drives nothing by it, as "Charging": an other expense of that
    /// name.
    std::string otherThanFuel;
    bool isPartial = false;
    bool isMissed = false;
    bool isZeroReading = false; ///< a reading of 0 is one, and does not mean that there is none
    std::optional<UnitDistance> distanceUnit; ///< where the row has its own
    std::optional<UnitVolume> volumeUnit;
};

/// Due at a date, a reading, or both; each may be put off by an interval.
struct ReminderDraft {
    int line = 0;
    std::string vehicle;
    Cell date;
    Cell odometer;
    Cell interval; ///< to be added to the reading
    std::string name;
    std::string notes;
};

/// What a reader makes of a file, and what it found out about all of it.
class Drafts {
public:
    explicit Drafts(FileFacts* facts, Batch* batch)
        : facts_(*facts)
        , batch_(*batch) { }

    std::deque<EntryDraft> entries; ///< which neither copies many when it grows nor keeps those that were taken out
    std::vector<ReminderDraft> reminders;
    std::optional<DateOrder> dates; ///< that the file states
    std::optional<UnitDistance> distance;
    std::optional<UnitVolume> volume;
    bool isGallons = false; ///< volumes are gallons, and nobody says which
    bool hasMissedFills = true; ///< the file says where a fill was not written down
    std::string dateHabit; ///< what such files usually have, in words
    std::string volumeHabit;

    FileFacts& Facts() { return facts_; }
    void Fault(int line, int cell, const std::string& reason) { batch_.faults.push_back({line, cell, reason, ""}); }
    void Notice(const std::string& words, int line) { facts_.notices[words].push_back(line); }

    /// Its place in the batch by its name, in which runs of blanks are one; without a name that of the one vehicle that
    /// the file does not name.
    std::size_t VehicleOf(const std::string& name);
    CVehicle& Vehicle(const std::string& name) { return *batch_.vehicles[VehicleOf(name)].record; }

    /// Does `work` for every row of a table that is as wide as its titles, or narrower, and frees it.
    void ForEachRow(Table& table, const std::function<void(const CsvRow& row)>& work);

private:
    FileFacts& facts_;
    Batch& batch_;
    std::map<std::string, std::size_t> vehicles_;
};

/// Makes a fill one of electricity, whose volume becomes a note.
void MakeCharge(EntryDraft* draft, Drafts* drafts);
bool IsElectric(const std::string& unit);
/// "first; second", or the one that is not empty.
void Append(std::string* text, const std::string& more);
/// By a stated unit: "mi", "km", "miles", "mile", "kilometer", ...
std::optional<UnitDistance> DistanceWritten(const std::string& text);
/// "l", "litres", "gal (US)", "uk gallons", ...; nothing for gallons of which nobody says which, which `isGallons`
/// tells.
std::optional<UnitVolume> VolumeWritten(const std::string& text, bool* isGallons);

/// Makes records of drafts: settles how the file writes numbers and dates, asks what it leaves open, converts units.
void Settle(Drafts* drafts, const ReadingOptions& options, Batch* batch);

} // namespace exchange
