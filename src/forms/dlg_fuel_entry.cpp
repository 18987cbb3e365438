#include "forms/dlg_fuel_entry.h"

#include "forms/last_price.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "units/units.h"

namespace {

constexpr UINT Stretched[] = {controls::Date, controls::Odometer, controls::FirstText, controls::Volume,
    controls::UnitPrice, controls::Money, controls::Notes};
constexpr UINT Numeric[] = {controls::Volume, controls::UnitPrice, controls::Money};
constexpr FormDescription::Buddy Buddies[] = {{controls::NotesSpin, controls::Notes}};

constexpr FormDescription Description{
    .dialogTemplate = templates::FuelEntry,
    .menu = menus::FuelEntry,
    .firstFocus = controls::Date,
    .keywordField = controls::FirstText,
    .doneNeedsSender = true,
    .stretched = Stretched,
    .buddies = Buddies,
    .numeric = Numeric,
};

float QuotientOrZero(float dividend, float divisor) {
    return divisor > 0.0F ? dividend / divisor : 0.0F;
}

} // namespace

CDlgFuelEntry::CDlgFuelEntry()
    : CFormFrame(Description) {
}

bool CDlgFuelEntry::ExchangeFields(bool save) {
    return ExchangeInt(controls::Odometer, Odometer, save) && ExchangeFloat(controls::UnitPrice, UnitPrice, save)
        && ExchangeFloat(controls::Volume, Volume, save) && ExchangeFloat(controls::Money, TotalCost, save)
        && ExchangeText(controls::FirstText, Vendor, save) && ExchangeText(controls::Notes, Notes, save);
}

void CDlgFuelEntry::OnOpening() {
    if (IsNew)
        LoadLastPrice(&UnitPrice);
}

void CDlgFuelEntry::OnDateShown() {
    const int unit = theSettings.UnitVolume;
    const bool isLitres = unit == VolumeLitres;
    if (!isLitres && unit != VolumeGallonsUS && unit != VolumeGallonsUK)
        return;
    ShowText(controls::VolumeLabel, LoadText(isLitres ? strings::NumLitres : strings::NumGallons));
    ShowText(controls::UnitPriceLabel, LoadText(isLitres ? strings::CostPerLitre : strings::CostPerGallon));
}

bool CDlgFuelEntry::AcceptFields() {
    StoreLastPrice(UnitPrice);
    return true;
}

bool CDlgFuelEntry::OnCommand(UINT id, UINT code, HWND sender) {
    if (id != commands::Calculate)
        return CFormFrame::OnCommand(id, code, sender);
    Calculate();
    return true;
}

void CDlgFuelEntry::Calculate() {
    if (!ExchangeFields(true))
        return;
    const UINT computed = ComputeMissing();
    ExchangeFields(false);
    FocusControl(computed, true);
}

UINT CDlgFuelEntry::ComputeMissing() {
    if (TotalCost != 0.0F && UnitPrice == 0.0F) {
        UnitPrice = QuotientOrZero(TotalCost, Volume);
        return controls::UnitPrice;
    }
    if (TotalCost != 0.0F && Volume == 0.0F) {
        Volume = QuotientOrZero(TotalCost, UnitPrice);
        return controls::Volume;
    }
    // With all three filled in the total gives way.
    TotalCost = UnitPrice * Volume;
    return controls::Money;
}
