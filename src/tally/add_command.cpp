#include "platform/utf8.h"
#include "records/record_dates.h"
#include "resources/load_text.h"
#include "resources/string_ids.h"
#include "tally/commands.h"
#include "tally/failure.h"
#include "tally/log_entries.h"
#include "tally/open_log.h"
#include "tally/store_batch.h"
#include "tally/transact.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <sysexits.h>

namespace tally {
namespace {

CEntry::Type TypeOf(const std::string& kind) {
    for (const CEntry::Type type : {CEntry::EntryTypeFuel, CEntry::EntryTypeRepair, CEntry::EntryTypeTrip})
        if (kind == KindName(type))
            return type;
    return CEntry::EntryTypeExpense;
}

/// A reading, or behind a plus the way from `last`; that itself where nothing was typed.
LONG Reading(const std::string& typed, LONG last) {
    if (typed.empty())
        return last;
    const bool isWay = typed.front() == '+';
    const std::string digits = typed.substr(isWay ? 1 : 0);
    constexpr std::size_t MostDigits = 10;
    if (digits.empty() || digits.size() > MostDigits || digits.find_first_not_of("0123456789") != std::string::npos)
        throw Failure(EX_USAGE, "\"" + typed + "\" is no reading as 12345, and no way as +312");
    const LONGLONG reading = std::strtoll(digits.c_str(), nullptr, 10) + (isWay ? last : 0);
    if (reading > std::numeric_limits<LONG>::max())
        throw Failure(EX_USAGE, "the reading " + std::to_string(reading) + " is too large");
    return static_cast<LONG>(reading);
}

float Number(double value) {
    const auto number = static_cast<float>(value);
    if (!std::isfinite(number))
        throw Failure(EX_USAGE, "a number is too large");
    return number;
}

/// Of price, volume and total any two give the third, as the form's Calculate has it.
void FillFuel(const NewEntry& typed, CEntry* entry) {
    const int given = (typed.price ? 1 : 0) + (typed.volume ? 1 : 0) + (typed.total ? 1 : 0);
    if (given < 2)
        throw Failure(EX_USAGE, "fuel takes two of --price, --volume and --total");
    float price = Number(typed.price.value_or(0));
    float volume = Number(typed.volume.value_or(0));
    float total = Number(typed.total.value_or(0));
    if (!typed.price && volume > 0)
        price = total / volume;
    else if (!typed.volume && price > 0)
        volume = total / price;
    else if (!typed.total)
        total = price * volume;
    entry->SetCustom1(Number(double{volume}));
    entry->SetCustom2(Number(double{price}));
    entry->SetAmount(Number(double{total}));
}

void FillTrip(const NewEntry& typed, LONG last, CEntry* entry) {
    const LONG start = Reading(typed.start, last);
    const LONG end = Reading(typed.end.empty() ? typed.odometer : typed.end, typed.end.empty() ? last : start);
    if (start > end)
        throw Failure(EX_USAGE, device::ToUtf8(LoadText(strings::EndOdometerBelowStart)));
    entry->SetOdometer(end);
    entry->SetCustom1(static_cast<float>(start));
    entry->SetCustom2(static_cast<float>(end));
}

/// By the rules of the forms.
void Fill(const NewEntry& typed, const CVehicle& vehicle, CEntry* entry) {
    const CEntry::Type type = TypeOf(typed.kind);
    const LONG last = vehicle.GetCurrentOdometer();
    if (type != CEntry::EntryTypeFuel && typed.name.empty())
        throw Failure(EX_USAGE, device::ToUtf8(LoadText(strings::DescriptionRequired)) + " (--name)");
    entry->SetType(type);
    entry->SetVehicleID(vehicle.GetRefID());
    entry->SetDate(typed.date.value_or(TodayDate()));
    entry->SetName(device::FromUtf8(typed.name).c_str());
    entry->SetVendor(device::FromUtf8(typed.vendor).c_str());
    entry->SetNotes(device::FromUtf8(typed.notes).c_str());
    entry->SetOdometer(Reading(typed.odometer, last));
    if (type == CEntry::EntryTypeFuel)
        FillFuel(typed, entry);
    else
        entry->SetAmount(Number(typed.total.value_or(0)));
    if (type == CEntry::EntryTypeTrip)
        FillTrip(typed, last, entry);
}

} // namespace

int Add(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    const CVehicle& chosen = log.TheOne(request.vehicle);
    CEntry entry;
    Transact([&] {
        // Anew, since another program may have added an entry meanwhile.
        CObjectListT<CVehicle> vehicles;
        RequireLoaded(theDataLayer.Load(&vehicles));
        for (int i = 0; i < vehicles.GetCount(); ++i)
            if (CVehicle* vehicle = vehicles.Get(i); vehicle->GetRefID() == chosen.GetRefID()) {
                Fill(request.entry, *vehicle, &entry);
                RequireStored(theDataLayer.Save(&entry, 0));
                RaiseOdometer(vehicle);
                return true;
            }
        throw Failure(EX_TEMPFAIL, "another program has just deleted the vehicle");
    });
    surroundings.tellProgram();
    return EX_OK;
}

} // namespace tally
