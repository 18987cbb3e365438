#pragma once

#include "platform/types.h"

/// Commands of menus, soft keys and accelerators.
namespace commands {
inline constexpr UINT Done = 1; ///< the left soft key, and the Action key where no control wants it
inline constexpr UINT Cancel = 2;

inline constexpr UINT NewVehicle = 32775;
inline constexpr UINT Edit = 32776;
inline constexpr UINT Delete = 32778;

inline constexpr UINT AllDates = 32790;
inline constexpr UINT LastOneWeek = 32791;
inline constexpr UINT LastTwoWeeks = 32792;
inline constexpr UINT MonthToDate = 32793;
inline constexpr UINT YearToDate = 32794;
inline constexpr UINT CustomDates = 32795;

inline constexpr UINT AllEntries = 32796;
inline constexpr UINT FuelEntries = 32797;
inline constexpr UINT RepairEntries = 32798;
inline constexpr UINT TripEntries = 32799;
inline constexpr UINT ExpenseEntries = 32800;

inline constexpr UINT NewFuelEntry = 32801;
inline constexpr UINT NewRepair = 32802;
inline constexpr UINT NewTrip = 32803;
inline constexpr UINT NewExpense = 32804;
inline constexpr UINT NewReminder = 32805;

inline constexpr UINT QuickStats = 32807;
inline constexpr UINT Options = 32815;
inline constexpr UINT ManageReminders = 32892;
inline constexpr UINT SelectVehicle = 32898;
inline constexpr UINT About = 57664;
inline constexpr UINT Exit = 57665;

inline constexpr UINT SelectKeyword = 32829;
inline constexpr UINT Calculate = 32839;

inline constexpr UINT LastThreeMonths = 32850;
inline constexpr UINT LastSixMonths = 32851;
inline constexpr UINT LastTwelveMonths = 32852;
inline constexpr UINT LastThirtyDays = 32853;
inline constexpr UINT PreviousMonth = 32854;
inline constexpr UINT PreviousYear = 32855;

inline constexpr UINT AddKeyword = 32902;
inline constexpr UINT DeleteKeyword = 32903;
inline constexpr UINT NewReminderInList = 32904;
inline constexpr UINT EditKeyword = 32906;

inline constexpr UINT Support = 40038;
inline constexpr UINT AboutDone = 59280;
inline constexpr UINT AboutCancel = 59281;
} // namespace commands
