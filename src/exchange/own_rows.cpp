#include "exchange/own_rows.h"

#include "exchange/plain_text.h"
#include "platform/utf8.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sstream>

namespace exchange {
namespace {

constexpr const char* ColumnNames[ColumnCount]
    = {"record", "vehicle", "vehicle_number", "date", "odometer", "total", "volume", "price", "start", "end", "name",
        "vendor", "notes", "marks", "license_plate", "vin", "year", "insurance_policy", "insurance_agent",
        "insurance_phone", "insurance_coverage", "insurance_expires", "dealer_name", "dealer_phone", "dealer_address"};

constexpr const char* DistanceNames[] = {"mi", "km"};
constexpr const char* VolumeNames[] = {"usgal", "ukgal", "l"};

constexpr const char* VehicleRecord = "vehicle";
constexpr const char* ReminderRecord = "reminder";
constexpr const char* EntryRecords[] = {"", "fuel", "repair", "trip", "expense"};
constexpr const char* KeywordRecords[]
    = {"", "trip category", "repair description", "expense description", "fuel vendor"};
/// Before the number of a kind of keyword that there is not.
constexpr const char* KeywordPrefix = "keyword ";

constexpr const char* PartialMark = "partial";
constexpr const char* MissedMark = "missed";
constexpr const char* UnknownOdometerMark = "unknown-odometer";

template <typename Record> struct TextField {
    Column column;
    const wchar_t* (Record::*get)() const;
    void (Record::*set)(const wchar_t* text);
};

constexpr TextField<CVehicle> VehicleTexts[] = {{Column::Notes, &CVehicle::GetNotes, &CVehicle::SetNotes},
    {Column::LicensePlate, &CVehicle::GetLicensePlate, &CVehicle::SetLicensePlate},
    {Column::Vin, &CVehicle::GetVIN, &CVehicle::SetVIN},
    {Column::InsurancePolicy, &CVehicle::GetInsurancePolicyNumber, &CVehicle::SetInsurancePolicyNumber},
    {Column::InsuranceAgent, &CVehicle::GetInsuranceAgentName, &CVehicle::SetInsuranceAgentName},
    {Column::InsurancePhone, &CVehicle::GetInsuranceAgentPhone, &CVehicle::SetInsuranceAgentPhone},
    {Column::InsuranceCoverage, &CVehicle::GetInsuranceCoverage, &CVehicle::SetInsuranceCoverage},
    {Column::DealerName, &CVehicle::GetDealerName, &CVehicle::SetDealerName},
    {Column::DealerPhone, &CVehicle::GetDealerPhone, &CVehicle::SetDealerPhone},
    {Column::DealerAddress, &CVehicle::GetDealerAddress, &CVehicle::SetDealerAddress}};
constexpr TextField<CEntry> EntryTexts[] = {{Column::Name, &CEntry::GetName, &CEntry::SetName},
    {Column::Vendor, &CEntry::GetVendor, &CEntry::SetVendor}, {Column::Notes, &CEntry::GetNotes, &CEntry::SetNotes}};

template <typename Record, typename Fields> void WriteTexts(const Record& record, const Fields& fields, OwnRow* row) {
    for (const auto& field : fields)
        (*row)[field.column] = device::ToUtf8((record.*field.get)());
}

template <typename Record, typename Fields> void ReadTexts(const OwnRow& row, const Fields& fields, Record* record) {
    for (const auto& field : fields)
        (record->*field.set)(device::FromUtf8(row[field.column]).c_str());
}

/// A kind by its name, or where it has none by its number behind `prefix`.
template <std::size_t count>
std::string KindText(const char* const (&names)[count], const std::string& prefix, int kind) {
    return kind > 0 && kind < static_cast<int>(count) ? names[kind] : prefix + std::to_string(kind);
}

std::optional<LONG> ReadWhole(const std::string& text) {
    using Limits = std::numeric_limits<LONG>;
    if (text.empty() || text.find_first_not_of("-0123456789") != std::string::npos)
        return std::nullopt;
    char* end = nullptr;
    const long long value = std::strtoll(text.c_str(), &end, 10); // beyond its range the nearest
    const bool isGood = *end == '\0' && value >= Limits::min() && value <= Limits::max();
    return isGood ? std::optional{static_cast<LONG>(value)} : std::nullopt;
}

/// 0 for what is no kind.
template <std::size_t count>
int KindNamed(const char* const (&names)[count], const std::string& prefix, const std::string& name) {
    for (std::size_t kind = 1; kind < count; ++kind)
        if (name == names[kind])
            return static_cast<int>(kind);
    return name.rfind(prefix, 0) == 0 ? ReadWhole(name.substr(prefix.size())).value_or(0) : 0;
}

std::optional<float> ReadFloat(const std::string& text) {
    if (text == "inf" || text == "-inf")
        return text == "inf" ? HUGE_VALF : -HUGE_VALF;
    if (text.empty() || text.find_first_not_of("+-.0123456789eE") != std::string::npos)
        return std::nullopt;
    char* end = nullptr;
    const float value = std::strtof(text.c_str(), &end);
    return *end == '\0' && std::isfinite(value) ? std::optional{value} : std::nullopt;
}

/// A calendar's date; or the bare number that stands for one with a part of a second.
std::optional<double> ReadDate(const std::string& text) {
    std::optional<double> date = ReadPlainDate(text);
    if (!date && !text.empty() && text.find_first_not_of("-.0123456789e+") == std::string::npos) {
        char* end = nullptr;
        const double value = std::strtod(text.c_str(), &end);
        if (*end == '\0')
            date = value;
    }
    return date && CanBeShown(*date) ? date : std::nullopt;
}

/// Ends the reading of a row.
struct Broken {
    Column column;
    std::string reason;
};

template <typename Value>
Value Needed(const OwnRow& row, Column column, const std::optional<Value>& value, const char* wanted) {
    if (!value)
        throw Broken{column, '"' + row[column] + "\" is no " + wanted};
    return *value;
}

double NeededDate(const OwnRow& row, Column column) {
    return Needed(row, column, ReadDate(row[column]), "date as 2026-03-01");
}

LONG Whole(const OwnRow& row, Column column) {
    return Needed(row, column, ReadWhole(row[column]), "whole number");
}

LONG WholeOr(const OwnRow& row, Column column, LONG otherwise) {
    return row[column].empty() ? otherwise : Whole(row, column);
}

float FloatOr(const OwnRow& row, Column column, float otherwise) {
    return row[column].empty() ? otherwise : Needed(row, column, ReadFloat(row[column]), "number as 12.5");
}

std::string MarksText(const EntryItem& item) {
    std::string text;
    const auto add = [&](bool isSet, const char* mark) {
        if (isSet)
            text += (text.empty() ? "" : " ") + std::string(mark);
    };
    add(item.isPartial, PartialMark);
    add(item.isMissed, MissedMark);
    add(item.hasUnknownOdometer, UnknownOdometerMark);
    return text;
}

void ReadMarks(const OwnRow& row, EntryItem* item) {
    std::istringstream words(row[Column::Marks]);
    for (std::string word; words >> word;)
        if (word == PartialMark)
            item->isPartial = true;
        else if (word == MissedMark)
            item->isMissed = true;
        else if (word == UnknownOdometerMark)
            item->hasUnknownOdometer = true;
        else
            throw Broken{Column::Marks, '"' + word + "\" is no mark"};
}

class Writer {
public:
    Writer(const Batch& batch, const std::function<void(const OwnRow& row)>& write)
        : batch_(batch)
        , write_(write) { }

