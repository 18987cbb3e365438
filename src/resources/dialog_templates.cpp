#include "resources/dialog_templates.h"

#include "platform/list_view.h"
#include "platform/messages.h"
#include "resources/ids.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

// Styles.

constexpr DWORD DialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT;
constexpr DWORD ScrollingStyle = DialogStyle | WS_VSCROLL;
constexpr DWORD ControlStyle = WS_CHILD | WS_VISIBLE;
constexpr DWORD FieldStyle = ControlStyle | WS_TABSTOP;
constexpr DWORD EditStyle = FieldStyle | ES_AUTOHSCROLL;
constexpr DWORD GroupStart = 0x00020000;
constexpr DWORD PlainRowHeights = 0x100; // a row may show in part, so that the list fills the screen
constexpr DWORD RightOfBuddy = 0x14;

/// A class of controls and its style.
struct Kind {
    const wchar_t* windowClass;
    DWORD style;
};

constexpr Kind FormLabel{L"STATIC", ControlStyle | GroupStart};
constexpr Kind Label{L"STATIC", ControlStyle};
constexpr Kind Picture{L"STATIC", ControlStyle | SS_BITMAP};
/// A vehicle's name and year, whose length nobody limits.
constexpr Kind Heading{L"STATIC", ControlStyle | SS_ENDELLIPSIS};

constexpr Kind Date{L"SysDateTimePick32", FieldStyle};
constexpr Kind Text{L"EDIT", EditStyle};
constexpr Kind Digits{L"EDIT", EditStyle | ES_NUMBER};
constexpr Kind Capitals{L"EDIT", EditStyle | ES_UPPERCASE};
constexpr Kind ReadOnly{L"EDIT", EditStyle | ES_READONLY};
constexpr Kind Disabled{L"EDIT", EditStyle | WS_DISABLED};
constexpr Kind Framed{L"EDIT", EditStyle | WS_BORDER};
constexpr Kind LongText{L"EDIT", EditStyle | ES_MULTILINE};
constexpr Kind LongTextSpin{L"msctls_updown32", ControlStyle | UDS_EXPANDABLE | UDS_NOSCROLL | RightOfBuddy};
constexpr Kind Choice{L"LISTBOX", FieldStyle | LBS_NOTIFY};
constexpr Kind ChoiceSpin{L"msctls_updown32", ControlStyle | UDS_HORZ | UDS_WRAP};

constexpr Kind KeywordList{L"LISTBOX", FieldStyle | WS_VSCROLL | PlainRowHeights | LBS_SORT | LBS_NOTIFY};
constexpr Kind ReminderList{
    L"SysListView32", FieldStyle | WS_BORDER | LVS_NOSORTHEADER | LVS_AUTOARRANGE | LVS_SINGLESEL | LVS_REPORT};
constexpr Kind FigureList{L"SysListView32",
    FieldStyle | LVS_NOSORTHEADER | LVS_NOCOLUMNHEADER | LVS_OWNERDRAWFIXED | LVS_SINGLESEL | LVS_REPORT};

static_assert(ScrollingStyle == 0x80E80040 && FormLabel.style == 0x50020000 && Digits.style == 0x50012080
    && Capitals.style == 0x50010088 && ReadOnly.style == 0x50010880 && Framed.style == 0x50810080
    && LongText.style == 0x50010084 && LongTextSpin.style == 0x50000614 && KeywordList.style == 0x50210103
    && ReminderList.style == 0x50818105);

// The grid, in dialog units: rows one under the other, in each a label above a control.

constexpr int Width = 115;
constexpr int WideWidth = 119;
constexpr int Margin = 3;
constexpr int Inside = Width - 2 * Margin;
constexpr int Top = 2;
constexpr int LabelHeight = 11; // the label font is taller than the template's
constexpr int ControlHeight = 12;
constexpr int LineHeight = 10;
constexpr int Pitch = 25;
constexpr int FullHeight = 154;

constexpr int LabelTop(int row) {
    return Top + row * Pitch;
}

constexpr int ControlTop(int row) {
    return LabelTop(row) + LabelHeight;
}

constexpr UINT LabelId(UINT number) {
    return controls::FirstLabel + number;
}

constexpr DialogItemTemplate Item(
    Kind kind, int top, int width, int height, UINT id, const wchar_t* text = L"", int left = Margin) {
    return {kind.windowClass, kind.style, left, top, width, height, id, text};
}

