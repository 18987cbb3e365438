#include "prefs/dlg_options.h"

#include "forms/dialog_helpers.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "units/number_text.h"

#include <span>
#include <string>

namespace {

constexpr UINT Distances[] = {strings::Miles, strings::Kilometres};
constexpr UINT Volumes[] = {strings::GallonsUS, strings::GallonsUK, strings::Litres};
constexpr UINT Economies[]
    = {strings::MilesPerGallonUS, strings::MilesPerGallonUK, strings::KilometresPerLitre, strings::MilesPerLitre};
constexpr UINT Columns[]
    = {strings::ColumnDate, strings::ColumnDescription, strings::ColumnOdometer, strings::ColumnAmount};
constexpr UINT Orders[] = {strings::SortAscending, strings::SortDescending};
constexpr UINT Sizes[]
    = {strings::TextSizeAutomatic, strings::TextSizeSmall, strings::TextSizeMedium, strings::TextSizeLarge};

/// A setting that is chosen from a list.
struct Choice {
    UINT list;
    UINT spin;
    std::span<const UINT> rows; ///< strings
    int CAppSettings::*setting;
};

constexpr Choice Choices[] = {
    {controls::DistanceUnit, controls::DistanceUnitSpin, Distances, &CAppSettings::UnitDistance},
    {controls::VolumeUnit, controls::VolumeUnitSpin, Volumes, &CAppSettings::UnitVolume},
    {controls::EconomyUnit, controls::EconomyUnitSpin, Economies, &CAppSettings::UnitFuelEconomy},
    {controls::SortColumn, controls::SortColumnSpin, Columns, &CAppSettings::LastColSorted},
    {controls::SortOrder, controls::SortOrderSpin, Orders, &CAppSettings::SortAscending},
    {controls::TextSize, controls::TextSizeSpin, Sizes, &CAppSettings::TextSize},
};

constexpr UINT Stretched[] = {controls::DistanceUnit, controls::VolumeUnit, controls::EconomyUnit,
    controls::OptionsMileageRate, controls::SortColumn, controls::SortOrder, controls::TextSize};
constexpr UINT Numeric[] = {controls::OptionsMileageRate};

/// The sort order stands upside down: its first row is the setting's 1.
bool IsReversed(const Choice& choice) {
    return choice.setting == &CAppSettings::SortAscending;
}

int RowOf(const Choice& choice) {
    const int value = theSettings.*choice.setting;
    return IsReversed(choice) ? static_cast<int>(value == 0) : value;
}

void StoreRow(const Choice& choice, int row) {
    theSettings.*choice.setting = IsReversed(choice) ? static_cast<int>(row == 0) : row;
}

/// What is left of an amount of zero without its four characters "0.00". In a locale without a fraction the cut takes
/// what follows the zero, and where its digits are others the first four characters.
std::wstring CurrencySymbol() {
    constexpr std::size_t ZeroLength = 4;
    std::wstring text = NumberText(0.0F, true, true);
    const std::size_t zero = text.find(L'0');
    text.erase(zero == std::wstring::npos ? 0 : zero, ZeroLength);
    return text;
}

} // namespace

CDlgOptions::CDlgOptions()
    : CFullScreenDialog(templates::Options, menus::DoneCancel, BackKey::IsHandedOn) {
}

bool CDlgOptions::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    ShowText(controls::Currency, CurrencySymbol());
    FillLists();
    SetNumericInputMode(GetHandle(), Numeric);
    ExchangePlainFloat(controls::OptionsMileageRate, theSettings.MileageRate, false);
    return true;
}

void CDlgOptions::FillLists() const {
    for (const Choice& choice : Choices) {
        const HWND list = Item(choice.list);
        for (std::size_t row = 0; row < choice.rows.size(); ++row) {
            const std::wstring text = LoadText(choice.rows[row]);
            SendMessageW(list, LB_INSERTSTRING, row, reinterpret_cast<LPARAM>(text.c_str()));
        }
        SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(RowOf(choice)), 0);
    }
}

void CDlgOptions::OnSize() const {
    StretchControls(GetHandle(), Stretched);
    for (const Choice& choice : Choices)
        SetBuddy(GetHandle(), choice.spin, choice.list);
}

void CDlgOptions::OnDone() {
    if (!ExchangePlainFloat(controls::OptionsMileageRate, theSettings.MileageRate, true))
        return;
    for (const Choice& choice : Choices) {
        const LRESULT row = SendMessageW(Item(choice.list), LB_GETCURSEL, 0, 0);
        // A setting out of range selects no row, and stays as it is until the user chooses one.
        if (row != LB_ERR)
            StoreRow(choice, static_cast<int>(row));
    }
    EndDialog(GetHandle(), commands::Done);
}
