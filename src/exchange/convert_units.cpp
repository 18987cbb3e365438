#include "exchange/batch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace exchange {
namespace {

void ConvertDistance(CEntry* entry, double factor) {
    entry->SetOdometer(WholeReading(entry->GetOdometer() * factor));
    if (entry->GetType() != CEntry::EntryTypeTrip)
        return;
    entry->SetCustom1(static_cast<float>(std::round(double{entry->GetCustom1()} * factor)));
    entry->SetCustom2(static_cast<float>(std::round(double{entry->GetCustom2()} * factor)));
}

void ConvertVolume(CEntry* entry, double factor) {
    if (entry->GetType() != CEntry::EntryTypeFuel)
        return;
    entry->SetCustom1(static_cast<float>(double{entry->GetCustom1()} * factor));
    entry->SetCustom2(static_cast<float>(double{entry->GetCustom2()} / factor));
}

} // namespace

double KilometresOf(UnitDistance unit) {
    constexpr double Mile = 1.609344;
    return unit == DistanceMiles ? Mile : 1;
}

double LitresOf(UnitVolume unit) {
    constexpr double GallonUS = 3.785411784;
    constexpr double GallonUK = 4.54609;
    if (unit == VolumeLitres)
        return 1;
    return unit == VolumeGallonsUS ? GallonUS : GallonUK;
}

LONG WholeReading(double reading) {
    using Limits = std::numeric_limits<LONG>;
    return static_cast<LONG>(std::clamp(std::round(reading), double{Limits::min()}, double{Limits::max()}));
}

void ConvertUnits(Batch* batch, UnitDistance distance, UnitVolume volume) {
    if (batch->distance && *batch->distance != distance) {
        const double factor = KilometresOf(*batch->distance) / KilometresOf(distance);
        for (const VehicleItem& vehicle : batch->vehicles)
            vehicle.record->SetCurrentOdometer(WholeReading(vehicle.record->GetCurrentOdometer() * factor));
        for (const EntryItem& entry : batch->entries)
            ConvertDistance(entry.record.get(), factor);
        for (const ReminderItem& reminder : batch->reminders)
            if (reminder.record->GetOdometer() < NoOdometer)
                reminder.record->SetOdometer(WholeReading(reminder.record->GetOdometer() * factor));
    }
    if (batch->volume && *batch->volume != volume)
        for (const EntryItem& entry : batch->entries)
            ConvertVolume(entry.record.get(), LitresOf(*batch->volume) / LitresOf(volume));
    batch->distance = distance;
    batch->volume = volume;
}

} // namespace exchange
