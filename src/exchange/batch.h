#pragma once

#include "records/entry.h"
#include "records/keyword.h"
#include "records/notification.h"
#include "records/vehicle.h"
#include "units/units.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

/// Records on their way into a log or out of it, whatever form the file has.
namespace exchange {

/// What is wrong, and where: the line of the file in which the row begins, and the cell within the row, both from 1. A
/// cell of 0 is the whole row.
struct Fault {
    int line;
    int cell;
    std::string reason;
    std::string member = {}; ///< the file within an archive
};

struct VehicleItem {
    std::unique_ptr<CVehicle> record;
    bool isNamed = true; ///< the file says which one it is
    bool isInLog = false; ///< it is there already, and needs no row of its own
    bool hasOdometer = false; ///< its current reading is told, and is not just the highest of its entries
};

// The records below belong to a vehicle of the batch, by its place there; their own VehicleID is not set.

struct EntryItem {
    std::unique_ptr<CEntry> record;
    std::size_t vehicle = 0;
    bool isPartial = false; ///< the tank was not filled
    bool isMissed = false; ///< a fill before this one was not written down
    bool hasUnknownOdometer = false;
    bool lacksOdometer = false; ///< its record has none yet: it takes the last one before it
};

struct ReminderItem {
    std::unique_ptr<CNotification> record;
    std::size_t vehicle = 0;
};

struct Batch {
    std::vector<VehicleItem> vehicles;
    std::vector<EntryItem> entries;
    std::vector<ReminderItem> reminders;
    std::vector<std::unique_ptr<CKeyword>> keywords;
    std::vector<Fault> faults;
    /// The units of all its numbers; none where the file does not say.
    std::optional<UnitDistance> distance;
    std::optional<UnitVolume> volume;
};

/// What stands for "none" in a reminder by its date or its reading alone.
inline constexpr LONG NoOdometer = 2'000'000'000;
inline constexpr double NoDate = 2958465; // 31 December 9999

/// Moves what another batch has into this one, in whose units it is; vehicles of one name become one.
void Append(Batch* batch, Batch more);

/// A reading and its moment, as an OLE date.
struct Reading {
    double date;
    LONG odometer;
};
/// Gives entries of a vehicle that lack a reading the last one before them, else the first one behind, of those that
/// the batch and the log (`known`, in the same units) have.
void FillOdometers(Batch* batch, std::size_t vehicle, std::vector<Reading> known);

/// Of one unit, exactly.
double KilometresOf(UnitDistance unit);
double LitresOf(UnitVolume unit);
/// The nearest whole number that a reading can be.
LONG WholeReading(double reading);

/// Turns all numbers into other units with exact factors; readings are rounded to the nearest.
void ConvertUnits(Batch* batch, UnitDistance distance, UnitVolume volume);

} // namespace exchange
