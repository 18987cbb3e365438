#include "prefs/prefs_templates.h"

#include "platform/messages.h"
#include "resources/ids.h"

namespace {

constexpr DWORD DialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT;
constexpr DWORD ScrollingStyle = DialogStyle | WS_VSCROLL;
constexpr DWORD TextStyle = WS_CHILD | WS_VISIBLE;
constexpr DWORD FieldStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr DWORD EditStyle = FieldStyle | ES_AUTOHSCROLL;
constexpr DWORD SpinStyle = WS_CHILD | WS_VISIBLE | UDS_HORZ | UDS_WRAP;

// Dialog units.
constexpr int Width = 115;
constexpr int Margin = 3;
constexpr int Inside = Width - 2 * Margin;
constexpr int Top = 2;
constexpr int LabelHeight = 11; // the label font is taller than the template's
constexpr int FieldHeight = 12;
constexpr int Pitch = 25;
constexpr int SymbolWidth = 40;

constexpr UINT LabelId(UINT number) {
    return controls::FirstLabel + number;
}

/// A label runs to the right edge: the longest one needs it in the label font.
constexpr DialogItemTemplate LabelAt(int row, UINT id, const wchar_t* text) {
    return {L"STATIC", TextStyle, Margin, Top + row * Pitch, Width - Margin, LabelHeight, id, text};
}

constexpr DialogItemTemplate FieldAt(int row, UINT id, const wchar_t* windowClass, DWORD style) {
    return {windowClass, style, Margin, Top + row * Pitch + LabelHeight, Inside, FieldHeight, id, L""};
}

constexpr DialogItemTemplate ListAt(int row, UINT id) {
    return FieldAt(row, id, L"LISTBOX", FieldStyle | LBS_NOTIFY);
}

/// The list paints the arrows; the spinner itself needs no room.
constexpr DialogItemTemplate SpinAt(int row, UINT id) {
    return {L"msctls_updown32", SpinStyle, Width - Margin, Top + row * Pitch + LabelHeight, 0, FieldHeight, id, L""};
}

constexpr DialogItemTemplate OptionsItems[] = {
    LabelAt(0, LabelId(0), L"Distance unit:"),
    ListAt(0, controls::DistanceUnit),
    LabelAt(1, LabelId(1), L"Volume unit:"),
    ListAt(1, controls::VolumeUnit),
    LabelAt(2, controls::EconomyUnitLabel, L"Fuel economy unit:"),
    ListAt(2, controls::EconomyUnit),
    LabelAt(3, LabelId(6), L"Currency:"),
    {L"EDIT", EditStyle | WS_DISABLED, Margin, Top + 3 * Pitch + LabelHeight, SymbolWidth, FieldHeight,
        controls::Currency, L""},
    LabelAt(4, LabelId(3), L"Sort entries by:"),
    ListAt(4, controls::SortColumn),
    LabelAt(5, LabelId(4), L"Sort order:"),
    ListAt(5, controls::SortOrder),
    LabelAt(6, LabelId(2), L"Mileage rate:"),
    FieldAt(6, controls::OptionsMileageRate, L"EDIT", EditStyle),
    LabelAt(7, LabelId(5), L"Text size:"),
    ListAt(7, controls::TextSize),
    SpinAt(0, controls::DistanceUnitSpin),
    SpinAt(1, controls::VolumeUnitSpin),
    SpinAt(4, controls::SortColumnSpin),
    SpinAt(5, controls::SortOrderSpin),
    SpinAt(7, controls::TextSizeSpin),
    SpinAt(2, controls::EconomyUnitSpin),
};

// The picture is twice as wide as high, and a unit's height is about twice its width: both measures are alike.
constexpr int PictureWidth = 80;
constexpr int PictureHeight = 40;

constexpr DialogItemTemplate AboutItems[] = {
    {L"STATIC", TextStyle | SS_BITMAP, Margin, Top, PictureWidth, PictureHeight, controls::AboutPicture, L""},
    {L"STATIC", TextStyle, Margin, 50, Inside, 12, controls::AboutName, L""},
    {L"STATIC", TextStyle, Margin, 62, Inside, 12, controls::AboutVersion, L""},
    {L"STATIC", TextStyle, Margin, 78, Inside, 22, controls::AboutRights,
        L"\u00a9 2026 the Odoledger authors.\nMIT licence; see LICENSE."},
};

constexpr DialogItemTemplate DateRangeItems[] = {
    LabelAt(0, LabelId(0), L"Start date:"),
    FieldAt(0, controls::StartDate, L"SysDateTimePick32", FieldStyle),
    LabelAt(1, LabelId(1), L"End date:"),
    FieldAt(1, controls::EndDate, L"SysDateTimePick32", FieldStyle),
    {L"STATIC", TextStyle, Margin, Top + 2 * Pitch + 4, Inside, 22, NoDialogItemId,
        L"Press 'Menu' for several preset date ranges."},
};

constexpr const wchar_t* DialogFont = L"MS Shell Dlg";
constexpr int DialogFontPoints = 8;

} // namespace

namespace templates {

constexpr DLGTEMPLATE Options{
    ScrollingStyle, Width, Top + 8 * Pitch, L"Options", DialogFont, DialogFontPoints, OptionsItems};
constexpr DLGTEMPLATE About{DialogStyle, Width, 102, L"About", DialogFont, DialogFontPoints, AboutItems};
constexpr DLGTEMPLATE DateRange{
    DialogStyle, Width, 80, L"Select Date Range", DialogFont, DialogFontPoints, DateRangeItems};

} // namespace templates
