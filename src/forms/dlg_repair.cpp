#include "forms/dlg_repair.h"

#include "messages/show_message.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

CDlgRepair::CDlgRepair()
    : CPaidEntryForm(templates::Repair) {
}

bool CDlgRepair::ExchangeFields(bool save) {
    return ExchangeInt(controls::Odometer, Odometer, save) && ExchangeFloat(controls::Money, Amount, save)
        && ExchangeText(controls::Vendor, Vendor, save) && ExchangeText(controls::FirstText, Description, save)
        && ExchangeText(controls::Notes, Notes, save);
}

void CDlgRepair::OnSaveFailed() {
    // No other form says it, so it stands outside the string table, and as it was always spelled.
    ShowMessage(GetHandle(), L"An error occured, please double check your inputs.", strings::EntryProperties,
        messages::NoticeStyle);
}

bool CDlgRepair::OnCommand(UINT id, UINT code, HWND sender) {
    // Cancel comes the way of Done here: without a sending window it is ignored.
    if (id == commands::Cancel && !sender)
        return true;
    return CPaidEntryForm::OnCommand(id, code, sender);
}
