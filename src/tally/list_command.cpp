#include "exchange/plain_text.h"
#include "platform/utf8.h"
#include "tally/commands.h"
#include "tally/log_entries.h"
#include "tally/log_tables.h"
#include "tally/open_log.h"
#include "units/date_text.h"
#include "units/number_text.h"
#include "units/record_text.h"

#include <sysexits.h>

namespace tally {
namespace {

Table MakeTable(bool hasSeveralVehicles) {
    using For = Table::For;
    return Table({{"vehicle", L"Vehicle", false, hasSeveralVehicles ? For::All : For::Programs},
        {"date", L"Date", true}, {"kind", L"Kind"}, {"odometer", L"Odometer", true},
        {"entry", L"Entry", false, For::People}, {"total", L"Amount", true}, {"volume", L"", true, For::Programs},
        {"price", L"", true, For::Programs}, {"start", L"", true, For::Programs}, {"name", L"", false, For::Programs},
        {"vendor", L"", false, For::Programs}, {"notes", L"", false, For::Programs}});
}

Cell DateCell(double date) {
    return {DateText(date), exchange::PlainDate(date)};
}

void AddEntry(const CVehicle& vehicle, const CEntry& entry, Table* table) {
    const bool isFuel = entry.GetType() == CEntry::EntryTypeFuel;
    const bool isTrip = entry.GetType() == CEntry::EntryTypeTrip;
    table->Add({TextCell(vehicle.GetName()), DateCell(entry.GetDate()),
        TextCell(device::FromUtf8(KindName(entry.GetType()))),
        WholeCell(NumberText(static_cast<float>(entry.GetOdometer()), false, false), entry.GetOdometer()),
        {EntrySummaryText(&entry), {}}, NumberCell(NumberText(entry.GetAmount(), true, true), entry.GetAmount()),
        isFuel ? NumberCell(L"", entry.GetCustom1()) : Cell(), isFuel ? NumberCell(L"", entry.GetCustom2()) : Cell(),
        isTrip ? WholeCell(L"", WholeNumber(entry.GetCustom1())) : Cell(), {L"", device::ToUtf8(entry.GetName())},
        {L"", device::ToUtf8(entry.GetVendor())}, {L"", device::ToUtf8(entry.GetNotes())}});
}

} // namespace

Table EntryTable(const std::vector<const CVehicle*>& vehicles, const Request& request) {
    Table table = MakeTable(vehicles.size() > 1);
    for (const CVehicle* vehicle : vehicles) {
        const CEntryFilter filter = FilterOf(*vehicle, request);
        CObjectListT<CEntry> entries;
        RequireLoaded(theDataLayer.Load(&entries, &filter));
        for (int i = 0; i < entries.GetCount(); ++i)
            AddEntry(*vehicle, *entries.Get(i), &table);
    }
    return table;
}

int List(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    const Table table = EntryTable(log.Chosen(request.vehicle), request);
    Deliver(table.Write(request.format, surroundings.hasColours && request.output.empty()), request, surroundings);
    return EX_OK;
}

} // namespace tally
