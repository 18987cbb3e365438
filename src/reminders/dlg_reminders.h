#pragma once

#include "forms/dialog_helpers.h"
#include "forms/full_screen_dialog.h"
#include "lists/notification_list_view.h"

#include <string>

/// "Upcoming Reminders": the reminders of the active vehicle, to add, edit and delete. A change is in the data file at
/// once, so how the dialog ends tells nothing.
class CDlgReminders final : public CFullScreenDialog {
public:
    CDlgReminders();

    /// What stands above the list; set before DoModal.
    std::wstring Heading;

protected:
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnInitDialog() override;
    void OnSize() const override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    /// The Action key.
    void OnDone() override;

private:
    void OnNotify(const NMHDR* note);
    void OnNew();
    void OnEdit();
    void OnDelete();
    HWND List() const { return listView_.GetHandle(); }

    CNotificationListView listView_;
    InputPanelRecord inputPanel_;
};