    void WriteAll() {
        for (std::size_t vehicle = 0; vehicle < batch_.vehicles.size(); ++vehicle)
            if (!batch_.vehicles[vehicle].isInLog)
                WriteVehicle(vehicle);
        for (const EntryItem& item : batch_.entries)
            WriteEntry(item);
        for (const ReminderItem& item : batch_.reminders)
            WriteReminder(item);
        for (const auto& keyword : batch_.keywords)
            WriteKeyword(*keyword);
    }

private:
    OwnRow RowOf(std::size_t vehicle) const {
        OwnRow row;
        row[Column::Vehicle] = device::ToUtf8(batch_.vehicles[vehicle].record->GetName());
        row[Column::VehicleNumber] = std::to_string(vehicle + 1);
        return row;
    }

    void WriteVehicle(std::size_t place) {
        const CVehicle& vehicle = *batch_.vehicles[place].record;
        OwnRow row = RowOf(place);
        row[Column::Record] = VehicleRecord;
        if (batch_.vehicles[place].hasOdometer)
            row[Column::Odometer] = std::to_string(vehicle.GetCurrentOdometer());
        row[Column::Year] = std::to_string(vehicle.GetYear());
        row[Column::InsuranceExpires] = PlainDate(vehicle.GetInsuranceExpirationDate());
        WriteTexts(vehicle, VehicleTexts, &row);
        write_(row);
    }

