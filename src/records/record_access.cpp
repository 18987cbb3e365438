#include "records/record_access.h"

#include "records/record_dates.h"
#include "records/statement.h"

void RecordAccess::MarkStored(CBaseObject* record, LONG id, ULONG refId) {
    record->id_ = id;
    record->refId_ = refId;
    record->dirty_ = false;
}

void RecordAccess::SetCurrentOdometer(CVehicle* vehicle, LONG odometer) {
    vehicle->currentOdometer_ = odometer;
}

void RecordAccess::BindBase(CStatementRun& run, const CBaseObject& record) {
    run.Bind(record.name_).Bind(record.notes_);
}

void RecordAccess::ReadBase(CStatementRun& run, CBaseObject* record) {
    const LONG id = run.ReadLong();
    MarkStored(record, id, run.ReadKey());
    run.Read(&record->name_);
    run.Read(&record->notes_);
}

void RecordAccess::Bind(CStatementRun& run, const CVehicle& vehicle) {
    BindBase(run, vehicle);
    run.Bind(vehicle.licensePlate_).Bind(vehicle.vin_);
    run.Bind(LONGLONG{vehicle.currentOdometer_}).Bind(LONGLONG{vehicle.year_});
    run.Bind(vehicle.insurancePolicyNumber_).Bind(vehicle.insuranceAgentName_);
    run.Bind(vehicle.insuranceAgentPhone_).Bind(vehicle.insuranceCoverage_);
    run.Bind(LinearFromOleDate(vehicle.insuranceExpirationDate_));
    run.Bind(vehicle.dealerName_).Bind(vehicle.dealerPhone_).Bind(vehicle.dealerAddress_);
}

void RecordAccess::Read(CStatementRun& run, CVehicle* vehicle) {
    ReadBase(run, vehicle);
    run.Read(&vehicle->licensePlate_);
    run.Read(&vehicle->vin_);
    vehicle->currentOdometer_ = run.ReadLong();
    vehicle->year_ = run.ReadLong();
    run.Read(&vehicle->insurancePolicyNumber_);
    run.Read(&vehicle->insuranceAgentName_);
    run.Read(&vehicle->insuranceAgentPhone_);
    run.Read(&vehicle->insuranceCoverage_);
    vehicle->insuranceExpirationDate_ = OleFromLinearDate(run.ReadDouble());
    run.Read(&vehicle->dealerName_);
    run.Read(&vehicle->dealerPhone_);
    run.Read(&vehicle->dealerAddress_);
}

void RecordAccess::Bind(CStatementRun& run, const CEntry& entry) {
    BindBase(run, entry);
    run.Bind(LONGLONG{entry.vehicleId_}).Bind(LinearFromOleDate(entry.date_));
    run.Bind(LONGLONG{entry.type_}).Bind(LONGLONG{entry.odometer_});
    run.Bind(double{entry.amount_}).Bind(double{entry.custom1_}).Bind(double{entry.custom2_});
    run.Bind(entry.vendor_);
}

void RecordAccess::Read(CStatementRun& run, CEntry* entry) {
    ReadBase(run, entry);
    entry->vehicleId_ = run.ReadKey();
    entry->date_ = OleFromLinearDate(run.ReadDouble());
    entry->type_ = static_cast<CEntry::Type>(run.ReadLong());
    entry->odometer_ = run.ReadLong();
    entry->amount_ = run.ReadFloat();
    entry->custom1_ = run.ReadFloat();
    entry->custom2_ = run.ReadFloat();
    run.Read(&entry->vendor_);
}

void RecordAccess::Bind(CStatementRun& run, const CKeyword& keyword) {
    BindBase(run, keyword);
    run.Bind(LONGLONG{keyword.type_});
}

void RecordAccess::Read(CStatementRun& run, CKeyword* keyword) {
    ReadBase(run, keyword);
    keyword->type_ = static_cast<CKeyword::Type>(run.ReadLong());
}

void RecordAccess::Bind(CStatementRun& run, const CNotification& reminder) {
    BindBase(run, reminder);
    run.Bind(LONGLONG{reminder.vehicleId_}).Bind(LinearFromOleDate(reminder.date_));
    run.Bind(LONGLONG{reminder.odometer_});
}

void RecordAccess::Read(CStatementRun& run, CNotification* reminder) {
    ReadBase(run, reminder);
    reminder->vehicleId_ = run.ReadKey();
    reminder->date_ = OleFromLinearDate(run.ReadDouble());
    reminder->odometer_ = run.ReadLong();
}
