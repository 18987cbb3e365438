#pragma once

#include "../lists/dialog_device.h"
#include "platform/time.h"

#include <limits>

/// A vehicle at 12,500 that is active, and whoever answers its dialogs.
class ReminderTest : public DialogDevice {
protected:
    static constexpr LONG Highest = std::numeric_limits<LONG>::max();
    static constexpr LONG Lowest = std::numeric_limits<LONG>::min();
    static constexpr double FarDate = 2958465.0; // 31 December 9999

    ReminderTest() {
        Car.SetName(L"My Car");
        Car.SetYear(2007);
        Car.SetCurrentOdometer(12500);
        EXPECT_TRUE(Layer.Save(&Car, 0));
        theSettings.LastActiveVehicle = Car.GetRefID();
        theSettings.ActiveVehicleOdometer = 12500;
    }
    ~ReminderTest() override { theSettings.LastActiveVehicle = 0; }

    void Remind(const std::wstring& name, LONG odometer, double date = FarDate) {
        CNotification reminder;
        reminder.SetVehicleID(Car.GetRefID());
        reminder.SetName(name.c_str());
        reminder.SetOdometer(odometer);
        reminder.SetDate(date);
        EXPECT_TRUE(Layer.Save(&reminder, 0));
    }
    std::vector<std::wstring> Stored() { return NamesOf<CNotification>(Car.GetRefID()); }
    static double Utc(const char* text) {
        SetClock(text);
        SYSTEMTIME time;
        GetSystemTime(&time);
        double date = 0;
        SystemTimeToVariantTime(&time, &date);
        return date;
    }

    CVehicle Car;
};
