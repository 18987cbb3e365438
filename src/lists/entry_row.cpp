#include "lists/entry_row.h"

#include "lists/client_context.h"
#include "platform/metrics.h"
#include "records/entry.h"
#include "settings/app_settings.h"
#include "units/number_text.h"
#include "units/record_text.h"

namespace {

constexpr std::size_t LongestText = 259;
constexpr UINT LeftText = DT_SINGLELINE | DT_NOPREFIX | DT_END_ELLIPSIS;
constexpr UINT RightText = DT_RIGHT | DT_SINGLELINE | DT_NOCLIP | DT_NOPREFIX;

std::wstring Cut(std::wstring text) {
    if (text.size() > LongestText)
        text.resize(LongestText);
    return text;
}

void FillWith(HDC context, const RECT& place, COLORREF color) {
    const HBRUSH brush = CreateSolidBrush(color);
    FillRect(context, &place, brush);
    DeleteObject(brush);
}

} // namespace

CEntryRowTexts MakeEntryRowTexts(const CEntry& entry, const wchar_t* date) {
    return {Cut(date), Cut(NumberText(static_cast<float>(entry.GetOdometer()), false, false)),
        Cut(EntrySummaryText(&entry)), Cut(NumberText(entry.GetAmount(), true, true))};
}

void FillEntryRow(HDC context, const RECT& place, int row, bool selected) {
    SetTextColor(context, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    if (selected)
        FillRect(context, &place, GetSysColorBrush(COLOR_HIGHLIGHT));
    else if (!theSettings.AlternateRowShading)
        FillRect(context, &place, GetSysColorBrush(COLOR_WINDOW));
    else // the first row counts as 1, an odd one
        FillWith(context, place, row % 2 == 0 ? theSettings.RowColorOdd : theSettings.RowColorEven);
}

void DrawEntryRowTexts(HDC context, const RECT& place, LONG gap, const CEntryRowTexts& texts) {
    SIZE extent = TextExtent(context, texts.Odometer.c_str());
    RECT odometer{place.right - extent.cx - gap, place.top, place.right - gap, place.top + extent.cy};
    DrawTextW(context, texts.Odometer.c_str(), -1, &odometer, RightText);

    extent = TextExtent(context, texts.Date.c_str());
    RECT date{place.left, place.top, odometer.left - gap, place.top + extent.cy};
    DrawTextW(context, texts.Date.c_str(), -1, &date, LeftText);

    extent = TextExtent(context, texts.Amount.c_str());
    RECT amount{place.right - extent.cx - gap, place.bottom - extent.cy, place.right - gap, place.bottom};
    DrawTextW(context, texts.Amount.c_str(), -1, &amount, RightText);

    RECT description{place.left, amount.top, amount.left - gap, amount.bottom};
    DrawTextW(context, texts.Description.c_str(), -1, &description, LeftText);
}