    void WriteEntry(const EntryItem& item) {
        const CEntry& entry = *item.record;
        const bool isTrip = entry.GetType() == CEntry::EntryTypeTrip;
        const bool isFuel = entry.GetType() == CEntry::EntryTypeFuel;
        OwnRow row = RowOf(item.vehicle);
        row[Column::Record] = KindText(EntryRecords, "", entry.GetType());
        row[Column::Date] = PlainDate(entry.GetDate());
        row[Column::Odometer] = std::to_string(entry.GetOdometer());
        row[Column::Total] = PlainNumber(entry.GetAmount());
        if (isTrip || isFuel || entry.GetCustom1() != 0)
            row[isTrip ? Column::Start : Column::Volume] = PlainNumber(entry.GetCustom1());
        if (isTrip || isFuel || entry.GetCustom2() != 0)
            row[isTrip ? Column::End : Column::Price] = PlainNumber(entry.GetCustom2());
        row[Column::Marks] = MarksText(item);
        WriteTexts(entry, EntryTexts, &row);
        write_(row);
    }

    void WriteReminder(const ReminderItem& item) {
        OwnRow row = RowOf(item.vehicle);
        row[Column::Record] = ReminderRecord;
        row[Column::Date] = PlainDate(item.record->GetDate());
        row[Column::Odometer] = std::to_string(item.record->GetOdometer());
        row[Column::Name] = device::ToUtf8(item.record->GetName());
        row[Column::Notes] = device::ToUtf8(item.record->GetNotes());
        write_(row);
    }

    void WriteKeyword(const CKeyword& keyword) {
        OwnRow row;
        row[Column::Record] = KindText(KeywordRecords, KeywordPrefix, keyword.GetType());
        row[Column::Name] = device::ToUtf8(keyword.GetName());
        row[Column::Notes] = device::ToUtf8(keyword.GetNotes());
        write_(row);
    }

