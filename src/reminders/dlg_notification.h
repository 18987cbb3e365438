#pragma once

#include "forms/field_exchange.h"
#include "platform/window_object.h"

#include <string>

/// "Edit Reminder": one reminder, new or not. The fields are copies; they hold something new only where DoModal gave 1
/// (Done), not 2 (Cancel).
class CDlgNotification final : public CDialogImpl, public CWinDataExchange<CDlgNotification> {
public:
    LONG Odometer = 0;
    std::wstring Description; ///< required
    double Date = 0.0; ///< OLE date; its time of day is kept

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void OnInitDialog();
    void OnDone();
    bool ExchangeFields(bool save);
    void ShowDate() const;
    void ReadDate();

    HWND datePicker_ = nullptr; ///< kept from the opening on
};
