#include "lists/notification_list_view.h"

#include "lists/app_fonts.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "units/date_text.h"
#include "units/number_text.h"

namespace {

enum Column : int { DescriptionColumn, DateColumn, OdometerColumn };

constexpr int FirstColumnWidth = 50;

/// Widths of date and odometer, in pixels.
constexpr WORD WideDate = 90;
constexpr WORD WideOdometer = 80;
constexpr WORD NarrowDate = 50;
constexpr WORD NarrowOdometer = 40;

} // namespace

void CNotificationListView::InitColumns() {
    SetExtendedStyle(LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    InsertColumn(DescriptionColumn, LoadText(strings::ColumnDescription).c_str(), LVCFMT_LEFT, FirstColumnWidth);
    InsertColumn(DateColumn, LoadText(strings::ColumnDate).c_str(), LVCFMT_LEFT, FirstColumnWidth);
    InsertColumn(OdometerColumn, LoadText(strings::ColumnOdometer).c_str(), LVCFMT_RIGHT, FirstColumnWidth);
    SendMessageW(GetHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(TextFont), TRUE);
    AddIcon(icons::Reminder);
    UseImageList();
}

int CNotificationListView::Reload(ULONG vehicleId) {
    return Fill(
        reminders_, [&] { return theDataLayer.Load(&reminders_, vehicleId); },
        [this] {
            for (int index = 0; index < reminders_.GetCount(); ++index)
                AddRow(reminders_.Get(index), 0);
        });
}

int CNotificationListView::AddRow(CNotification* reminder, int update) {
    if (update && !RemoveRow(reminder))
        return -1;
    const int row = InsertRow(0, reminder->GetName(), 0);
    SetCellText(row, DateColumn, DateText(reminder->GetDate()).c_str());
    SetCellText(row, OdometerColumn, NumberText(static_cast<float>(reminder->GetOdometer()), false, false).c_str());
    SetRowData(row, reinterpret_cast<LPARAM>(reminder));
    if (update)
        SelectRow(row);
    return row;
}

CNotification* CNotificationListView::GetSelectedReminder() const {
    const int row = GetNextSelected(-1);
    return row == -1 ? nullptr : reinterpret_cast<CNotification*>(GetRowData(row));
}

void CNotificationListView::OnSize() {
    DivideColumns();
    RedrawIfEmpty();
}

void CNotificationListView::DivideColumns() {
    RECT client;
    if (SendMessageW(GetHandle(), LVM_GETHEADER, 0, 0) == 0 || !GetClientRect(GetHandle(), &client))
        return;
    const bool wide = client.right >= WideDate + WideOdometer;
    const WORD date = wide ? WideDate : NarrowDate;
    const WORD odometer = wide ? WideOdometer : NarrowOdometer;
    // The message holds 16 bits of width, so that is all there is to divide.
    const auto description = static_cast<WORD>(client.right - date - odometer);
    for (const auto& [column, width] :
        {std::pair{DescriptionColumn, description}, {DateColumn, date}, {OdometerColumn, odometer}})
        SendMessageW(GetHandle(), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
}
