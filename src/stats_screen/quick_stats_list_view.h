#pragma once

#include "lists/custom_list_view.h"

class CQuickStats;

/// The figures of one CQuickStats, each a bold label above its value. Values are worked out when they are drawn.
class CQuickStatsListView final : public CCustomListView {
public:
    CQuickStatsListView();
    ~CQuickStatsListView() override;

    /// The record stays the caller's and must outlive the list's window.
    void SetStats(const CQuickStats* stats);
    /// Column and rows; called once, when the control exists.
    void InitColumnsAndRows();

    void DrawItem(const DRAWITEMSTRUCT* request) override;
    void MeasureItem(MEASUREITEMSTRUCT* request) override;

protected:
    void OnSize() override;

private:
    void DrawTexts(HDC context, const RECT& place, LONG gap, int row) const;
    void DrawSeparator(HDC context, LONG right, LONG y) const;

    const CQuickStats* stats_ = nullptr;
    HPEN separatorPen_;
};
