#include "reminders/dlg_notification_fire.h"

#include "forms/dialog_helpers.h"
#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "platform/time.h"
#include "records/notification.h"
#include "records/vehicle.h"
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

CDlgNotificationFire::CDlgNotificationFire()
    : CFullScreenDialog(templates::DueReminder, menus::DueReminder, BackKey::IsReported) {
}

bool CDlgNotificationFire::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    ShowVehicleInBold();
    ShowValues();
    return true;
}

void CDlgNotificationFire::OnSize() const {
    StretchControls(GetHandle(), Stretched);
}

bool CDlgNotificationFire::OnCommand(UINT id, UINT code, HWND sender) {
    // The Action key gives the command of "Delete" as well, but names no sender.
    return (id == commands::Done && !sender) || CFullScreenDialog::OnCommand(id, code, sender);
}

void CDlgNotificationFire::ShowVehicleInBold() const {
    const HWND vehicle = Item(controls::DueVehicle);
    SendMessageW(vehicle, WM_SETFONT, reinterpret_cast<WPARAM>(BoldTextFont), TRUE);
    // One line whatever the text size: the tops of a second one would look like a fault of the screen.
    const RECT place = PlaceIn(GetHandle(), vehicle);
    MoveWindow(vehicle, place.left, place.top, place.right - place.left,
        std::min(place.bottom - place.top, LineHeight(vehicle, BoldTextFont)), TRUE);
}

void CDlgNotificationFire::ShowValues() const {
    if (!Reminder || !Vehicle)
        return;
    ShowText(controls::DueVehicle, VehicleTitleText(Vehicle));
    ShowText(controls::FirstText, Reminder->GetName());
    ShowText(controls::DueReminderOdometer, OdometerText(Reminder->GetOdometer()));
    ShowText(controls::DueCurrentOdometer, OdometerText(Vehicle->GetCurrentOdometer()));
    ShowText(controls::DueReminderDate, DateText(Reminder->GetDate()));
    ShowText(controls::DueCurrentDate, TodayText());
}
