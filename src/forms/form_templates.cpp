#include "forms/form_templates.h"

#include "platform/messages.h"
#include "resources/ids.h"

namespace {

constexpr DWORD FormStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_VSCROLL | DS_SETFONT;
constexpr DWORD FieldStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;

/// A class of controls and its style.
struct Kind {
    const wchar_t* windowClass;
    DWORD style;
};

constexpr DWORD GroupStart = 0x00020000;
constexpr DWORD SpinOfLongText = WS_CHILD | WS_VISIBLE | UDS_EXPANDABLE | UDS_NOSCROLL | 0x14; // right of its buddy

constexpr Kind Label{L"STATIC", WS_CHILD | WS_VISIBLE | GroupStart};
constexpr Kind Date{L"SysDateTimePick32", FieldStyle};
constexpr Kind Digits{L"EDIT", FieldStyle | ES_AUTOHSCROLL | ES_NUMBER};
constexpr Kind Text{L"EDIT", FieldStyle | ES_AUTOHSCROLL};
constexpr Kind ReadOnly{L"EDIT", FieldStyle | ES_AUTOHSCROLL | ES_READONLY};
constexpr Kind Capitals{L"EDIT", FieldStyle | ES_AUTOHSCROLL | ES_UPPERCASE};
constexpr Kind LongText{L"EDIT", FieldStyle | ES_AUTOHSCROLL | ES_MULTILINE};
constexpr Kind Spin{L"msctls_updown32", SpinOfLongText};

static_assert(FormStyle == 0x80E80040 && Digits.style == 0x50012080 && LongText.style == 0x50010084);
static_assert(Capitals.style == 0x50010088 && ReadOnly.style == 0x50010880 && Label.style == 0x50020000
    && Spin.style == 0x50000614);

// Dialog units.
constexpr int Margin = 3;
constexpr int Top = 2;
constexpr int LabelHeight = 11; // the label font is taller than the template's
constexpr int ControlHeight = 12;
constexpr int Pitch = 25;

/// A label runs to the right edge: the longest one needs it in the label font.
constexpr DialogItemTemplate LabelAt(int row, int width, UINT id, const wchar_t* text) {
    return {Label.windowClass, Label.style, Margin, Top + row * Pitch, width - Margin, LabelHeight, id, text};
}

constexpr DialogItemTemplate FieldAt(int row, int width, UINT id, Kind kind) {
    return {kind.windowClass, kind.style, Margin, Top + row * Pitch + LabelHeight, width - 2 * Margin, ControlHeight,
        id, L""};
}

/// A long text's up-down shows nothing of its own; it needs no room.
constexpr DialogItemTemplate SpinAt(int row, int width, UINT id) {
    return {Spin.windowClass, Spin.style, width - Margin, Top + row * Pitch + LabelHeight, 0, ControlHeight, id, L""};
}

constexpr UINT LabelId(UINT number) {
    return controls::FirstLabel + number;
}

constexpr int FuelWidth = 115;
constexpr const wchar_t* ByUnit = L"#"; // set from the volume unit when the form opens

constexpr DialogItemTemplate FuelItems[] = {
    LabelAt(0, FuelWidth, LabelId(0), L"Date:"),
    FieldAt(0, FuelWidth, controls::Date, Date),
    LabelAt(1, FuelWidth, LabelId(1), L"Odometer:"),
    FieldAt(1, FuelWidth, controls::Odometer, Digits),
    LabelAt(2, FuelWidth, controls::VolumeLabel, ByUnit),
    FieldAt(2, FuelWidth, controls::Volume, Text),
    LabelAt(3, FuelWidth, controls::UnitPriceLabel, ByUnit),
    FieldAt(3, FuelWidth, controls::UnitPrice, Text),
    LabelAt(4, FuelWidth, LabelId(4), L"Total cost:"),
    FieldAt(4, FuelWidth, controls::Money, Text),
    LabelAt(5, FuelWidth, LabelId(5), L"Vendor:"),
    FieldAt(5, FuelWidth, controls::FirstText, Text),
    LabelAt(6, FuelWidth, LabelId(6), L"Notes:"),
    FieldAt(6, FuelWidth, controls::Notes, LongText),
    SpinAt(6, FuelWidth, controls::NotesSpin),
};

constexpr int RepairWidth = 115;

constexpr DialogItemTemplate RepairItems[] = {
    LabelAt(0, RepairWidth, LabelId(0), L"Date:"),
    FieldAt(0, RepairWidth, controls::Date, Date),
    LabelAt(1, RepairWidth, LabelId(1), L"Odometer:"),
    FieldAt(1, RepairWidth, controls::Odometer, Digits),
    LabelAt(2, RepairWidth, LabelId(2), L"Description:"),
    FieldAt(2, RepairWidth, controls::FirstText, Text),
    LabelAt(3, RepairWidth, LabelId(3), L"Location/Vendor:"),
    FieldAt(3, RepairWidth, controls::Vendor, Text),
    LabelAt(4, RepairWidth, LabelId(4), L"Amount paid:"),
    FieldAt(4, RepairWidth, controls::Money, Text),
    LabelAt(5, RepairWidth, LabelId(5), L"Notes"), // without a colon, in this form alone
    FieldAt(5, RepairWidth, controls::Notes, LongText),
    SpinAt(5, RepairWidth, controls::NotesSpin),
};

constexpr int ExpenseWidth = 119;

constexpr DialogItemTemplate ExpenseItems[] = {
    LabelAt(0, ExpenseWidth, LabelId(0), L"Date:"),
    FieldAt(0, ExpenseWidth, controls::Date, Date),
    LabelAt(1, ExpenseWidth, LabelId(1), L"Odometer:"),
    FieldAt(1, ExpenseWidth, controls::Odometer, Digits),
    LabelAt(2, ExpenseWidth, LabelId(2), L"Description:"),
    FieldAt(2, ExpenseWidth, controls::FirstText, Text),
    LabelAt(3, ExpenseWidth, LabelId(3), L"Vendor:"),
    FieldAt(3, ExpenseWidth, controls::Vendor, Text),
    LabelAt(4, ExpenseWidth, LabelId(4), L"Amt. paid:"),
    FieldAt(4, ExpenseWidth, controls::Money, Text),
    LabelAt(5, ExpenseWidth, LabelId(5), L"Notes:"),
    FieldAt(5, ExpenseWidth, controls::Notes, LongText),
    SpinAt(5, ExpenseWidth, controls::NotesSpin),
};

constexpr int TripWidth = 115;

constexpr DialogItemTemplate TripItems[] = {
    LabelAt(0, TripWidth, LabelId(0), L"Date:"),
    FieldAt(0, TripWidth, controls::Date, Date),
    LabelAt(1, TripWidth, LabelId(1), L"Description/purpose:"),
    FieldAt(1, TripWidth, controls::FirstText, Text),
    LabelAt(2, TripWidth, LabelId(2), L"Start odometer:"),
    FieldAt(2, TripWidth, controls::StartOdometer, Digits),
    LabelAt(3, TripWidth, LabelId(3), L"End odometer:"),
    FieldAt(3, TripWidth, controls::EndOdometer, Digits),
    LabelAt(4, TripWidth, LabelId(4), L"Elapsed distance:"),
    FieldAt(4, TripWidth, controls::ElapsedDistance, Digits),
    LabelAt(5, TripWidth, LabelId(5), L"Mileage rate:"),
    FieldAt(5, TripWidth, controls::TripMileageRate, ReadOnly),
    LabelAt(6, TripWidth, LabelId(6), L"Total cost:"),
    FieldAt(6, TripWidth, controls::Money, Text),
    LabelAt(7, TripWidth, LabelId(7), L"Category:"),
    FieldAt(7, TripWidth, controls::Category, Text),
    LabelAt(8, TripWidth, LabelId(8), L"Notes:"),
    FieldAt(8, TripWidth, controls::Notes, LongText),
    SpinAt(8, TripWidth, controls::NotesSpin),
};

constexpr int VehicleWidth = 119;

constexpr DialogItemTemplate VehicleItems[] = {
    LabelAt(0, VehicleWidth, LabelId(0), L"Name:"),
    FieldAt(0, VehicleWidth, controls::FirstText, Text),
    LabelAt(1, VehicleWidth, LabelId(1), L"Year:"),
    FieldAt(1, VehicleWidth, controls::Year, Digits),
    LabelAt(2, VehicleWidth, LabelId(2), L"Current odometer:"),
    FieldAt(2, VehicleWidth, controls::Odometer, Digits),
    LabelAt(3, VehicleWidth, LabelId(3), L"License plate:"),
    FieldAt(3, VehicleWidth, controls::LicensePlate, Capitals),
    LabelAt(4, VehicleWidth, LabelId(4), L"Vehicle ID number:"),
    FieldAt(4, VehicleWidth, controls::VIN, Capitals),
    LabelAt(5, VehicleWidth, LabelId(5), L"Insurance agent name:"),
    FieldAt(5, VehicleWidth, controls::AgentName, Text),
    LabelAt(6, VehicleWidth, LabelId(6), L"Agent phone:"),
    FieldAt(6, VehicleWidth, controls::AgentPhone, Capitals),
    LabelAt(7, VehicleWidth, LabelId(7), L"Policy number:"),
    FieldAt(7, VehicleWidth, controls::PolicyNumber, Capitals),
    LabelAt(8, VehicleWidth, LabelId(8), L"Coverage details:"),
    FieldAt(8, VehicleWidth, controls::Coverage, LongText),
    SpinAt(8, VehicleWidth, controls::CoverageSpin),
    LabelAt(9, VehicleWidth, LabelId(9), L"Expiration date:"),
    FieldAt(9, VehicleWidth, controls::Date, Date),
    LabelAt(10, VehicleWidth, LabelId(10), L"Dealer name:"),
    FieldAt(10, VehicleWidth, controls::DealerName, Text),
    LabelAt(11, VehicleWidth, LabelId(11), L"Dealer phone:"),
    FieldAt(11, VehicleWidth, controls::DealerPhone, Capitals),
    LabelAt(12, VehicleWidth, LabelId(12), L"Dealer address:"),
    FieldAt(12, VehicleWidth, controls::DealerAddress, LongText),
    SpinAt(12, VehicleWidth, controls::DealerAddressSpin),
    LabelAt(13, VehicleWidth, LabelId(13), L"Notes:"),
    FieldAt(13, VehicleWidth, controls::Notes, LongText),
    SpinAt(13, VehicleWidth, controls::NotesSpin),
};

constexpr const wchar_t* FormFont = L"MS Shell Dlg";
constexpr int FormFontPoints = 8;

} // namespace

namespace templates {

constexpr DLGTEMPLATE FuelEntry{FormStyle, FuelWidth, 179, L"Fuel Entry", FormFont, FormFontPoints, FuelItems};
constexpr DLGTEMPLATE Repair{FormStyle, RepairWidth, 154, L"Repair", FormFont, FormFontPoints, RepairItems};
constexpr DLGTEMPLATE Expense{FormStyle, ExpenseWidth, 153, L"Expense", FormFont, FormFontPoints, ExpenseItems};
constexpr DLGTEMPLATE Trip{FormStyle, TripWidth, 226, L"Trip", FormFont, FormFontPoints, TripItems};
constexpr DLGTEMPLATE Vehicle{
    FormStyle, VehicleWidth, 350, L"Vehicle Properties", FormFont, FormFontPoints, VehicleItems};

} // namespace templates
