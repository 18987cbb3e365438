// The frame's commands on records: what they leave on the screen once a record was stored or deleted.

#include "platform/wait_cursor.h"
#include "resources/ids.h"
#include "settings/app_settings.h"
#include "shell/main_frame.h"
#include "shell/record_editing.h"

#include <memory>

namespace {

constexpr float NewTripDistance = 100.0F;

/// What a new entry of a command starts with.
void Prepare(CEntry& entry, UINT command) {
    entry.SetVehicleID(theSettings.LastActiveVehicle);
    entry.SetOdometer(theSettings.ActiveVehicleOdometer);
    switch (command) {
    case commands::NewFuelEntry:
        entry.SetType(CEntry::EntryTypeFuel);
        break;
    case commands::NewRepair:
        entry.SetType(CEntry::EntryTypeRepair);
        break;
    case commands::NewTrip: {
        const auto start = static_cast<float>(theSettings.ActiveVehicleOdometer);
        const float end = start + NewTripDistance;
        entry.SetCustom1(start);
        entry.SetCustom2(end);
        entry.SetType(CEntry::EntryTypeTrip);
        break;
    }
    case commands::NewExpense:
        entry.SetType(CEntry::EntryTypeExpense);
        break;
    default:
        break;
    }
}

} // namespace

void CMainFrame::NewVehicleCommand() {
    std::unique_ptr<CVehicle> vehicle(new CVehicle);
    if (!vehicle || !EditVehicle(vehicle.get()))
        return;
    if (!IsVehicleListVisible())
        ShowView(controls::VehicleList);
    vehicleList_.AddVehicle(vehicle.release());
}

void CMainFrame::NewEntryCommand(UINT command) {
    if (theSettings.LastActiveVehicle == 0)
        return;
    std::unique_ptr<CEntry> entry(new CEntry);
    if (!entry)
        return;
    Prepare(*entry, command);
    if (!EditEntry(entry.get()))
        return;
    if (filter_.EntryMatchesFilter(entry.get())) {
        entryList_.AddEntry(entry.release());
        SetFocus(entryList_.GetHandle());
    }
    UpdateOdometer();
}

void CMainFrame::EditCommand() {
    if (IsVehicleListVisible())
        EditSelectedVehicle();
    else
        EditSelectedEntry();
}

void CMainFrame::EditSelectedVehicle() {
    CVehicle* vehicle = vehicleList_.GetSelectedVehicle();
    if (vehicle && EditVehicle(vehicle))
        vehicleList_.AddRow(vehicle, 1);
}

void CMainFrame::EditSelectedEntry() {
    CObjectListT<CEntry> selected;
    if (entryList_.GetSelectedEntries(&selected) != 1)
        return;
    CEntry* entry = selected.Get(0);
    if (!EditEntry(entry))
        return;
    if (filter_.EntryMatchesFilter(entry))
        entryList_.AddRow(entry, 1);
    else
        entryList_.RemoveRow(entry);
    UpdateOdometer();
}

void CMainFrame::DeleteCommand() {
    if (IsVehicleListVisible())
        DeleteSelectedVehicle();
    else
        DeleteSelectedEntries();
}

void CMainFrame::DeleteSelectedVehicle() {
    CVehicle* vehicle = vehicleList_.GetSelectedVehicle();
    if (!vehicle || !DeleteVehicle(vehicle))
        return;
    const CWaitCursor wait;
    vehicleList_.RemoveRow(vehicle);
    ActivateVehicle(nullptr);
}

void CMainFrame::DeleteSelectedEntries() {
    CObjectListT<CEntry> selected;
    if (entryList_.GetSelectedEntries(&selected) == 0 || !DeleteEntries(selected))
        return;
    entryList_.DeleteSelectedRows();
}
