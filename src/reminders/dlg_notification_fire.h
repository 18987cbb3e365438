#pragma once

#include "forms/full_screen_dialog.h"

class CNotification;
class CVehicle;

/// "Reminder": one reminder that has fallen due. It changes nothing by itself: DoModal gives 1 for "Delete", 2 for
/// "Remind Later". The Action and Back keys do nothing, so that no reminder is lost by a careless press.
class CDlgNotificationFire final : public CFullScreenDialog {
public:
    CDlgNotificationFire();

    /// What is shown; the caller's, both set before DoModal.
    const CNotification* Reminder = nullptr;
    const CVehicle* Vehicle = nullptr;

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;

private:
    void ShowVehicleInBold() const;
    void ShowValues() const;
};
