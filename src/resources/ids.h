#pragma once

// The numbers of the program's resources, each in one place.

#include "resources/command_ids.h"
#include "resources/control_ids.h"
#include "resources/string_ids.h"

/// Soft-key bars, and the one accelerator table.
namespace menus {
inline constexpr UINT AboutKeys = 106;
inline constexpr UINT MainFrame = 128;
inline constexpr UINT DoneCancel = 201;
inline constexpr UINT FuelEntry = 202;
inline constexpr UINT DateRange = 203;
inline constexpr UINT RepairOrExpense = 205;
inline constexpr UINT Trip = 207;
inline constexpr UINT DueReminder = 209;
inline constexpr UINT Reminders = 245;
inline constexpr UINT Keywords = 247;

inline constexpr UINT MainAccelerators = 128;
} // namespace menus

/// Pictures: icons and the one bitmap.
namespace icons {
inline constexpr UINT Vehicle = 128;
inline constexpr UINT Reminder = 204;
inline constexpr UINT Repair = 206;
inline constexpr UINT Trip = 211;
inline constexpr UINT Expense = 212;
inline constexpr UINT Fuel = 213;
} // namespace icons

namespace bitmaps {
inline constexpr UINT About = 129;
} // namespace bitmaps
