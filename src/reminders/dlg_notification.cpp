#include "reminders/dlg_notification.h"

#include "forms/dialog_helpers.h"
#include "messages/show_message.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

namespace {

constexpr UINT Stretched[] = {controls::FirstText};

} // namespace

CDlgNotification::CDlgNotification()
    : CFullScreenDialog(templates::EditReminder, menus::DoneCancel, BackKey::IsHandedOn) {
}

bool CDlgNotification::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    ShowDate(Item(controls::Date), Date);
    ExchangeFields(false);
    return true;
}

void CDlgNotification::OnSize() const {
    StretchControls(GetHandle(), Stretched);
}

bool CDlgNotification::ExchangeFields(bool save) {
    return ExchangeInt(controls::Odometer, Odometer, save) && ExchangeText(controls::FirstText, Description, save);
}

void CDlgNotification::OnDone() {
    if (!ExchangeFields(true))
        return;
    if (Description.empty()) {
        ShowMessage(GetHandle(), strings::DescriptionRequired, strings::AppName, messages::NoticeStyle);
        SetFocus(Item(controls::FirstText));
        return;
    }
    ReadDate(Item(controls::Date), &Date);
    EndDialog(GetHandle(), commands::Done);
}
