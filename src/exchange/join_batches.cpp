#include "exchange/batch.h"
#include "records/record_dates.h"

#include <algorithm>
#include <cwchar>
#include <iterator>
#include <limits>

namespace exchange {
namespace {

template <typename Items> void MoveTo(Items* items, Items* more) {
    items->insert(items->end(), std::make_move_iterator(more->begin()), std::make_move_iterator(more->end()));
}

/// More than what it is called.
bool HasDetails(const CVehicle& vehicle) {
    return vehicle.GetYear() != 0
        || std::wcslen(vehicle.GetNotes()) + std::wcslen(vehicle.GetLicensePlate()) + std::wcslen(vehicle.GetVIN()) > 0;
}

/// Where a vehicle stands among the first ones of the batch, by its name; else it is moved there.
std::size_t PlaceOf(Batch* batch, std::size_t firstOnes, VehicleItem vehicle) {
    for (std::size_t place = 0; place < firstOnes; ++place) {
        VehicleItem& item = batch->vehicles[place];
        if (item.isNamed != vehicle.isNamed || std::wstring(item.record->GetName()) != vehicle.record->GetName())
            continue;
        if (!HasDetails(*item.record))
            item = std::move(vehicle);
        return place;
    }
    batch->vehicles.push_back(std::move(vehicle));
    return batch->vehicles.size() - 1;
}

} // namespace

void Append(Batch* batch, Batch more) {
    std::vector<std::size_t> places;
    const std::size_t before = batch->vehicles.size();
    for (VehicleItem& vehicle : more.vehicles)
        places.push_back(PlaceOf(batch, before, std::move(vehicle)));
    for (EntryItem& entry : more.entries)
        entry.vehicle = places[entry.vehicle];
    for (ReminderItem& reminder : more.reminders)
        reminder.vehicle = places[reminder.vehicle];
    MoveTo(&batch->entries, &more.entries);
    MoveTo(&batch->reminders, &more.reminders);
    MoveTo(&batch->keywords, &more.keywords);
    MoveTo(&batch->faults, &more.faults);
    batch->distance = more.distance;
    batch->volume = more.volume;
}

void FillOdometers(Batch* batch, std::size_t vehicle, std::vector<Reading> known) {
    const auto isOfIt = [&](const EntryItem& item) { return item.vehicle == vehicle && item.record; };
    for (const EntryItem& item : batch->entries)
        if (isOfIt(item) && !item.hasUnknownOdometer)
            known.push_back({item.record->GetDate(), item.record->GetOdometer()});
    // At one moment the lowest reading is the oldest.
    const auto isEarlier = [](const Reading& left, const Reading& right) {
        const double leftDate = LinearFromOleDate(left.date);
        const double rightDate = LinearFromOleDate(right.date);
        return leftDate < rightDate || (leftDate == rightDate && left.odometer < right.odometer);
    };
    std::sort(known.begin(), known.end(), isEarlier);
    for (EntryItem& item : batch->entries) {
        if (!isOfIt(item) || !item.lacksOdometer || known.empty())
            continue;
        const Reading moment{item.record->GetDate(), std::numeric_limits<LONG>::max()};
        const auto behind = std::upper_bound(known.begin(), known.end(), moment, isEarlier);
        item.record->SetOdometer(behind == known.begin() ? behind->odometer : std::prev(behind)->odometer);
        item.lacksOdometer = false;
    }
}

} // namespace exchange
