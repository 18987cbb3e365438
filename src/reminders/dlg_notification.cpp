#include "reminders/dlg_notification.h"

#include "forms/dialog_helpers.h"
#include "messages/show_message.h"
#include "platform/input.h"
#include "platform/time.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

namespace {

constexpr UINT Stretched[] = {controls::FirstText};

} // namespace

LPCDLGTEMPLATEW CDlgNotification::GetTemplate() const {
    return &templates::EditReminder;
}

bool CDlgNotification::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& /*result*/) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        StretchControls(GetHandle(), Stretched);
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
        // Whatever has the focus: here the Back key never closes the form.
        if (HIWORD(static_cast<std::uintptr_t>(lParam)) != VK_TBACK)
            return false;
        SHSendBackToFocusWindow(message, wParam, lParam);
        return true;
    default:
        return false;
    }
}

void CDlgNotification::OnInitDialog() {
    CreateSoftKeyBar(GetHandle(), menus::DoneCancel, true, false);
    ApplyLabelFont(GetHandle());
    InitFullScreen(GetHandle());
    datePicker_ = GetDlgItem(GetHandle(), static_cast<int>(controls::Date));
    ShowDate();
    ExchangeFields(false);
}

bool CDlgNotification::ExchangeFields(bool save) {
    return ExchangeInt(controls::Odometer, Odometer, save) && ExchangeText(controls::FirstText, Description, save);
}

void CDlgNotification::OnDone() {
    if (!ExchangeFields(true))
        return;
    if (Description.empty()) {
        ShowMessage(GetHandle(), strings::DescriptionRequired, strings::AppName, messages::NoticeStyle);
        SetFocus(GetDlgItem(GetHandle(), static_cast<int>(controls::FirstText)));
        return;
    }
    ReadDate();
    EndDialog(GetHandle(), commands::Done);
}

void CDlgNotification::ShowDate() const {
    SYSTEMTIME time;
    // A date beyond the calendar leaves the picker at the date that it has of itself.
    if (VariantTimeToSystemTime(Date, &time))
        SendMessageW(datePicker_, DTM_SETSYSTEMTIME, static_cast<WPARAM>(GDT_VALID), reinterpret_cast<LPARAM>(&time));
}

void CDlgNotification::ReadDate() {
    SYSTEMTIME time;
    if (SendMessageW(datePicker_, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&time)) == GDT_VALID)
        SystemTimeToVariantTime(&time, &Date);
}
