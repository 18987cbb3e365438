#include "forms/dlg_trip.h"

#include "messages/show_message.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "settings/app_settings.h"

#include <algorithm>
#include <limits>

namespace {

constexpr UINT Stretched[] = {controls::Date, controls::FirstText, controls::StartOdometer, controls::EndOdometer,
    controls::ElapsedDistance, controls::TripMileageRate, controls::Money, controls::Category, controls::Notes};
constexpr UINT Numeric[] = {controls::Money};
constexpr FormDescription::Buddy Buddies[] = {{controls::NotesSpin, controls::Notes}};

constexpr FormDescription Description{
    .dialogTemplate = templates::Trip,
    .menu = menus::Trip,
    .firstFocus = controls::Date,
    .keywordField = controls::Category,
    .doneNeedsSender = true,
    .stretched = Stretched,
    .buddies = Buddies,
    .numeric = Numeric,
};

/// The nearest whole number that a field can hold: two readings may lie further apart, or sum up to more.
LONG Fit(std::int64_t value) {
    constexpr std::int64_t Least = std::numeric_limits<LONG>::min();
    constexpr std::int64_t Most = std::numeric_limits<LONG>::max();
    return static_cast<LONG>(std::clamp(value, Least, Most));
}

LONG ClampedDifference(LONG end, LONG start) {
    return Fit(std::int64_t{end} - start);
}

} // namespace

CDlgTrip::CDlgTrip()
    : CFormFrame(::Description) {
}

bool CDlgTrip::ExchangeFields(bool save) {
    // The rate has no field here: its read-only control goes back into the setting, rounded to the digits shown.
    return ExchangeText(controls::FirstText, Description, save)
        && ExchangeInt(controls::StartOdometer, StartOdometer, save)
        && ExchangeInt(controls::EndOdometer, EndOdometer, save)
        && ExchangeInt(controls::ElapsedDistance, ElapsedDistance, save)
        && ExchangeFloat(controls::Money, TotalCost, save)
        && ExchangeFloat(controls::TripMileageRate, theSettings.MileageRate, save)
        && ExchangeText(controls::Category, Category, save) && ExchangeText(controls::Notes, Notes, save);
}

void CDlgTrip::OnDateShown() {
    ElapsedDistance = ClampedDifference(EndOdometer, StartOdometer);
}

bool CDlgTrip::AcceptFields() {
    if (!RequireText(Description, controls::FirstText, strings::DescriptionRequired, strings::EntryProperties))
        return false;
    if (StartOdometer <= EndOdometer)
        return true;
    ShowMessage(GetHandle(), strings::EndOdometerBelowStart, strings::EntryProperties, messages::NoticeStyle);
    return false;
}

bool CDlgTrip::OnCommand(UINT id, UINT code, HWND sender) {
    const bool isLeft = code == EN_KILLFOCUS;
    if (isLeft && id == controls::ElapsedDistance)
        UpdateEnd();
    else if (isLeft && (id == controls::StartOdometer || id == controls::EndOdometer))
        UpdateElapsed();
    else if (id == commands::Calculate)
        CalcTotalCost();
    else
        return CFormFrame::OnCommand(id, code, sender);
    return true;
}

void CDlgTrip::UpdateEnd() {
    if (!ExchangeFields(true))
        return;
    EndOdometer = Fit(std::int64_t{StartOdometer} + std::max<LONG>(ElapsedDistance, 0));
    SetDlgItemInt(GetHandle(), controls::EndOdometer, static_cast<UINT>(EndOdometer), TRUE);
}

void CDlgTrip::UpdateElapsed() {
    if (!ExchangeFields(true))
        return;
    ElapsedDistance = std::max<LONG>(ClampedDifference(EndOdometer, StartOdometer), 0);
    SetDlgItemInt(GetHandle(), controls::ElapsedDistance, static_cast<UINT>(ElapsedDistance), TRUE);
}

void CDlgTrip::CalcTotalCost() {
    if (!ExchangeFields(true))
        return;
    TotalCost = static_cast<float>(ElapsedDistance) * theSettings.MileageRate;
    ExchangeFields(false);
    FocusControl(controls::Money, true);
    SendDlgItemMessageW(GetHandle(), controls::Money, EM_SCROLLCARET, 0, 0);
}
