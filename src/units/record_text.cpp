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

void ReadEntrySummary(
    const CEntry& entry, std::wstring_view volumeUnit, const std::function<bool(std::wstring_view piece)>& take) {
    const bool goesOn = entry.GetType() == CEntry::EntryTypeFuel ? take(NumberText(entry.GetCustom1(), true, false))
            && take(L" ") && take(volumeUnit) && take(L" @ ") && take(NumberText(entry.GetCustom2(), true, true))
                                                                 : take(entry.GetName());
    if (goesOn && entry.GetVendor()[0] != L'\0')
        static_cast<void>(take(L" (") && take(entry.GetVendor()) && take(L")"));
}

std::wstring EntrySummaryText(const CEntry* entry) {
    std::wstring text;
    if (entry) {
        ReadEntrySummary(*entry, VolumeUnitName(true, true), [&text](std::wstring_view piece) {
            text += piece;
            return true;
        });
    }
    return text;
}
