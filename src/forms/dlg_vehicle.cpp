#include "forms/dlg_vehicle.h"

#include "resources/dialog_templates.h"
#include "resources/ids.h"

namespace {

constexpr UINT Stretched[] = {controls::FirstText, controls::Year, controls::Odometer, controls::LicensePlate,
    controls::VIN, controls::AgentName, controls::AgentPhone, controls::PolicyNumber, controls::Coverage,
    controls::DealerName, controls::DealerPhone, controls::DealerAddress, controls::Notes, controls::Date};
constexpr FormDescription::Buddy Buddies[] = {
    {controls::CoverageSpin, controls::Coverage},
    {controls::DealerAddressSpin, controls::DealerAddress},
    {controls::NotesSpin, controls::Notes},
};

constexpr FormDescription Description{
    .dialogTemplate = templates::Vehicle,
    .menu = menus::DoneCancel,
    .firstFocus = controls::FirstText,
    .keywordField = 0,
    .doneNeedsSender = false,
    .stretched = Stretched,
    .buddies = Buddies,
    .numeric = {},
};

} // namespace

CDlgVehicle::CDlgVehicle()
    : CFormFrame(Description) {
}

bool CDlgVehicle::ExchangeFields(bool save) {
    return ExchangeText(controls::FirstText, Name, save) && ExchangeText(controls::LicensePlate, LicensePlate, save)
        && ExchangeText(controls::VIN, VIN, save) && ExchangeInt(controls::Year, Year, save)
        && ExchangeInt(controls::Odometer, CurrentOdometer, save) && ExchangeText(controls::AgentName, AgentName, save)
        && ExchangeText(controls::AgentPhone, AgentPhone, save)
        && ExchangeText(controls::PolicyNumber, PolicyNumber, save) && ExchangeText(controls::Coverage, Coverage, save)
        && ExchangeText(controls::DealerName, DealerName, save)
        && ExchangeText(controls::DealerPhone, DealerPhone, save)
        && ExchangeText(controls::DealerAddress, DealerAddress, save) && ExchangeText(controls::Notes, Notes, save);
}

bool CDlgVehicle::AcceptFields() {
    return RequireText(Name, controls::FirstText, strings::NameRequired, strings::AppName);
}
