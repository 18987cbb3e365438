#pragma once

#include "platform/window_object.h"

/// "Select Date Range": the first and the last day of the custom view range. DoModal gives 1 for Done, 2 for Cancel.
class CDlgDateRange final : public CDialogImpl {
public:
    /// Both are the caller's and hold dates. Done writes them, also when it refuses what the user has chosen.
    CDlgDateRange(SYSTEMTIME* start, SYSTEMTIME* end)
        : start_(start)
        , end_(end) { }

protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    void OnInitDialog();
    bool OnCommand(UINT command) const;
    void OnDone() const;
    void ShowRange(const SYSTEMTIME& start, const SYSTEMTIME& end) const;

    SYSTEMTIME* start_;
    SYSTEMTIME* end_;
    HWND startPicker_ = nullptr;
    HWND endPicker_ = nullptr;
};
