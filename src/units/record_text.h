#pragma once

#include <string>

class CEntry;
class CVehicle;

/// A vehicle as a heading, such as "Roadster (2007)". Empty without a vehicle.
std::wstring VehicleTitleText(const CVehicle* vehicle);
/// One line that describes a log entry, such as "12.50 gal @ $3.10 (Acme)" or "Oil change (Acme)". Empty without an
/// entry.
std::wstring EntrySummaryText(const CEntry* entry);
