#include "stats_screen/quick_stats_list_view.h"

#include "lists/app_fonts.h"
#include "lists/client_context.h"
#include "platform/metrics.h"
#include "resources/load_text.h"
#include "stats/quick_stats_rows.h"

namespace {

constexpr int FirstColumnWidth = 50;
constexpr int LabelSize = 260;
constexpr int NoImage = -1;
constexpr LONG LinesBelow = 3; ///< what a row's texts leave free at its bottom, in pixels
constexpr UINT TextFormat = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;

} // namespace

CQuickStatsListView::CQuickStatsListView()
    : separatorPen_(CreatePen(PS_SOLID, 1, GetSysColor(COLOR_3DFACE))) {
}

CQuickStatsListView::~CQuickStatsListView() {
    DeleteObject(separatorPen_);
}

void CQuickStatsListView::SetStats(const CQuickStats* stats) {
    stats_ = stats;
    RedrawAll();
}

void CQuickStatsListView::InitColumnsAndRows() {
    SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
    // The labels are measured in the list's own font, which would be the dialog's smaller one.
    SendMessageW(GetHandle(), WM_SETFONT, reinterpret_cast<WPARAM>(BoldTextFont), FALSE);
    InsertColumn(0, L"", LVCFMT_LEFT, FirstColumnWidth);
    for (int row = 0; row < QuickStatsRowCount; ++row)
        InsertRow(row, LoadText(QuickStatsLabelId(row)).c_str(), NoImage);
    RemeasureRows();
}

void CQuickStatsListView::MeasureItem(MEASUREITEMSTRUCT* request) {
    request->itemHeight
        = static_cast<UINT>(LineHeight(GetHandle(), BoldTextFont) + LineHeight(GetHandle(), TextFont) + LinesBelow);
}

void CQuickStatsListView::DrawItem(const DRAWITEMSTRUCT* request) {
    const auto row = static_cast<int>(request->itemID);
    const HDC context = request->hDC;
    const LONG gap = TextExtent(context, L" ").cx;
    RECT place;
    place.left = LVIR_LABEL;
    SendMessageW(GetHandle(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    place.left += gap;
    place.bottom -= LinesBelow;
    const bool selected = (request->itemState & ODS_SELECTED) != 0;
    FillRect(context, &request->rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(context, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    DrawTexts(context, place, gap, row);
    DrawSeparator(context, place.right, request->rcItem.bottom - 1);
}

void CQuickStatsListView::DrawTexts(HDC context, const RECT& place, LONG gap, int row) const {
    wchar_t label[LabelSize];
    GetRowText(row, 0, label, LabelSize);
    const std::wstring value = QuickStatsValueText(row, stats_);

    LONG height = TextExtent(context, label).cy;
    const HGDIOBJ former = SelectObject(context, BoldTextFont);
    RECT line{place.left, place.top, place.right - gap, place.top + height};
    DrawTextW(context, label, -1, &line, TextFormat);

    height = TextExtent(context, value.c_str()).cy;
    SelectObject(context, TextFont);
    line = {place.left, place.bottom - height, place.right - gap, place.bottom};
    DrawTextW(context, value.c_str(), -1, &line, TextFormat);
    SelectObject(context, former);
}

void CQuickStatsListView::DrawSeparator(HDC context, LONG right, LONG y) const {
    const HGDIOBJ former = SelectObject(context, separatorPen_);
    MoveToEx(context, 0, y, nullptr);
    LineTo(context, right, y);
    SelectObject(context, former);
}

void CQuickStatsListView::OnSize() {
    FitColumnToHeader();
    RemoveHorizontalScrollBar();
}
