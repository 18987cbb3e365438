#include "units/record_text.h"

#include "records/entry.h"
#include "records/vehicle.h"
#include "units/number_text.h"
#include "units/units.h"

namespace {

std::wstring FuelText(const CEntry& fill) {
    const float quantity = fill.GetCustom1();
    const float unitPrice = fill.GetCustom2();
    return NumberText(quantity, true, false) + L" " + VolumeUnitName(true, true) + L" @ "
        + NumberText(unitPrice, true, true);
}

} // namespace

std::wstring VehicleTitleText(const CVehicle* vehicle) {
    if (!vehicle)
        return {};
    return std::wstring(vehicle->GetName()) + L" (" + std::to_wstring(vehicle->GetYear()) + L")";
}

std::wstring EntrySummaryText(const CEntry* entry) {
    if (!entry)
        return {};
    std::wstring text = entry->GetType() == CEntry::EntryTypeFuel ? FuelText(*entry) : entry->GetName();
    if (entry->GetVendor()[0] != L'\0')
        text += std::wstring(L" (") + entry->GetVendor() + L")";
    return text;
}
