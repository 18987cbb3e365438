#pragma once

#include "forms/full_screen_dialog.h"

/// "Select Date Range": the first and the last day of the custom view range. DoModal gives 1 for Done, 2 for Cancel.
class CDlgDateRange final : public CFullScreenDialog {
public:
    /// Both are the caller's and hold dates. Done writes them, also when it refuses what the user has chosen.
    CDlgDateRange(SYSTEMTIME* start, SYSTEMTIME* end);

protected:
    bool OnInitDialog() override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    void OnDone() override;

private:
    void ShowRange(const SYSTEMTIME& start, const SYSTEMTIME& end) const;

    SYSTEMTIME* start_;
    SYSTEMTIME* end_;
};