/// A label runs to the right edge: the longest one needs it in the label font.
constexpr DialogItemTemplate LabelAt(int row, UINT id, const wchar_t* text, Kind kind = Label, int width = Width) {
    return Item(kind, LabelTop(row), width - Margin, LabelHeight, id, text);
}

constexpr DialogItemTemplate ControlAt(int row, UINT id, Kind kind, int width = Width) {
    return Item(kind, ControlTop(row), width - 2 * Margin, ControlHeight, id);
}

/// Its buddy paints what there is to see; the up-down itself needs no room.
constexpr DialogItemTemplate SpinAt(int row, UINT id, Kind kind, int width = Width) {
    return Item(kind, ControlTop(row), 0, ControlHeight, id, L"", width - Margin);
}

constexpr DLGTEMPLATE Dialog(
    DWORD style, int width, int height, const wchar_t* title, std::span<const DialogItemTemplate> items) {
    return {style, width, height, title, L"MS Shell Dlg", 8, items};
}

// The record forms: columns of rows, whose labels are numbered from the top.

struct Row {
    const wchar_t* label;
    UINT id;
    Kind kind;
    UINT spin = 0; ///< the up-down of a long text
};

template <const auto& Rows, int FormWidth> constexpr auto Column() {
    constexpr auto Spins
        = std::count_if(std::begin(Rows), std::end(Rows), [](const Row& row) { return row.spin != 0; });
    std::array<DialogItemTemplate, 2 * std::size(Rows) + Spins> items = {};
    auto item = items.begin();
    for (std::size_t index = 0; index < std::size(Rows); ++index) {
        const Row& row = Rows[index];
        const auto number = static_cast<int>(index);
        *item++ = LabelAt(number, LabelId(static_cast<UINT>(index)), row.label, FormLabel, FormWidth);
        *item++ = ControlAt(number, row.id, row.kind, FormWidth);
        if (row.spin != 0)
            *item++ = SpinAt(number, row.spin, LongTextSpin, FormWidth);
    }
    return items;
}

constexpr const wchar_t* ByUnit = L"#"; // set from the volume unit when the form opens
static_assert(controls::VolumeLabel == LabelId(2) && controls::UnitPriceLabel == LabelId(3));

constexpr Row FuelRows[] = {
    {L"Date:", controls::Date, Date},
    {L"Odometer:", controls::Odometer, Digits},
    {ByUnit, controls::Volume, Text},
    {ByUnit, controls::UnitPrice, Text},
    {L"Total cost:", controls::Money, Text},
    {L"Vendor:", controls::FirstText, Text},
    {L"Notes:", controls::Notes, LongText, controls::NotesSpin},
};

constexpr Row RepairRows[] = {
    {L"Date:", controls::Date, Date}, {L"Odometer:", controls::Odometer, Digits},
    {L"Description:", controls::FirstText, Text}, {L"Location/Vendor:", controls::Vendor, Text},
    {L"Amount paid:", controls::Money, Text},
    {L"Notes", controls::Notes, LongText, controls::NotesSpin}, // without a colon, in this form alone
};

constexpr Row ExpenseRows[] = {
    {L"Date:", controls::Date, Date},
    {L"Odometer:", controls::Odometer, Digits},
    {L"Description:", controls::FirstText, Text},
    {L"Vendor:", controls::Vendor, Text},
    {L"Amt. paid:", controls::Money, Text},
    {L"Notes:", controls::Notes, LongText, controls::NotesSpin},
};

constexpr Row TripRows[] = {
    {L"Date:", controls::Date, Date},
    {L"Description/purpose:", controls::FirstText, Text},
    {L"Start odometer:", controls::StartOdometer, Digits},
    {L"End odometer:", controls::EndOdometer, Digits},
    {L"Elapsed distance:", controls::ElapsedDistance, Digits},
    {L"Mileage rate:", controls::TripMileageRate, ReadOnly},
    {L"Total cost:", controls::Money, Text},
    {L"Category:", controls::Category, Text},
    {L"Notes:", controls::Notes, LongText, controls::NotesSpin},
};

