#include "tally/log_batch.h"

#include "records/companion_tables.h"
#include "records/entry_filter.h"
#include "settings/app_settings.h"

#include <algorithm>
#include <tuple>

namespace tally {
namespace {

/// The fields that a vehicle's row has; the record itself stays with the log.
std::unique_ptr<CVehicle> CopyOf(const CVehicle& vehicle) {
    auto copy = std::make_unique<CVehicle>();
    copy->SetName(vehicle.GetName());
    copy->SetNotes(vehicle.GetNotes());
    copy->SetLicensePlate(vehicle.GetLicensePlate());
    copy->SetVIN(vehicle.GetVIN());
    copy->SetCurrentOdometer(vehicle.GetCurrentOdometer());
    copy->SetYear(vehicle.GetYear());
    copy->SetInsurancePolicyNumber(vehicle.GetInsurancePolicyNumber());
    copy->SetInsuranceAgentName(vehicle.GetInsuranceAgentName());
    copy->SetInsuranceAgentPhone(vehicle.GetInsuranceAgentPhone());
    copy->SetInsuranceCoverage(vehicle.GetInsuranceCoverage());
    copy->SetInsuranceExpirationDate(vehicle.GetInsuranceExpirationDate());
    copy->SetDealerName(vehicle.GetDealerName());
    copy->SetDealerPhone(vehicle.GetDealerPhone());
    copy->SetDealerAddress(vehicle.GetDealerAddress());
    return copy;
}

void AddEntries(const CVehicle& vehicle, const std::map<ULONG, CEntryMarks>& marks, exchange::Batch* batch) {
    CEntryFilter filter;
    filter.SetVehicleID(vehicle.GetRefID());
    CObjectListT<CEntry> entries;
    RequireLoaded(theDataLayer.Load(&entries, &filter));
    for (auto& entry : TakeRecords(&entries)) {
        exchange::EntryItem item{std::move(entry), batch->vehicles.size() - 1};
        if (const auto found = marks.find(item.record->GetRefID()); found != marks.end()) {
            item.isPartial = found->second.IsPartial;
            item.isMissed = found->second.IsMissed;
            item.hasUnknownOdometer = found->second.HasUnknownOdometer;
        }
        batch->entries.push_back(std::move(item));
    }
}

void AddReminders(const CVehicle& vehicle, exchange::Batch* batch) {
    CObjectListT<CNotification> reminders;
    RequireLoaded(theDataLayer.Load(&reminders, vehicle.GetRefID()));
    for (auto& reminder : TakeRecords(&reminders))
        batch->reminders.push_back({std::move(reminder), batch->vehicles.size() - 1});
}

/// By kind and name: their order in the file shows nowhere, and another file may have some of them already.
void AddKeywords(exchange::Batch* batch) {
    for (const CKeyword::Type type : {CKeyword::KeywordTripCategory, CKeyword::KeywordRepair, CKeyword::KeywordExpense,
             CKeyword::KeywordFuelVendor}) {
        CObjectListT<CKeyword> keywords;
        RequireLoaded(theDataLayer.Load(&keywords, type));
        for (auto& keyword : TakeRecords(&keywords))
            batch->keywords.push_back(std::move(keyword));
    }
    std::sort(batch->keywords.begin(), batch->keywords.end(), [](const auto& left, const auto& right) {
        const auto key = [](const CKeyword& keyword) {
            return std::tuple(keyword.GetType(), std::wstring(keyword.GetName()), std::wstring(keyword.GetNotes()));
        };
        return key(*left) < key(*right);
    });
}

} // namespace

exchange::Batch BatchOf(const std::vector<const CVehicle*>& vehicles, bool hasKeywords) {
    exchange::Batch batch;
    batch.distance = DistanceSetting();
    batch.volume = VolumeSetting();
    const std::map<ULONG, CEntryMarks> marks = LoadMarks();
    for (const CVehicle* vehicle : vehicles) {
        batch.vehicles.push_back({CopyOf(*vehicle), true, false, true});
        AddEntries(*vehicle, marks, &batch);
        AddReminders(*vehicle, &batch);
    }
    if (hasKeywords)
        AddKeywords(&batch);
    return batch;
}

std::map<ULONG, CEntryMarks> LoadMarks() {
    std::map<ULONG, CEntryMarks> marks;
    RequireLoaded(CCompanionTables::Load(&marks));
    return marks;
}

figures::FillMarks LoadFillMarks() {
    figures::FillMarks fills;
    for (const auto& [entry, marks] : LoadMarks()) {
        if (marks.IsPartial)
            fills.partial.insert(entry);
        if (marks.IsMissed)
            fills.missed.insert(entry);
        if (marks.HasUnknownOdometer)
            fills.unknownOdometer.insert(entry);
    }
    return fills;
}

std::optional<UnitDistance> DistanceSetting() {
    const int unit = theSettings.UnitDistance;
    const bool isKnown = unit >= DistanceMiles && unit <= DistanceKilometres;
    return isKnown ? std::optional{static_cast<UnitDistance>(unit)} : std::nullopt;
}

std::optional<UnitVolume> VolumeSetting() {
    const int unit = theSettings.UnitVolume;
    const bool isKnown = unit >= VolumeGallonsUS && unit <= VolumeLitres;
    return isKnown ? std::optional{static_cast<UnitVolume>(unit)} : std::nullopt;
}

} // namespace tally