    const Batch& batch_;
    const std::function<void(const OwnRow& row)>& write_;
};

} // namespace

const char* NameOf(Column column) {
    return ColumnNames[static_cast<std::size_t>(column)];
}

bool IsNumber(Column column) {
    switch (column) {
    case Column::VehicleNumber:
    case Column::Odometer:
    case Column::Total:
    case Column::Volume:
    case Column::Price:
    case Column::Start:
    case Column::End:
    case Column::Year:
        return true;
    default:
        return false;
    }
}

const char* NameOf(std::optional<UnitDistance> unit) {
    return unit && *unit >= DistanceMiles && *unit <= DistanceKilometres ? DistanceNames[*unit] : "";
}

const char* NameOf(std::optional<UnitVolume> unit) {
    return unit && *unit >= VolumeGallonsUS && *unit <= VolumeLitres ? VolumeNames[*unit] : "";
}

std::optional<UnitDistance> DistanceNamed(std::string_view name) {
    for (const UnitDistance unit : {DistanceMiles, DistanceKilometres})
        if (name == NameOf(unit))
            return unit;
    return std::nullopt;
}

std::optional<UnitVolume> VolumeNamed(std::string_view name) {
    for (const UnitVolume unit : {VolumeGallonsUS, VolumeGallonsUK, VolumeLitres})
        if (name == NameOf(unit))
            return unit;
    return std::nullopt;
}

void WriteRows(const Batch& batch, const std::function<void(const OwnRow& row)>& write) {
    Writer(batch, write).WriteAll();
}

void OwnRowReader::Read(const OwnRow& row, int line, const std::function<int(Column column)>& cellOf) {
    try {
        ReadRecord(row);
    } catch (const Broken& broken) {
        batch_.faults.push_back({line, cellOf(broken.column), broken.reason});
    }
}

void OwnRowReader::ReadRecord(const OwnRow& row) {
    const std::string& record = row[Column::Record];
    if (record == VehicleRecord)
        ReadVehicle(row);
    else if (record == ReminderRecord)
        ReadReminder(row);
    else if (const int type = KindNamed(EntryRecords, "", record))
        ReadEntry(row, static_cast<CEntry::Type>(type));
    else if (const int list = KindNamed(KeywordRecords, KeywordPrefix, record))
        ReadKeyword(row, static_cast<CKeyword::Type>(list));
    else
        throw Broken{Column::Record, '"' + record + "\" is no kind of record"};
}

std::size_t OwnRowReader::VehicleOf(const OwnRow& row) {
    const std::string& name = row[Column::Vehicle];
    const auto [found, isNew] = vehicles_.try_emplace({row[Column::VehicleNumber], name}, batch_.vehicles.size());
    if (isNew) {
        VehicleItem item{std::make_unique<CVehicle>()};
        item.record->SetName(device::FromUtf8(name).c_str());
        item.isNamed = !name.empty() || !row[Column::VehicleNumber].empty();
        batch_.vehicles.push_back(std::move(item));
    }
    return found->second;
}

void OwnRowReader::ReadVehicle(const OwnRow& row) {
    const LONG odometer = WholeOr(row, Column::Odometer, 0);
    const LONG year = WholeOr(row, Column::Year, 0);
    const bool hasDate = !row[Column::InsuranceExpires].empty();
    const double expires = hasDate ? NeededDate(row, Column::InsuranceExpires) : 0;
    VehicleItem& item = batch_.vehicles[VehicleOf(row)];
    item.hasOdometer = !row[Column::Odometer].empty();
    item.record->SetCurrentOdometer(odometer);
    item.record->SetYear(year);
    if (hasDate)
        item.record->SetInsuranceExpirationDate(expires);
    ReadTexts(row, VehicleTexts, item.record.get());
}

void OwnRowReader::ReadEntry(const OwnRow& row, CEntry::Type type) {
    const bool isTrip = type == CEntry::EntryTypeTrip;
    EntryItem item{std::make_unique<CEntry>()};
    item.record->SetType(type);
    item.record->SetDate(NeededDate(row, Column::Date));
    item.record->SetOdometer(Whole(row, Column::Odometer));
    item.record->SetAmount(FloatOr(row, Column::Total, 0));
    item.record->SetCustom1(FloatOr(row, isTrip ? Column::Start : Column::Volume, 0));
    item.record->SetCustom2(FloatOr(row, isTrip ? Column::End : Column::Price, 0));
    ReadMarks(row, &item);
    ReadTexts(row, EntryTexts, item.record.get());
    item.vehicle = VehicleOf(row);
    batch_.entries.push_back(std::move(item));
}

void OwnRowReader::ReadReminder(const OwnRow& row) {
    ReminderItem item{std::make_unique<CNotification>()};
    item.record->SetDate(row[Column::Date].empty() ? NoDate : NeededDate(row, Column::Date));
    item.record->SetOdometer(WholeOr(row, Column::Odometer, NoOdometer));
    item.record->SetName(device::FromUtf8(row[Column::Name]).c_str());
    item.record->SetNotes(device::FromUtf8(row[Column::Notes]).c_str());
    item.vehicle = VehicleOf(row);
    batch_.reminders.push_back(std::move(item));
}

void OwnRowReader::ReadKeyword(const OwnRow& row, CKeyword::Type type) {
    auto keyword = std::make_unique<CKeyword>();
    keyword->SetType(type);
    keyword->SetName(device::FromUtf8(row[Column::Name]).c_str());
    keyword->SetNotes(device::FromUtf8(row[Column::Notes]).c_str());
    batch_.keywords.push_back(std::move(keyword));
}

} // namespace exchange