constexpr Row VehicleRows[] = {
    {L"Name:", controls::FirstText, Text},
    {L"Year:", controls::Year, Digits},
    {L"Current odometer:", controls::Odometer, Digits},
    {L"License plate:", controls::LicensePlate, Capitals},
    {L"Vehicle ID number:", controls::VIN, Capitals},
    {L"Insurance agent name:", controls::AgentName, Text},
    {L"Agent phone:", controls::AgentPhone, Capitals},
    {L"Policy number:", controls::PolicyNumber, Capitals},
    {L"Coverage details:", controls::Coverage, LongText, controls::CoverageSpin},
    {L"Expiration date:", controls::Date, Date},
    {L"Dealer name:", controls::DealerName, Text},
    {L"Dealer phone:", controls::DealerPhone, Capitals},
    {L"Dealer address:", controls::DealerAddress, LongText, controls::DealerAddressSpin},
    {L"Notes:", controls::Notes, LongText, controls::NotesSpin},
};

constexpr auto FuelItems = Column<FuelRows, Width>();
constexpr auto RepairItems = Column<RepairRows, Width>();
constexpr auto ExpenseItems = Column<ExpenseRows, WideWidth>();
constexpr auto TripItems = Column<TripRows, Width>();
constexpr auto VehicleItems = Column<VehicleRows, WideWidth>();

// Keywords and statistics: one list over the whole screen.

constexpr DialogItemTemplate KeywordItems[] = {Item(KeywordList, 0, Width, FullHeight, controls::List, L"", 0)};
constexpr DialogItemTemplate FigureItems[] = {Item(FigureList, 0, Width, FullHeight, controls::List, L"", 0)};

constexpr DialogItemTemplate KeywordNameItems[] = {
    Item(Label, LabelTop(0), Inside, LabelHeight, NoDialogItemId, L"Name:"),
    ControlAt(0, controls::FirstText, Framed),
};

// Reminders: closer than the grid's rows, so that a screen holds them.

constexpr int HeadingHeight = 16; // room for the largest of the text sizes, in bold

constexpr DialogItemTemplate LineAt(int top, UINT id, const wchar_t* text = L"") {
    return Item(Label, top, Inside, LineHeight, id, text);
}

constexpr DialogItemTemplate ReminderLabelAt(int top, UINT number, const wchar_t* text) {
    return Item(Label, top, Inside, LabelHeight, LabelId(number), text);
}

constexpr DialogItemTemplate DueItems[] = {
    Item(Label, 3, Inside, 2 * LineHeight, controls::DueHeading,
        L"The following maintenance is now due:"), // wraps when narrow
    Item(Heading, 24, Inside, HeadingHeight, controls::DueVehicle),
    Item(ReadOnly, 41, Inside, ControlHeight, controls::FirstText),
    ReminderLabelAt(57, 0, L"Reminder odometer:"),
    LineAt(68, controls::DueReminderOdometer),
    ReminderLabelAt(80, 1, L"Current odometer:"),
    LineAt(91, controls::DueCurrentOdometer),
    ReminderLabelAt(103, 2, L"Reminder date:"),
    LineAt(114, controls::DueReminderDate),
    ReminderLabelAt(126, 3, L"Current date:"),
    LineAt(137, controls::DueCurrentDate),
};

constexpr DialogItemTemplate EditReminderItems[] = {
    ReminderLabelAt(2, 0, L"Description:"),
    Item(Text, 13, Inside, ControlHeight, controls::FirstText),
    ReminderLabelAt(31, 1, L"Remind me when..."),
    LineAt(44, NoDialogItemId, L"the odometer reaches:"),
    Item(Digits, 54, Inside, ControlHeight, controls::Odometer),
    LineAt(70, NoDialogItemId, L"or the date is past:"),
    Item(Date, 80, Inside, ControlHeight, controls::Date),
};

constexpr DialogItemTemplate ReminderItems[] = {
    Item(Heading, 3, Inside, LabelHeight, controls::FirstText),
    Item(ReminderList, 17, Inside, 134, controls::List),
};

// Preferences, and what goes with them.

constexpr int SymbolWidth = 40;

