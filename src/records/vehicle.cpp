#include "records/vehicle.h"

#include "records/record_dates.h"

CVehicle::CVehicle()
    : insuranceExpirationDate_(TodayDate()) {
}
