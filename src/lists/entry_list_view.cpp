#include "lists/entry_list_view.h"

#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "lists/entry_order.h"
#include "lists/entry_row.h"
#include "platform/wait_cursor.h"
#include "records/data_layer.h"
#include "resources/ids.h"
#include "resources/load_text.h"
#include "units/date_text.h"

#include <limits>
#include <vector>

namespace {

constexpr int FirstColumnWidth = 100;
constexpr int RowTextSize = 260;
constexpr int AtTheEnd = std::numeric_limits<int>::max();
constexpr LONG LinesBelow = 3; ///< what a row's texts leave free at its bottom, in pixels
constexpr LONG IconTop = 2;

/// In the order of the types, from EntryTypeFuel on.
constexpr UINT TypeIcons[] = {icons::Fuel, icons::Repair, icons::Trip, icons::Expense};

LPARAM DataOf(CEntry* entry) {
    return reinterpret_cast<LPARAM>(entry);
}

} // namespace

void CEntryListView::InitColumns() {
    SetExtendedStyle(LVS_EX_SUBITEMIMAGES | LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    InsertColumn(0, LoadText(strings::ColumnDescription).c_str(), LVCFMT_LEFT, FirstColumnWidth);
    for (const UINT icon : TypeIcons)
        AddIcon(icon);
    UseImageList();
}

void CEntryListView::Refresh(CEntryFilter* filter) {
    const CWaitCursor wait; // the former records are many as well
    if (!filter)
        Empty(entries_);
    else if (Fill(
                 entries_, [&] { return theDataLayer.Load(&entries_, filter); },
                 [this] {
                     for (int index = 0; index < entries_.GetCount(); ++index)
                         AddRow(entries_.Get(index), 0);
                     SortRows(SortColumnNone);
                 }))
        SetRowState(0, SelectedAndFocused, SelectedAndFocused);
}

int CEntryListView::AppendRow(CEntry* entry) {
    return InsertRow(AtTheEnd, DateText(entry->GetDate()).c_str(), entry->GetType() - 1, DataOf(entry));
}

int CEntryListView::AddRow(CEntry* entry, int update) {
    if (!update)
        return AppendRow(entry);
    const int former = FindRowByData(DataOf(entry));
    if (former == -1)
        return -1;
    const CRedrawPause pause(*this);
    DeleteRow(former);
    return AppendChosenRow(entry);
}

int CEntryListView::AppendChosenRow(CEntry* entry) {
    const int row = AppendRow(entry);
    SetRowState(row, SelectedAndFocused, SelectedAndFocused);
    SortRows(SortColumnNone);
    SendMessageW(GetHandle(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(FindRowByData(DataOf(entry))), FALSE);
    return row;
}

void CEntryListView::AddEntry(CEntry* entry) {
    entries_.Add(entry);
    ClearSelection();
    AppendChosenRow(entry);
}

void CEntryListView::SortRows(int column) {
    const CWaitCursor wait;
    if (column == SortColumnNone)
        column = theSettings.LastColSorted;
    if (column == SortColumnNone)
        return;
    std::vector<const CEntry*> entries(static_cast<std::size_t>(GetRowCount()));
    for (int row = 0; row < static_cast<int>(entries.size()); ++row)
        entries[static_cast<std::size_t>(row)] = GetRowEntry(row);
    const std::vector<int> order = OrderEntries(column, entries);
    SendMessageW(GetHandle(), LVM_ORDERITEMS, order.size(), reinterpret_cast<LPARAM>(order.data()));
    theSettings.LastColSorted = column;
}

int CEntryListView::GetSelectedEntries(CObjectList* list) const {
    const auto count = static_cast<int>(SendMessageW(GetHandle(), LVM_GETSELECTEDCOUNT, 0, 0));
    if (count == 0)
        return 0;
    list->AllowAutoCleanup(0);
    for (int row = GetNextSelected(-1); row != -1; row = GetNextSelected(row))
        list->AddItem(GetRowEntry(row));
    return count;
}

void CEntryListView::DeleteSelectedRows() {
    const CWaitCursor wait;
    std::vector<int> selected;
    for (int row = GetNextSelected(-1); row != -1; row = GetNextSelected(row))
        selected.push_back(row);
    if (selected.empty())
        return;
    const CRedrawPause pause(*this);
    // From the bottom up no deletion moves a row that is still to go.
    for (auto row = selected.rbegin(); row != selected.rend(); ++row)
        DeleteRow(*row);
}

CEntry* CEntryListView::GetRowEntry(int row) const {
    return reinterpret_cast<CEntry*>(GetRowData(row));
}

void CEntryListView::MeasureItem(MEASUREITEMSTRUCT* request) {
    request->itemHeight = static_cast<UINT>((LineHeight(GetHandle(), BoldTextFont) * 2) + LinesBelow);
}

void CEntryListView::DrawItem(const DRAWITEMSTRUCT* request) {
    const auto row = static_cast<int>(request->itemID);
    const CEntry* entry = GetRowEntry(row);
    if (!entry)
        return;
    LVITEMW item;
    item.mask = LVIF_IMAGE;
    item.iItem = row;
    SendMessageW(GetHandle(), LVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    wchar_t date[RowTextSize];
    GetRowText(row, 0, date, RowTextSize);

    const HDC context = request->hDC;
    const LONG gap = TextExtent(context, L" ").cx;
    RECT place;
    place.left = LVIR_LABEL;
    SendMessageW(GetHandle(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    place.left += gap;
    place.bottom -= LinesBelow;
    FillEntryRow(context, request->rcItem, row, (request->itemState & ODS_SELECTED) != 0);
    DrawEntryRowTexts(context, place, gap, MakeEntryRowTexts(*entry, date));
    DrawIcon(*request, item.iImage);
    MoveToEx(context, 0, request->rcItem.bottom - 1, nullptr);
    LineTo(context, place.right, request->rcItem.bottom - 1);
}

void CEntryListView::DrawIcon(const DRAWITEMSTRUCT& request, int image) const {
    if (!GetImageList())
        return;
    RECT place;
    place.left = LVIR_ICON;
    SendMessageW(GetHandle(), LVM_GETITEMRECT, request.itemID, reinterpret_cast<LPARAM>(&place));
    const HICON icon = ImageList_GetIcon(GetImageList(), image, 0);
    const int size = theSettings.SmallIconSize;
    DrawIconEx(request.hDC, place.left, place.top + IconTop, icon, size, size, 0, nullptr, DI_NORMAL);
    DestroyIcon(icon);
}

void CEntryListView::OnSize() {
    FitColumn(0);
    RedrawIfEmpty();
}
