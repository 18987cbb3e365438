#include "prefs/dlg_options.h"

#include "forms/dialog_helpers.h"
#include "platform/input.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "settings/app_settings.h"
#include "units/field_text.h"
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

constexpr int RateDigits = 6;
constexpr UINT GeneralBeep = 0xFFFFFFFF;

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
    constexpr std::size_t zeroLength = 4;
    std::wstring text = NumberText(0.0F, true, true);
    const std::size_t zero = text.find(L'0');
    text.erase(zero == std::wstring::npos ? 0 : zero, zeroLength);
    return text;
}

} // namespace

LPCDLGTEMPLATEW CDlgOptions::GetTemplate() const {
    return &templates::Options;
}

bool CDlgOptions::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& /*result*/) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        OnSize();
        return true;
    case WM_COMMAND:
        if (LOWORD(wParam) == commands::Done)
            OnDone();
        else if (LOWORD(wParam) == commands::Cancel)
            EndDialog(GetHandle(), commands::Cancel);
        else
            return false;
        return true;
    case WM_HOTKEY:
        // Whatever has the focus: here the Back key never closes the dialog.
        SHSendBackToFocusWindow(message, wParam, lParam);
        return true;
    default:
        return false;
    }
}

void CDlgOptions::OnInitDialog() {
    const HWND dialog = GetHandle();
    CreateSoftKeyBar(dialog, menus::DoneCancel, true, false);
    ApplyLabelFont(dialog);
    InitFullScreen(dialog);
    SetDlgItemTextW(dialog, static_cast<int>(controls::Currency), CurrencySymbol().c_str());
    FillLists();
    SetNumericInputMode(dialog, Numeric);
    SetDlgItemTextW(dialog, static_cast<int>(controls::OptionsMileageRate),
        PrintPlainFloat(theSettings.MileageRate, RateDigits).c_str());
}

void CDlgOptions::FillLists() {
    static_assert(std::size(Choices) == ListCount);
    for (std::size_t i = 0; i < ListCount; ++i) {
        const Choice& choice = Choices[i];
        lists_[i] = GetDlgItem(GetHandle(), static_cast<int>(choice.list));
        for (std::size_t row = 0; row < choice.rows.size(); ++row) {
            const std::wstring text = LoadText(choice.rows[row]);
            SendMessageW(lists_[i], LB_INSERTSTRING, row, reinterpret_cast<LPARAM>(text.c_str()));
        }
        SendMessageW(lists_[i], LB_SETCURSEL, static_cast<WPARAM>(RowOf(choice)), 0);
    }
}

void CDlgOptions::OnSize() const {
    const HWND dialog = GetHandle();
    StretchControls(dialog, Stretched);
    for (const Choice& choice : Choices) {
        SendDlgItemMessageW(dialog, static_cast<int>(choice.spin), UDM_SETBUDDY,
            reinterpret_cast<WPARAM>(GetDlgItem(dialog, static_cast<int>(choice.list))), 0);
    }
}

void CDlgOptions::OnDone() const {
    if (!ReadMileageRate()) {
        MessageBeep(GeneralBeep);
        SetFocus(GetDlgItem(GetHandle(), static_cast<int>(controls::OptionsMileageRate)));
        return;
    }
    for (std::size_t i = 0; i < ListCount; ++i) {
        const LRESULT row = SendMessageW(lists_[i], LB_GETCURSEL, 0, 0);
        // A setting out of range selects no row, and stays as it is until the user chooses one.
        if (row != LB_ERR)
            StoreRow(Choices[i], static_cast<int>(row));
    }
    EndDialog(GetHandle(), commands::Done);
}

bool CDlgOptions::ReadMileageRate() const {
    wchar_t text[FieldTextSize] = {};
    GetDlgItemTextW(GetHandle(), static_cast<int>(controls::OptionsMileageRate), text, static_cast<int>(FieldTextSize));
    double rate = 0.0;
    if (!ParsePlainFloat(text, &rate))
        return false;
    theSettings.MileageRate = static_cast<float>(rate);
    return true;
}
