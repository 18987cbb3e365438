#pragma once

#include "records/base_object.h"

/// One line of a vehicle's log. All numbers stand as they were typed, in the units of that moment.
class CEntry : public CBaseObject {
public:
    /// The numbers are stored, and choose icons and views as well.
    enum Type : std::int32_t {
        EntryTypeAll = 0, ///< in a filter: every kind
        EntryTypeFuel = 1,
        EntryTypeRepair = 2,
        EntryTypeTrip = 3,
        EntryTypeExpense = 4,
    };

    /// Dated today (local, midnight); numbers 0, texts empty, no type yet.
    CEntry();
    /// Of that OLE date, without a look at the clock.
    explicit CEntry(double date)
        : date_(date) { }

    /// An OLE date.
    double GetDate() const { return date_; }
    void SetDate(double date) { Change(date_, date); }
    Type GetType() const { return type_; }
    void SetType(Type type) { Change(type_, type); }
    /// The RefID of the vehicle.
    ULONG GetVehicleID() const { return vehicleId_; }
    void SetVehicleID(ULONG vehicle) { Change(vehicleId_, vehicle); }
    /// The reading at the entry; of a trip, the one at its end.
    LONG GetOdometer() const { return odometer_; }
    void SetOdometer(LONG odometer) { Change(odometer_, odometer); }
    /// Money.
    float GetAmount() const { return amount_; }
    void SetAmount(float amount) { Change(amount_, amount); }
    /// Fuel: the quantity. Trip: the reading at the start, a whole number.
    float GetCustom1() const { return custom1_; }
    void SetCustom1(float value) { Change(custom1_, value); }
    /// Fuel: the price of one unit of volume. Trip: the reading at the end, a whole number.
    float GetCustom2() const { return custom2_; }
    void SetCustom2(float value) { Change(custom2_, value); }
    /// Of a trip, its category.
    const wchar_t* GetVendor() const { return vendor_.Get(); }
    void SetVendor(const wchar_t* vendor) { Change(vendor_, vendor); }

private:
    friend struct RecordAccess;

    CStoredText vendor_;
    double date_;
    Type type_ = EntryTypeAll;
    ULONG vehicleId_ = 0;
    LONG odometer_ = 0;
    float amount_ = 0;
    float custom1_ = 0;
    float custom2_ = 0;
};
