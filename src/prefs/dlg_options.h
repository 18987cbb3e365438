#pragma once

#include "forms/full_screen_dialog.h"

/// "Options": the units, the sort of the entry list, the mileage rate and the text size. DoModal gives 1 for Done, when
/// theSettings holds what was chosen (nothing is stored or redrawn yet), and 2 for Cancel, when nothing has changed.
class CDlgOptions final : public CFullScreenDialog {
public:
    CDlgOptions();

protected:
    bool OnInitDialog() override;
    void OnSize() const override;
    void OnDone() override;

private:
    void FillLists() const;
};
