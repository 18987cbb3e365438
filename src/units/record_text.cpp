#include "units/record_text.h"

#include "records/entry.h"
#include "records/vehicle.h"
#include "units/number_text.h"
#include "units/units.h"

namespace {

std::wstring TextOf(const wchar_t* text) {
    return text ? text : L"";
}

} // namespace

std::wstring VehicleTitleText(const CVehicle* vehicle) {
    if (!vehicle)
        return {};
    return TextOf(vehicle->GetName()) + L" (" + std::to_wstring(vehicle->GetYear()) + L")";
}

std::wstring EntrySummaryText(const CEntry* entry) {
    if (!entry)
        return {};
    const std::wstring vendor = TextOf(entry->GetVendor());
    std::wstring text = entry->GetType() == CEntry::EntryTypeFuel ? NumberText(entry->GetCustom1(), true, false) + L" "
            + VolumeUnitName(true, true) + L" @ " + NumberText(entry->GetCustom2(), true, true)
                                                                  : TextOf(entry->GetName());
    if (!vendor.empty())
        text += L" (" + vendor + L")";
    return text;
}
