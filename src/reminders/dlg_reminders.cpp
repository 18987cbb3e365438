#include "reminders/dlg_reminders.h"

#include "forms/dialog_helpers.h"
#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "messages/store_record.h"
#include "platform/input.h"
#include "reminders/edit_reminder.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"
#include "settings/app_settings.h"

#include <algorithm>

namespace {

constexpr UINT Stretched[] = {controls::FirstText};
constexpr const wchar_t* DeleteQuestion = L"Are you sure you want to delete this reminder?";

} // namespace

CDlgReminders::CDlgReminders()
    : CFullScreenDialog(templates::Reminders, menus::Reminders, BackKey::IsCancel) {
}

bool CDlgReminders::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_NOTIFY:
        OnNotify(reinterpret_cast<const NMHDR*>(lParam));
        return true;
    case WM_ACTIVATE:
    case WM_SETTINGCHANGE:
        SHHandleWMSettingChange(GetHandle(), wParam, lParam, &inputPanel_);
        return true;
    default:
        return CFullScreenDialog::ProcessDialogMessage(message, wParam, lParam, result);
    }
}

bool CDlgReminders::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    const HWND heading = Item(controls::FirstText);
    SendMessageW(heading, WM_SETFONT, reinterpret_cast<WPARAM>(LabelFont), TRUE);
    listView_.Subclass(Item(controls::List));
    listView_.InitColumns();
    listView_.Reload(theSettings.LastActiveVehicle);
    SetWindowTextW(heading, Heading.c_str());
    PostMessageW(List(), WM_SIZE, 0, 0);
    inputPanel_ = {};
    FitToInputPanel(GetHandle(), &inputPanel_);
    return true;
}

void CDlgReminders::OnSize() const {
    const HWND dialog = GetHandle();
    const HWND list = Item(controls::List);
    RECT client;
    if (!list || !GetClientRect(dialog, &client))
        return;
    StretchControls(dialog, Stretched);
    const RECT heading = PlaceIn(dialog, Item(controls::FirstText));
    const LONG top = PlaceIn(dialog, list).top;
    MoveWindow(list, heading.left, top, heading.right - heading.left,
        std::max<LONG>(0, client.bottom - top - heading.left), TRUE);
}

bool CDlgReminders::OnCommand(UINT id, UINT code, HWND sender) {
    switch (id) {
    case commands::NewReminderInList:
        OnNew();
        return true;
    case commands::Edit:
        OnEdit();
        return true;
    case commands::Delete:
        OnDelete();
        return true;
    default:
        return CFullScreenDialog::OnCommand(id, code, sender);
    }
}

void CDlgReminders::OnDone() {
    if (GetFocus() == List())
        OnEdit();
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
