#include "shell/record_editing.h"

#include "forms/dlg_fuel_entry.h"
#include "forms/dlg_vehicle.h"
#include "platform/dialog.h"
#include "platform/wait_cursor.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "shell/messages/show_message.h"

namespace {

std::wstring TextOf(const wchar_t* text) {
    return text ? text : L"";
}

template <typename Record> int SaveIfDirty(Record* record) {
    if (!record->IsDirty())
        return 0;
    const int saved = theDataLayer.Save(record, 0);
    if (!saved)
        ShowStoreFailure();
    return saved;
}

int EditFuelEntry(CEntry* entry) {
    CDlgFuelEntry form;
    form.IsNew = entry->GetID() == 0;
    form.Date = entry->GetDate();
    form.Odometer = entry->GetOdometer();
    form.Volume = entry->GetCustom1();
    form.UnitPrice = entry->GetCustom2();
    form.TotalCost = entry->GetAmount();
    form.Vendor = TextOf(entry->GetVendor());
    form.Notes = TextOf(entry->GetNotes());
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

} // namespace

int EditVehicle(CVehicle* vehicle) {
    CDlgVehicle form;
    form.Name = TextOf(vehicle->GetName());
    form.LicensePlate = TextOf(vehicle->GetLicensePlate());
    form.VIN = TextOf(vehicle->GetVIN());
    form.CurrentOdometer = vehicle->GetCurrentOdometer();
    form.Year = vehicle->GetYear();
    form.PolicyNumber = TextOf(vehicle->GetInsurancePolicyNumber());
    form.AgentName = TextOf(vehicle->GetInsuranceAgentName());
    form.AgentPhone = TextOf(vehicle->GetInsuranceAgentPhone());
    form.Coverage = TextOf(vehicle->GetInsuranceCoverage());
    form.ExpirationDate = vehicle->GetInsuranceExpirationDate();
    form.DealerName = TextOf(vehicle->GetDealerName());
    form.DealerPhone = TextOf(vehicle->GetDealerPhone());
    form.DealerAddress = TextOf(vehicle->GetDealerAddress());
    form.Notes = TextOf(vehicle->GetNotes());
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
    int done = 0;
    if (entry->GetType() == CEntry::EntryTypeFuel)
        done = EditFuelEntry(entry);
    return done ? SaveIfDirty(entry) : 0;
}

int DeleteVehicle(CVehicle* vehicle) {
    if (ShowMessage(GetActiveWindow(), strings::ConfirmDeleteVehicle, strings::AppName, messages::QuestionStyle)
        == IDNO)
        return 0;
    int deleted = 0;
    {
        const CWaitCursor wait;
        deleted = theDataLayer.Delete(vehicle);
    }
    if (!deleted)
        ShowStoreFailure();
    return deleted;
}

int DeleteEntries(const CObjectListT<CEntry>& entries) {
    if (entries.GetCount() == 0)
        return 0;
    const UINT question = entries.GetCount() == 1 ? strings::ConfirmDeleteEntry : strings::ConfirmDeleteEntries;
    if (ShowMessage(GetActiveWindow(), question, strings::AppName, messages::QuestionStyle) == IDNO)
        return 0;
    bool failed = false;
    {
        const CWaitCursor wait;
        for (int index = 0; index < entries.GetCount(); ++index)
            failed = !theDataLayer.Delete(entries.Get(index)) || failed;
    }
    if (failed)
        ShowStoreFailure();
    return 1;
}
