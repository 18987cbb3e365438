#include "shell/update_table.h"

#include "resources/ids.h"

CUpdateTable::CUpdateTable()
    : states_{{
        {commands::NewFuelEntry, false, false},
        {commands::NewRepair, false, false},
        {commands::NewTrip, false, false},
        {commands::NewExpense, false, false},
        {commands::NewReminder, false, false},
        {commands::AllEntries, false, false},
        {commands::FuelEntries, false, false},
        {commands::RepairEntries, false, false},
        {commands::TripEntries, false, false},
        {commands::ExpenseEntries, false, false},
        {commands::AllDates, false, false},
        {commands::LastOneWeek, false, false},
        {commands::LastTwoWeeks, false, false},
        {commands::MonthToDate, false, false},
        {commands::YearToDate, false, false},
        {commands::CustomDates, false, false},
    }} {
}

void CUpdateTable::EnableAll(bool enable) {
    for (State& state : states_)
        state.enabled = enable;
}

void CUpdateTable::SetCheck(UINT command, bool checked) {
    for (State& state : states_)
        if (state.command == command)
            state.checked = checked;
}

void CUpdateTable::ApplyTo(HMENU menu) const {
    for (const State& state : states_) {
        EnableMenuItem(menu, state.command, state.enabled ? MF_ENABLED : MF_GRAYED);
        CheckMenuItem(menu, state.command, state.checked ? MF_CHECKED : MF_UNCHECKED);
    }
}
