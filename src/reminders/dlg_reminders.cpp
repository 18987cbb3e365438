#include "reminders/dlg_reminders.h"

#include "forms/dialog_helpers.h"
#include "lists/app_fonts.h"
#include "messages/store_record.h"
#include "platform/input.h"
#include "reminders/control_place.h"
#include "reminders/edit_reminder.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "settings/app_settings.h"

#include <algorithm>

namespace {

constexpr UINT Stretched[] = {controls::FirstText};
constexpr WPARAM InputPanelChanged = 224;
constexpr const wchar_t* DeleteQuestion = L"Are you sure you want to delete this reminder?";

} // namespace

LPCDLGTEMPLATEW CDlgReminders::GetTemplate() const {
    return &templates::Reminders;
}

bool CDlgReminders::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& /*result*/) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        OnSize();
        return true;
    case WM_COMMAND:
        return OnCommand(LOWORD(wParam));
    case WM_NOTIFY:
        OnNotify(reinterpret_cast<const NMHDR*>(lParam)); // NOLINT(performance-no-int-to-ptr)
        return true;
    case WM_ACTIVATE:
    case WM_SETTINGCHANGE:
        SHHandleWMSettingChange(GetHandle(), wParam, lParam, &activation_);
        return true;
    default:
        return false;
    }
}

void CDlgReminders::OnInitDialog() {
    const HWND dialog = GetHandle();
    const HWND heading = GetDlgItem(dialog, static_cast<int>(controls::FirstText));
    CreateSoftKeyBar(dialog, menus::Reminders, false, false);
    InitFullScreen(dialog);
    SendMessageW(heading, WM_SETFONT, reinterpret_cast<WPARAM>(LabelFont), TRUE);
    listView_.Subclass(GetDlgItem(dialog, static_cast<int>(controls::List)));
    listView_.InitColumns();
    listView_.Reload(theSettings.LastActiveVehicle);
    SetWindowTextW(heading, Heading.c_str());
    PostMessageW(List(), WM_SIZE, 0, 0);
    activation_ = {};
    activation_.size = sizeof(activation_);
    SHHandleWMSettingChange(dialog, InputPanelChanged, 0, &activation_);
}

void CDlgReminders::OnSize() const {
    const HWND dialog = GetHandle();
    const HWND list = GetDlgItem(dialog, static_cast<int>(controls::List));
    RECT client;
    if (!list || !GetClientRect(dialog, &client))
        return;
    StretchControls(dialog, Stretched);
    const RECT heading = ControlPlace(dialog, GetDlgItem(dialog, static_cast<int>(controls::FirstText)));
    const LONG top = ControlPlace(dialog, list).top;
    MoveWindow(list, heading.left, top, heading.right - heading.left,
        std::max<LONG>(0, client.bottom - top - heading.left), TRUE);
}

bool CDlgReminders::OnCommand(UINT command) {
    switch (command) {
    case commands::Cancel:
        EndDialog(GetHandle(), commands::Cancel);
        return true;
    case commands::NewReminderInList:
        OnNew();
        return true;
    case commands::Edit:
        OnEdit();
        return true;
    case commands::Delete:
        OnDelete();
        return true;
    case commands::Done: // the Action key
        if (GetFocus() == List())
            OnEdit();
        return true;
    default:
        return false;
    }
}

void CDlgReminders::OnNotify(const NMHDR* note) {
    if (!note || note->idFrom != controls::List)
        return;
    if (note->code == NM_CLICK
        || (note->code == LVN_KEYDOWN && reinterpret_cast<const NMLVKEYDOWN*>(note)->wVKey == VK_TACTION))
        OnEdit();
}

void CDlgReminders::OnNew() {
    CNotification reminder;
    if (!EditReminder(&reminder))
        return;
    ShowReminderCreated();
    listView_.Reload(theSettings.LastActiveVehicle);
    SetFocus(List());
}

void CDlgReminders::OnEdit() {
    CNotification* reminder = listView_.GetSelectedReminder();
    if (!reminder || !EditReminder(reminder))
        return;
    listView_.AddRow(reminder, 1);
    SetFocus(List());
}

void CDlgReminders::OnDelete() {
    if (MessageBoxW(GetHandle(), DeleteQuestion, L"", MB_OKCANCEL) == IDCANCEL)
        return;
    const CNotification* reminder = listView_.GetSelectedReminder();
    // The record stays with the list until it is loaded anew; only its row goes.
    if (reminder && DeleteStored(reminder))
        listView_.DeleteRow(listView_.GetNextSelected(-1));
}
