#pragma once

#include "lists/notification_list_view.h"
#include "platform/window_object.h"

#include <string>

/// "Upcoming Reminders": the reminders of the active vehicle, to add, edit and delete. A change is in the data file at
/// once, so how the dialog ends tells nothing.
class CDlgReminders final : public CDialogImpl {
public:
    /// What stands above the list; set before DoModal.
    std::wstring Heading;

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    /// The shell's notes on this dialog and the input panel. The shell knows it by its size.
    struct ActivationRecord {
        DWORD size = 0;
        DWORD state[2] = {};
    };
    static_assert(sizeof(ActivationRecord) == 12);

    void OnInitDialog();
    void OnSize() const;
    bool OnCommand(UINT command);
    void OnNotify(const NMHDR* note);
    void OnNew();
    void OnEdit();
    void OnDelete();
    HWND List() const { return listView_.GetHandle(); }

    CNotificationListView listView_;
    ActivationRecord activation_;
};
