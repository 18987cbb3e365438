#include "units/record_text.h"

#include "records/entry.h"
#include "records/vehicle.h"
#include "units/number_text.h"
#include "units/units.h"

std::wstring VehicleTitleText(const CVehicle* vehicle) {
    if (!vehicle)
        return {};
    return std::wstring(vehicle->GetName()) + L" (" + std::to_wstring(vehicle->GetYear()) + L")";
}

void AppendEntrySummary(const CEntry* entry, std::wstring* text) {
    if (!entry)
        return;
    if (entry->GetType() == CEntry::EntryTypeFuel) {
        *text += NumberText(entry->GetCustom1(), true, false);
        *text += L' ';
        *text += VolumeUnitName(true, true);
        *text += L" @ ";
        *text += NumberText(entry->GetCustom2(), true, true);
    } else {
        *text += entry->GetName();
    }
    if (entry->GetVendor()[0] == L'\0')
        return;
    *text += L" (";
    *text += entry->GetVendor();
    *text += L')';
}

std::wstring EntrySummaryText(const CEntry* entry) {
    std::wstring text;
    AppendEntrySummary(entry, &text);
    return text;
}
