#include "resources/menu_table.h"

#include "platform/input.h"
#include "resources/ids.h"

namespace {

constexpr MenuItemResource Separator = {};

constexpr MenuItemResource NewItems[] = {
    {L"Vehicle", commands::NewVehicle},
    Separator,
    {L"Fuel Entry", commands::NewFuelEntry},
    {L"Repair or Maintenance", commands::NewRepair},
    {L"Trip", commands::NewTrip},
    {L"Other Expense", commands::NewExpense},
    Separator,
    {L"Reminder", commands::NewReminder},
};

constexpr MenuItemResource DateRangeItems[] = {
    {L"All Dates", commands::AllDates},
    Separator,
    {L"Last One Week", commands::LastOneWeek},
    {L"Last Two Weeks", commands::LastTwoWeeks},
    {L"Month To Date", commands::MonthToDate},
    {L"Year To Date", commands::YearToDate},
    Separator,
    {L"Custom Dates", commands::CustomDates},
};

constexpr MenuItemResource EntryTypeItems[] = {
    {L"All Entries", commands::AllEntries},
    Separator,
    {L"Fuel", commands::FuelEntries},
    {L"Repairs/Maintenance", commands::RepairEntries},
    {L"Trips", commands::TripEntries},
    {L"Other Expenses", commands::ExpenseEntries},
};

constexpr MenuItemResource MenuItems[] = {
    {L"Edit", commands::Edit},
    {L"Delete", commands::Delete},
    {L"Quick Stats", commands::QuickStats},
    Separator,
    {L"View Date Range", 0, DateRangeItems},
    {L"View Entry Type", 0, EntryTypeItems},
    Separator,
    {L"Manage Reminders", commands::ManageReminders},
    {L"Select Vehicle", commands::SelectVehicle},
    {L"Options", commands::Options},
    {L"About", commands::About},
    Separator,
    {L"Exit", commands::Exit},
};

constexpr MenuItemResource FuelItems[] = {
    {L"Select Vendor", commands::SelectKeyword},
    {L"Calculate", commands::Calculate},
    {L"Cancel", commands::Cancel},
};

constexpr MenuItemResource DateRangePresets[] = {
    {L"Last 3 Months", commands::LastThreeMonths},
    {L"Last 6 Months", commands::LastSixMonths},
    {L"Last 12 Months", commands::LastTwelveMonths},
    {L"Last 30 Days", commands::LastThirtyDays},
    {L"Previous Month", commands::PreviousMonth},
    {L"Previous Year", commands::PreviousYear},
    Separator,
    {L"Cancel", commands::Cancel},
};

constexpr MenuItemResource DescriptionItems[] = {
    {L"Select Description", commands::SelectKeyword},
    {L"Cancel", commands::Cancel},
};

constexpr MenuItemResource TripItems[] = {
    {L"Select Category", commands::SelectKeyword},
    {L"Calc. Total Cost", commands::Calculate},
    {L"Cancel", commands::Cancel},
};

constexpr MenuItemResource ReminderItems[] = {
    {L"Edit", commands::Edit},
    {L"Delete", commands::Delete},
    {L"Done", commands::Cancel},
};

constexpr MenuItemResource KeywordItems[] = {
    {L"Add", commands::AddKeyword},
    {L"Edit", commands::EditKeyword},
    {L"Delete", commands::DeleteKeyword},
    {L"Cancel", commands::Cancel},
};

constexpr MenuItemResource DoneKey = {L"Done", commands::Done};

constexpr MenuItemResource AboutKeys[] = {{L"OK", commands::Done}, {L"Support", commands::Support}};
constexpr MenuItemResource MainKeys[] = {{L"New", 0, NewItems}, {L"Menu", 0, MenuItems}};
constexpr MenuItemResource DoneCancelKeys[] = {DoneKey, {L"Cancel", commands::Cancel}};
constexpr MenuItemResource FuelKeys[] = {DoneKey, {L"Menu", 0, FuelItems}};
constexpr MenuItemResource DateRangeKeys[] = {DoneKey, {L"Menu", 0, DateRangePresets}};
constexpr MenuItemResource DescriptionKeys[] = {DoneKey, {L"Menu", 0, DescriptionItems}};
constexpr MenuItemResource TripKeys[] = {DoneKey, {L"Menu", 0, TripItems}};
constexpr MenuItemResource DueKeys[] = {{L"Delete", commands::Done}, {L"Remind Later", commands::Cancel}};
constexpr MenuItemResource ReminderKeys[] = {{L"New", commands::NewReminderInList}, {L"Menu", 0, ReminderItems}};
constexpr MenuItemResource KeywordKeys[] = {DoneKey, {L"Menu", 0, KeywordItems}};

constexpr MenuResource Menus[] = {
    {menus::AboutKeys, AboutKeys},
    {menus::MainFrame, MainKeys},
    {menus::DoneCancel, DoneCancelKeys},
    {menus::FuelEntry, FuelKeys},
    {menus::DateRange, DateRangeKeys},
    {menus::RepairOrExpense, DescriptionKeys},
    {menus::Trip, TripKeys},
    {menus::DueReminder, DueKeys},
    {menus::Reminders, ReminderKeys},
    {menus::Keywords, KeywordKeys},
};

constexpr AcceleratorResource Accelerators[] = {
    {menus::MainAccelerators, L'Q', MOD_CONTROL, commands::Exit},
};

} // namespace

std::span<const MenuResource> MenuTable() {
    return Menus;
}

std::span<const AcceleratorResource> AcceleratorTable() {
    return Accelerators;
}
