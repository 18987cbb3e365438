#include "stats_screen/dlg_quick_stats.h"

#include "forms/dialog_helpers.h"
#include "lists/parent_reflection.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

CDlgQuickStats::CDlgQuickStats()
    : CFullScreenDialog(templates::QuickStats, menus::DoneCancel, BackKey::IsCancel) {
}

bool CDlgQuickStats::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    return CFullScreenDialog::ProcessDialogMessage(message, wParam, lParam, result)
        || ReflectNotification(GetHandle(), message, wParam, lParam, result);
}

bool CDlgQuickStats::OnInitDialog() {
    CFullScreenDialog::OnInitDialog();
    listView_.Subclass(Item(controls::List));
    listView_.InitColumnsAndRows();
    if (Stats)
        listView_.SetStats(Stats);
    listView_.SelectRow(0);
    return true;
}

void CDlgQuickStats::OnSize() const {
    FitControlToClient(GetHandle(), controls::List, 0);
}
