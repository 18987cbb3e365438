#pragma once

#include "platform/window_object.h"

class CNotification;
class CVehicle;

/// "Reminder": one reminder that has fallen due. It changes nothing by itself: DoModal gives 1 for "Delete", 2 for
/// "Remind Later". The Action and Back keys do nothing, so that no reminder is lost by a careless press.
class CDlgNotificationFire final : public CDialogImpl {
public:
    /// What is shown; the caller's, both set before DoModal.
    const CNotification* Reminder = nullptr;
    const CVehicle* Vehicle = nullptr;

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void OnInitDialog() const;
    void ShowVehicleInBold() const;
    void ShowValues() const;
    void Show(UINT id, const wchar_t* text) const;
};
