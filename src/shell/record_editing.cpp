#include "shell/record_editing.h"

#include "forms/dlg_expense.h"
#include "forms/dlg_fuel_entry.h"
#include "forms/dlg_repair.h"
#include "forms/dlg_trip.h"
#include "forms/dlg_vehicle.h"
#include "messages/store_record.h"
#include "platform/dialog.h"
#include "resources/ids.h"
#include "units/number_text.h"

namespace {

int EditFuelEntry(CEntry* entry) {
    CDlgFuelEntry form;
    form.IsNew = entry->GetID() == 0;
    form.Date = entry->GetDate();
    form.Odometer = entry->GetOdometer();
    form.Volume = entry->GetCustom1();
    form.UnitPrice = entry->GetCustom2();
    form.TotalCost = entry->GetAmount();
    form.Vendor = entry->GetVendor();
    form.Notes = entry->GetNotes();
    if (form.DoModal() != commands::Done)
        return 0;
    entry->SetDate(form.Date);
    entry->SetOdometer(form.Odometer);
    entry->SetCustom1(form.Volume);
    entry->SetCustom2(form.UnitPrice);
    entry->SetAmount(form.TotalCost);
    entry->SetVendor(form.Vendor.c_str());
    entry->SetNotes(form.Notes.c_str());
    return 1;
}

/// Repairs and other expenses keep the same values; only their forms differ.
template <typename Form> int EditPaidEntry(CEntry* entry) {
    Form form;
    form.Date = entry->GetDate();
    form.Odometer = entry->GetOdometer();
    form.Amount = entry->GetAmount();
    form.Vendor = entry->GetVendor();
    form.Description = entry->GetName();
    form.Notes = entry->GetNotes();
    if (form.DoModal() != commands::Done)
        return 0;
    entry->SetDate(form.Date);
    entry->SetOdometer(form.Odometer);
    entry->SetAmount(form.Amount);
    entry->SetVendor(form.Vendor.c_str());
    entry->SetName(form.Description.c_str());
    entry->SetNotes(form.Notes.c_str());
    return 1;
}

int EditRepairEntry(CEntry* entry) {
    return EditPaidEntry<CDlgRepair>(entry);
}

int EditExpenseEntry(CEntry* entry) {
    return EditPaidEntry<CDlgExpense>(entry);
}

int EditTripEntry(CEntry* entry) {
    CDlgTrip form;
    form.Date = entry->GetDate();
    form.Description = entry->GetName();
    form.StartOdometer = WholeNumber(entry->GetCustom1());
    form.EndOdometer = WholeNumber(entry->GetCustom2());
    form.Category = entry->GetVendor();
    form.TotalCost = entry->GetAmount();
    form.Notes = entry->GetNotes();
    if (form.DoModal() != commands::Done)
        return 0;
    entry->SetDate(form.Date);
    entry->SetName(form.Description.c_str());
    entry->SetOdometer(form.EndOdometer);
    entry->SetCustom1(static_cast<float>(form.StartOdometer));
    entry->SetCustom2(static_cast<float>(form.EndOdometer));
    entry->SetVendor(form.Category.c_str());
    entry->SetAmount(form.TotalCost);
    entry->SetNotes(form.Notes.c_str());
    return 1;
}

/// The form of the entry's kind; 0 also for a kind that has none.
int RunEntryForm(CEntry* entry) {
    switch (entry->GetType()) {
    case CEntry::EntryTypeFuel:
        return EditFuelEntry(entry);
    case CEntry::EntryTypeRepair:
        return EditRepairEntry(entry);
    case CEntry::EntryTypeTrip:
        return EditTripEntry(entry);
    case CEntry::EntryTypeExpense:
        return EditExpenseEntry(entry);
    default:
        return 0;
    }
}

} // namespace

int EditVehicle(CVehicle* vehicle) {
    CDlgVehicle form;
    form.Name = vehicle->GetName();
    form.LicensePlate = vehicle->GetLicensePlate();
    form.VIN = vehicle->GetVIN();
    form.CurrentOdometer = vehicle->GetCurrentOdometer();
    form.Year = vehicle->GetYear();
    form.PolicyNumber = vehicle->GetInsurancePolicyNumber();
    form.AgentName = vehicle->GetInsuranceAgentName();
    form.AgentPhone = vehicle->GetInsuranceAgentPhone();
    form.Coverage = vehicle->GetInsuranceCoverage();
    form.ExpirationDate = vehicle->GetInsuranceExpirationDate();
    form.DealerName = vehicle->GetDealerName();
    form.DealerPhone = vehicle->GetDealerPhone();
    form.DealerAddress = vehicle->GetDealerAddress();
    form.Notes = vehicle->GetNotes();
    if (form.DoModal() != commands::Done)
        return 0;
    vehicle->SetName(form.Name.c_str());
    vehicle->SetLicensePlate(form.LicensePlate.c_str());
    vehicle->SetVIN(form.VIN.c_str());
    vehicle->SetCurrentOdometer(form.CurrentOdometer);
    vehicle->SetYear(form.Year);
    vehicle->SetInsurancePolicyNumber(form.PolicyNumber.c_str());
    vehicle->SetInsuranceAgentName(form.AgentName.c_str());
    vehicle->SetInsuranceAgentPhone(form.AgentPhone.c_str());
    vehicle->SetInsuranceCoverage(form.Coverage.c_str());
    vehicle->SetInsuranceExpirationDate(form.ExpirationDate);
    vehicle->SetDealerName(form.DealerName.c_str());
    vehicle->SetDealerPhone(form.DealerPhone.c_str());
    vehicle->SetDealerAddress(form.DealerAddress.c_str());
    vehicle->SetNotes(form.Notes.c_str());
    return SaveIfDirty(vehicle);
}

int EditEntry(CEntry* entry) {
    return RunEntryForm(entry) ? SaveIfDirty(entry) : 0;
}

int DeleteVehicle(CVehicle* vehicle) {
    if (ShowMessage(GetActiveWindow(), strings::ConfirmDeleteVehicle, strings::AppName, messages::QuestionStyle)
        == IDNO)
        return 0;
    return DeleteStored(vehicle);
}

int DeleteEntries(const CObjectListT<CEntry>& entries) {
    if (entries.GetCount() == 0)
        return 0;
    const UINT question = entries.GetCount() == 1 ? strings::ConfirmDeleteEntry : strings::ConfirmDeleteEntries;
    if (ShowMessage(GetActiveWindow(), question, strings::AppName, messages::QuestionStyle) == IDNO)
        return 0;
    DeleteStored(&entries);
    return 1;
}