constexpr DialogItemTemplate OptionsItems[] = {
    LabelAt(0, LabelId(0), L"Distance unit:"),
    ControlAt(0, controls::DistanceUnit, Choice),
    LabelAt(1, LabelId(1), L"Volume unit:"),
    ControlAt(1, controls::VolumeUnit, Choice),
    LabelAt(2, controls::EconomyUnitLabel, L"Fuel economy unit:"),
    ControlAt(2, controls::EconomyUnit, Choice),
    LabelAt(3, LabelId(6), L"Currency:"),
    Item(Disabled, ControlTop(3), SymbolWidth, ControlHeight, controls::Currency),
    LabelAt(4, LabelId(3), L"Sort entries by:"),
    ControlAt(4, controls::SortColumn, Choice),
    LabelAt(5, LabelId(4), L"Sort order:"),
    ControlAt(5, controls::SortOrder, Choice),
    LabelAt(6, LabelId(2), L"Mileage rate:"),
    ControlAt(6, controls::OptionsMileageRate, Text),
    LabelAt(7, LabelId(5), L"Text size:"),
    ControlAt(7, controls::TextSize, Choice),
    SpinAt(0, controls::DistanceUnitSpin, ChoiceSpin),
    SpinAt(1, controls::VolumeUnitSpin, ChoiceSpin),
    SpinAt(4, controls::SortColumnSpin, ChoiceSpin),
    SpinAt(5, controls::SortOrderSpin, ChoiceSpin),
    SpinAt(7, controls::TextSizeSpin, ChoiceSpin),
    SpinAt(2, controls::EconomyUnitSpin, ChoiceSpin),
};

// The picture is twice as wide as high, and a unit's height is about twice its width: both measures are alike.
constexpr int PictureWidth = 80;
constexpr int PictureHeight = 40;

constexpr DialogItemTemplate AboutItems[] = {
    Item(Picture, Top, PictureWidth, PictureHeight, controls::AboutPicture),
    Item(Label, 50, Inside, 12, controls::AboutName),
    Item(Label, 62, Inside, 12, controls::AboutVersion),
    Item(
        Label, 78, Inside, 22, controls::AboutRights, L"\u00a9 2026 the Odoledger authors.\nMIT licence; see LICENSE."),
};

constexpr DialogItemTemplate DateRangeItems[] = {
    LabelAt(0, LabelId(0), L"Start date:"),
    ControlAt(0, controls::StartDate, Date),
    LabelAt(1, LabelId(1), L"End date:"),
    ControlAt(1, controls::EndDate, Date),
    Item(Label, LabelTop(2) + 4, Inside, 22, NoDialogItemId, L"Press 'Menu' for several preset date ranges."),
};

} // namespace

namespace templates {

constexpr DLGTEMPLATE FuelEntry = Dialog(ScrollingStyle, Width, 179, L"Fuel Entry", FuelItems);
constexpr DLGTEMPLATE Repair = Dialog(ScrollingStyle, Width, 154, L"Repair", RepairItems);
constexpr DLGTEMPLATE Expense = Dialog(ScrollingStyle, WideWidth, 153, L"Expense", ExpenseItems);
constexpr DLGTEMPLATE Trip = Dialog(ScrollingStyle, Width, 226, L"Trip", TripItems);
constexpr DLGTEMPLATE Vehicle = Dialog(ScrollingStyle, WideWidth, 350, L"Vehicle Properties", VehicleItems);
constexpr DLGTEMPLATE Keywords = Dialog(DialogStyle, Width, FullHeight, L"#", KeywordItems); // titled by its type
constexpr DLGTEMPLATE KeywordName = Dialog(DialogStyle, Width, 28, L"Add Category", KeywordNameItems);
constexpr DLGTEMPLATE DueReminder = Dialog(ScrollingStyle, Width, 150, L"Reminder", DueItems);
constexpr DLGTEMPLATE EditReminder = Dialog(ScrollingStyle, Width, 96, L"Edit Reminder", EditReminderItems);
constexpr DLGTEMPLATE Reminders = Dialog(DialogStyle, Width, FullHeight, L"Upcoming Reminders", ReminderItems);
constexpr DLGTEMPLATE QuickStats = Dialog(DialogStyle, Width, FullHeight, L"Quick Stats", FigureItems);
constexpr DLGTEMPLATE Options = Dialog(ScrollingStyle, Width, LabelTop(8), L"Options", OptionsItems);
constexpr DLGTEMPLATE About = Dialog(DialogStyle, Width, 102, L"About", AboutItems);
constexpr DLGTEMPLATE DateRange = Dialog(DialogStyle, Width, 80, L"Select Date Range", DateRangeItems);

} // namespace templates
