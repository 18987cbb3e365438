// The commands that choose what the log shows.

#include "prefs/pick_date_range.h"
#include "resources/ids.h"
#include "settings/app_settings.h"
#include "shell/main_frame.h"

#include <algorithm>
#include <span>

namespace {

struct Row {
    UINT command;
    int value;
};

constexpr Row EntryTypes[] = {
    {commands::AllEntries, CEntry::EntryTypeAll},
    {commands::FuelEntries, CEntry::EntryTypeFuel},
    {commands::RepairEntries, CEntry::EntryTypeRepair},
    {commands::TripEntries, CEntry::EntryTypeTrip},
    {commands::ExpenseEntries, CEntry::EntryTypeExpense},
};

constexpr Row DateRanges[] = {
    {commands::AllDates, CEntryFilter::DateRangeAll},
    {commands::LastOneWeek, CEntryFilter::DateRangeLastWeek},
    {commands::LastTwoWeeks, CEntryFilter::DateRangeLastTwoWeeks},
    {commands::MonthToDate, CEntryFilter::DateRangeMonthToDate},
    {commands::YearToDate, CEntryFilter::DateRangeYearToDate},
    {commands::CustomDates, CEntryFilter::DateRangeCustom},
};

const Row* FindRow(std::span<const Row> table, UINT command) {
    const auto row
        = std::find_if(table.begin(), table.end(), [command](const Row& each) { return each.command == command; });
    return row == table.end() ? nullptr : &*row;
}

} // namespace

void CMainFrame::ViewCommand(UINT command) {
    if (FindRow(EntryTypes, command))
        EntryTypeCommand(command);
    else if (FindRow(DateRanges, command))
        EntryDateRangeCommand(command);
}

void CMainFrame::EntryTypeCommand(UINT command) {
    const int type = FindRow(EntryTypes, command)->value;
    theSettings.ViewEntryType = type;
    filter_.SetEntryType(static_cast<CEntry::Type>(type));
    entryList_.Refresh(&filter_);
    SetFocus(entryList_.GetHandle());
    MarkEntryType();
}

void CMainFrame::EntryDateRangeCommand(UINT command) {
    const int type = FindRow(DateRanges, command)->value;
    if (type == CEntryFilter::DateRangeCustom && !PickCustomDates(&filter_))
        return;
    theSettings.ViewDateRangeType = type;
    filter_.SetDateRangeType(static_cast<CEntryFilter::DateRangeType>(type));
    entryList_.Refresh(&filter_);
    SetFocus(entryList_.GetHandle());
    MarkDateRange();
}

void CMainFrame::MarkEntryType() {
    for (const Row& each : EntryTypes)
        updateTable_.SetCheck(each.command, each.value == filter_.GetEntryType());
}

void CMainFrame::MarkDateRange() {
    for (const Row& each : DateRanges)
        updateTable_.SetCheck(each.command, each.value == filter_.GetDateRangeType());
}
