#pragma once

#include <functional>
#include <string>
#include <string_view>

class CEntry;
class CVehicle;

/// A vehicle as a heading, such as "Roadster (2007)". Empty without a vehicle.
std::wstring VehicleTitleText(const CVehicle* vehicle);
/// One line that describes a log entry, such as "12.50 gal @ $3.10 (Acme)" or "Oil change (Acme)". Empty without an
/// entry.
std::wstring EntrySummaryText(const CEntry* entry);
/// The same piece by piece, as far as `take` answers true: a reader that knows enough spares the making of the rest.
/// `volumeUnit` is VolumeUnitName(true, true).
void ReadEntrySummary(
    const CEntry& entry, std::wstring_view volumeUnit, const std::function<bool(std::wstring_view piece)>& take);
