#pragma once

/// Every statement that runs on an open data file. They are prepared once, when it is opened.
enum class Sql {
    Begin,
    Commit,
    Rollback,
    TakeRef,
    TakenRef,
    LoadVehicles,
    InsertVehicle,
    UpdateVehicle,
    DeleteVehicle,
    LoadEntries,
    InsertEntry,
    UpdateEntry,
    DeleteEntry,
    LoadKeywords,
    InsertKeyword,
    UpdateKeyword,
    DeleteKeyword,
    LoadReminders,
    InsertReminder,
    UpdateReminder,
    DeleteReminder,
    DeleteEntriesOfVehicle,
    DeleteRemindersOfVehicle,
    MaxOdometer,
    SetOdometer,
    Count,
};

const char* SqlText(Sql statement);

/// What marks a data file of ours, kept in the header that SQLite has for it.
inline constexpr int DataFileApplicationId = 0x4F444F4C; // "ODOL"
inline constexpr int DataFileVersion = 1;
/// Makes the tables of an empty data file.
extern const char* const DataFileSchema;
