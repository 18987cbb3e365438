#pragma once

#include "records/base_object.h"

/// A reminder of one vehicle. Name is its description. It falls due by its odometer reading or by its date.
class CNotification : public CBaseObject {
public:
    /// Dated today (local, midnight); numbers 0, texts empty.
    CNotification();

    /// An OLE date.
    double GetDate() const { return date_; }
    void SetDate(double date) { Change(date_, date); }
    /// The RefID of the vehicle.
    ULONG GetVehicleID() const { return vehicleId_; }
    void SetVehicleID(ULONG vehicle) { Change(vehicleId_, vehicle); }
    LONG GetOdometer() const { return odometer_; }
    void SetOdometer(LONG odometer) { Change(odometer_, odometer); }

private:
    friend struct RecordAccess;

    double date_;
    ULONG vehicleId_ = 0;
    LONG odometer_ = 0;
};
