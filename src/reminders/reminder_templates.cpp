#include "reminders/reminder_templates.h"

#include "platform/list_view.h"
#include "platform/messages.h"
#include "resources/ids.h"

namespace {

constexpr DWORD DialogStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_SETFONT;
constexpr DWORD ScrollingStyle = DialogStyle | WS_VSCROLL;
constexpr DWORD TextStyle = WS_CHILD | WS_VISIBLE;
constexpr DWORD FieldStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP;
constexpr DWORD EditStyle = FieldStyle | ES_AUTOHSCROLL;
constexpr DWORD ListStyle = FieldStyle | WS_BORDER | LVS_NOSORTHEADER | LVS_AUTOARRANGE | LVS_SINGLESEL | LVS_REPORT;

static_assert(ListStyle == 0x50818105);

// Dialog units.
constexpr int Width = 115;
constexpr int Margin = 3;
constexpr int Inside = Width - 2 * Margin;
constexpr int LineHeight = 10;
constexpr int LabelHeight = 11; // the label font is taller than the template's
constexpr int HeadingHeight = 16; // room for the largest of the text sizes, in bold
constexpr int FieldHeight = 12;

constexpr DialogItemTemplate TextAt(int top, int height, UINT id, const wchar_t* text) {
    return {L"STATIC", TextStyle, Margin, top, Inside, height, id, text};
}

/// A vehicle's name and year, whose length nobody limits.
constexpr DialogItemTemplate HeadingAt(int top, int height, UINT id) {
    return {L"STATIC", TextStyle | SS_ENDELLIPSIS, Margin, top, Inside, height, id, L""};
}

constexpr DialogItemTemplate LineAt(int top, UINT id, const wchar_t* text = L"") {
    return TextAt(top, LineHeight, id, text);
}

constexpr DialogItemTemplate LabelAt(int top, UINT number, const wchar_t* text) {
    return TextAt(top, LabelHeight, controls::FirstLabel + number, text);
}

constexpr DialogItemTemplate EditAt(int top, UINT id, DWORD more = 0) {
    return {L"EDIT", EditStyle | more, Margin, top, Inside, FieldHeight, id, L""};
}

constexpr DialogItemTemplate DueItems[] = {
    TextAt(3, 2 * LineHeight, controls::DueHeading, L"The following maintenance is now due:"), // wraps when narrow
    HeadingAt(24, HeadingHeight, controls::DueVehicle),
    EditAt(41, controls::FirstText, ES_READONLY),
    LabelAt(57, 0, L"Reminder odometer:"),
    LineAt(68, controls::DueReminderOdometer),
    LabelAt(80, 1, L"Current odometer:"),
    LineAt(91, controls::DueCurrentOdometer),
    LabelAt(103, 2, L"Reminder date:"),
    LineAt(114, controls::DueReminderDate),
    LabelAt(126, 3, L"Current date:"),
    LineAt(137, controls::DueCurrentDate),
};

constexpr DialogItemTemplate EditItems[] = {
    LabelAt(2, 0, L"Description:"),
    EditAt(13, controls::FirstText),
    LabelAt(31, 1, L"Remind me when..."),
    LineAt(44, NoDialogItemId, L"the odometer reaches:"),
    EditAt(54, controls::Odometer, ES_NUMBER),
    LineAt(70, NoDialogItemId, L"or the date is past:"),
    {L"SysDateTimePick32", FieldStyle, Margin, 80, Inside, FieldHeight, controls::Date, L""},
};

constexpr int ListTop = 17;
constexpr int ListHeight = 134;

constexpr DialogItemTemplate ListItems[] = {
    HeadingAt(3, LabelHeight, controls::FirstText),
    {L"SysListView32", ListStyle, Margin, ListTop, Inside, ListHeight, controls::List, L""},
};

constexpr const wchar_t* DialogFont = L"MS Shell Dlg";
constexpr int DialogFontPoints = 8;

} // namespace

namespace templates {

constexpr DLGTEMPLATE DueReminder{ScrollingStyle, Width, 150, L"Reminder", DialogFont, DialogFontPoints, DueItems};
constexpr DLGTEMPLATE EditReminder{
    ScrollingStyle, Width, 96, L"Edit Reminder", DialogFont, DialogFontPoints, EditItems};
constexpr DLGTEMPLATE Reminders{
    DialogStyle, Width, 154, L"Upcoming Reminders", DialogFont, DialogFontPoints, ListItems};

} // namespace templates
