#pragma once

#include "../lists/list_device.h"
#include "platform/input.h"
#include "platform/time.h"
#include "resources/ids.h"

#include <limits>

/// A vehicle at 12,500 that is active, and whoever answers its dialogs.
class ReminderTest : public ListDevice {
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
    std::vector<std::wstring> Stored() {
        std::vector<std::wstring> names;
        const auto reminders = LoadAll<CNotification>(Car.GetRefID());
        for (int index = 0; index < reminders->GetCount(); ++index)
            names.emplace_back(reminders->Get(index)->GetName());
        return names;
    }
    static double Utc(const char* text) {
        SetClock(text);
        SYSTEMTIME time;
        GetSystemTime(&time);
        double date = 0;
        SystemTimeToVariantTime(&time, &date);
        return date;
    }

    // In the dialog on top.
    static HWND Item(UINT id) { return GetDlgItem(GetActiveWindow(), static_cast<int>(id)); }
    static std::wstring TextOf(HWND window) {
        std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
        GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
        return text;
    }
    static std::wstring TextOf(UINT id) { return TextOf(Item(id)); }
    static void Put(UINT id, const std::wstring& text) {
        SetDlgItemTextW(GetActiveWindow(), static_cast<int>(id), text.c_str());
    }
    /// What the message box on top says.
    static std::wstring Message() { return TextOf(GetWindow(GetActiveWindow(), GW_CHILD)); }
    static int FocusedId() { return GetDlgCtrlID(GetFocus()); }
    bool Shows(const std::wstring& text) const {
        const auto texts = Host.Texts();
        return std::find(texts.begin(), texts.end(), text) != texts.end();
    }

    CVehicle Car;
};
