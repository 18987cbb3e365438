#include "stats_screen/dlg_quick_stats.h"

#include "forms/dialog_helpers.h"
#include "lists/parent_reflection.h"
#include "resources/dialog_templates.h"
#include "resources/ids.h"

LPCDLGTEMPLATEW CDlgQuickStats::GetTemplate() const {
    return &templates::QuickStats;
}

bool CDlgQuickStats::ProcessDialogMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_INITDIALOG:
        OnInitDialog();
        return true;
    case WM_SIZE:
        FitControlToClient(GetHandle(), controls::List, 0);
        return true;
    case WM_COMMAND:
        if (LOWORD(wParam) == commands::Done || LOWORD(wParam) == commands::Cancel) {
            EndDialog(GetHandle(), LOWORD(wParam));
            return true;
        }
        break;
    default:
        break;
    }
    return ReflectNotification(GetHandle(), message, wParam, lParam, result);
}

void CDlgQuickStats::OnInitDialog() {
    CreateSoftKeyBar(GetHandle(), menus::DoneCancel, false, false);
    InitFullScreen(GetHandle());
    listView_.Subclass(GetDlgItem(GetHandle(), controls::List));
    listView_.InitColumnsAndRows();
    if (Stats)
        listView_.SetStats(Stats);
    listView_.SelectRow(0);
}
