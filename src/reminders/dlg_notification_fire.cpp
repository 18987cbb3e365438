#include "reminders/dlg_notification_fire.h"

#include "forms/dialog_helpers.h"
#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "platform/time.h"
#include "records/notification.h"
#include "records/vehicle.h"
#include "reminders/control_place.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "units/date_text.h"
#include "units/number_text.h"
#include "units/record_text.h"

#include <algorithm>

namespace {

constexpr UINT Stretched[] = {controls::DueVehicle, controls::FirstText, controls::DueHeading};

std::wstring OdometerText(LONG odometer) {
    return NumberText(static_cast<float>(odometer), false, false);
}

std::wstring TodayText() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    double date = 0.0;
    return SystemTimeToVariantTime(&now, &date) ? DateText(date) : std::wstring();
}

} // namespace

LPCDLGTEMPLATEW CDlgNotificationFire::GetTemplate() const {
    return &templates::DueReminder;
}

bool CDlgNotificationFire::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& /*result*/) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        StretchControls(GetHandle(), Stretched);
        return true;
    case WM_COMMAND:
        // The Action key gives the command of "Delete" as well, but names no sender.
        if (LOWORD(wParam) == commands::Cancel || (LOWORD(wParam) == commands::Done && lParam != 0))
            EndDialog(GetHandle(), LOWORD(wParam));
        return true;
    default:
        return false;
    }
}

void CDlgNotificationFire::OnInitDialog() const {
    const HWND dialog = GetHandle();
    CreateSoftKeyBar(dialog, menus::DueReminder, true, false);
    ApplyLabelFont(dialog);
    InitFullScreen(dialog);
    ShowVehicleInBold();
    ShowValues();
}

void CDlgNotificationFire::ShowVehicleInBold() const {
    const HWND vehicle = GetDlgItem(GetHandle(), static_cast<int>(controls::DueVehicle));
    SendMessageW(vehicle, WM_SETFONT, reinterpret_cast<WPARAM>(BoldTextFont), TRUE);
    // One line whatever the text size: the tops of a second one would look like a fault of the screen.
    const RECT place = ControlPlace(GetHandle(), vehicle);
    const CClientContext context(vehicle);
    MoveWindow(vehicle, place.left, place.top, place.right - place.left,
        std::min(place.bottom - place.top, LineHeight(context.GetHandle(), BoldTextFont)), TRUE);
}

void CDlgNotificationFire::ShowValues() const {
    if (!Reminder || !Vehicle)
        return;
    Show(controls::DueVehicle, VehicleTitleText(Vehicle).c_str());
    Show(controls::FirstText, Reminder->GetName());
    Show(controls::DueReminderOdometer, OdometerText(Reminder->GetOdometer()).c_str());
    Show(controls::DueCurrentOdometer, OdometerText(Vehicle->GetCurrentOdometer()).c_str());
    Show(controls::DueReminderDate, DateText(Reminder->GetDate()).c_str());
    Show(controls::DueCurrentDate, TodayText().c_str());
}

void CDlgNotificationFire::Show(UINT id, const wchar_t* text) const {
    SetDlgItemTextW(GetHandle(), static_cast<int>(id), text);
}
