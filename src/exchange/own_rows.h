#pragma once

#include "exchange/batch.h"

#include <array>
#include <functional>
#include <map>
#include <utility>

/// Our own form of a log: one row a record, of texts that mean the same everywhere. CSV and JSON files hold the same
/// rows.
namespace exchange {

enum class Column {
    Record, ///< vehicle, fuel, repair, trip, expense, reminder, a kind of keyword; or the number of an unknown kind
    Vehicle, ///< its name
    VehicleNumber, ///< from 1, which tells vehicles of one name apart
    Date,
    Odometer,
    Total,
    Volume,
    Price,
    Start,
    End,
    Name,
    Vendor,
    Notes,
    Marks, ///< partial, missed, unknown-odometer
    LicensePlate,
    Vin,
    Year,
    InsurancePolicy,
    InsuranceAgent,
    InsurancePhone,
    InsuranceCoverage,
    InsuranceExpires,
    DealerName,
    DealerPhone,
    DealerAddress,
    Count,
};
inline constexpr auto ColumnCount = static_cast<std::size_t>(Column::Count);

const char* NameOf(Column column);
/// Whether its cells are plain numbers.
bool IsNumber(Column column);

class OwnRow {
public:
    std::string& operator[](Column column) { return cells_[static_cast<std::size_t>(column)]; }
    const std::string& operator[](Column column) const { return cells_[static_cast<std::size_t>(column)]; }

private:
    std::array<std::string, ColumnCount> cells_;
};

/// Such as "km" and "usgal"; empty for a unit that there is not.
const char* NameOf(std::optional<UnitDistance> unit);
const char* NameOf(std::optional<UnitVolume> unit);
std::optional<UnitDistance> DistanceNamed(std::string_view name);
std::optional<UnitVolume> VolumeNamed(std::string_view name);

/// All records of a batch: the vehicles, then what belongs to each, then the keywords.
void WriteRows(const Batch& batch, const std::function<void(const OwnRow& row)>& write);

/// Puts rows into a batch, in any order.
class OwnRowReader {
public:
    explicit OwnRowReader(Batch* batch)
        : batch_(*batch) { }

    /// What cannot be understood becomes a fault; `cellOf` tells where a column stands in the file.
    void Read(const OwnRow& row, int line, const std::function<int(Column column)>& cellOf);

private:
    void ReadRecord(const OwnRow& row);
    void ReadVehicle(const OwnRow& row);
    void ReadEntry(const OwnRow& row, CEntry::Type type);
    void ReadReminder(const OwnRow& row);
    void ReadKeyword(const OwnRow& row, CKeyword::Type type);
    std::size_t VehicleOf(const OwnRow& row);

    Batch& batch_;
    std::map<std::pair<std::string, std::string>, std::size_t> vehicles_; ///< by number and name
};

} // namespace exchange
