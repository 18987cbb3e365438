#pragma once

#include "platform/window_object.h"

#include <array>
#include <cstddef>

/// "Options": the units, the sort of the entry list, the mileage rate and the text size. DoModal gives 1 for Done, when
/// theSettings holds what was chosen (nothing is stored or redrawn yet), and 2 for Cancel, when nothing has changed.
class CDlgOptions final : public CDialogImpl {
protected:
    LPCDLGTEMPLATEW GetTemplate() const override;
    bool ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

private:
    static constexpr std::size_t ListCount = 6;

    void OnInitDialog();
    void OnSize() const;
    void OnDone() const;
    void FillLists();
    bool ReadMileageRate() const;

    std::array<HWND, ListCount> lists_ = {}; ///< from the top of the screen downwards
};
