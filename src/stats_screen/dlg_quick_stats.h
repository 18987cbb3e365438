#pragma once

#include "platform/window_object.h"
#include "stats_screen/quick_stats_list_view.h"

class CQuickStats;

/// The Quick Stats screen: ten figures to read, nothing to change.
class CDlgQuickStats final : public CDialogImpl {
public:
    /// What is shown; the caller's, set before DoModal. Without one every figure reads "N/A".
    const CQuickStats* Stats = nullptr;

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void OnInitDialog();

    CQuickStatsListView listView_;
};
