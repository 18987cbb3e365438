#pragma once

#include "forms/full_screen_dialog.h"

#include <string>

/// "Edit Reminder": one reminder, new or not. The fields are copies; they hold something new only where DoModal gave 1
/// (Done), not 2 (Cancel).
class CDlgNotification final : public CFullScreenDialog {
public:
    CDlgNotification();

    LONG Odometer = 0;
    std::wstring Description; ///< required
    double Date = 0.0; ///< OLE date; its time of day is kept

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    void OnDone() override;

private:
    bool ExchangeFields(bool save);
};
