#pragma once

#include "forms/full_screen_dialog.h"
#include "stats_screen/quick_stats_list_view.h"

class CQuickStats;

/// The Quick Stats screen: ten figures to read, nothing to change.
class CDlgQuickStats final : public CFullScreenDialog {
public:
    CDlgQuickStats();

    /// What is shown; the caller's, set before DoModal. Without one every figure reads "N/A".
    const CQuickStats* Stats = nullptr;

protected:
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool OnInitDialog() override;
    void OnSize() const override;

private:
    CQuickStatsListView listView_;
};
