#pragma once

#include "records/data_layer.h"
#include "records/statements.h"

#include <new>
#include <type_traits>

class CStatementRun;

/// The data layer's own way into the records: how a record of each kind lies in its table, and what has no setter.
/// Fields are bound and read in the order of the statements' columns.
struct RecordAccess {
    /// Throws when there is no memory.
    template <typename Record> static std::unique_ptr<Record> Make();

    static void Bind(CStatementRun& run, const CVehicle& vehicle);
    static void Bind(CStatementRun& run, const CEntry& entry);
    static void Bind(CStatementRun& run, const CKeyword& keyword);
    static void Bind(CStatementRun& run, const CNotification& reminder);

    /// The whole row, keys first. The record is clean afterwards.
    static void Read(CStatementRun& run, CVehicle* vehicle);
    static void Read(CStatementRun& run, CEntry* entry);
    static void Read(CStatementRun& run, CKeyword* keyword);
    static void Read(CStatementRun& run, CNotification* reminder);

    static void MarkStored(CBaseObject* record, LONG id, ULONG refId);
    /// Without a dirty mark, and without taking one away.
    static void SetCurrentOdometer(CVehicle* vehicle, LONG odometer);

private:
    static void BindBase(CStatementRun& run, const CBaseObject& record);
    static void ReadBase(CStatementRun& run, CBaseObject* record);
};

template <typename Record> std::unique_ptr<Record> RecordAccess::Make() {
    std::unique_ptr<Record> record;
    // An entry is about to be read: the look at the clock would cost more than the reading.
    if constexpr (std::is_same_v<Record, CEntry>)
        record.reset(new CEntry(0.0));
    else
        record.reset(new Record);
    if (!record)
        throw std::bad_alloc();
    return record;
}

/// The statements of each kind of record.
template <typename Record> struct RecordSql;
template <> struct RecordSql<CVehicle> {
    static constexpr Sql Load = Sql::LoadVehicles, Insert = Sql::InsertVehicle, Update = Sql::UpdateVehicle,
                         Remove = Sql::DeleteVehicle;
};
template <> struct RecordSql<CEntry> {
    static constexpr Sql Load = Sql::LoadEntries, Insert = Sql::InsertEntry, Update = Sql::UpdateEntry,
                         Remove = Sql::DeleteEntry;
};
template <> struct RecordSql<CKeyword> {
    static constexpr Sql Load = Sql::LoadKeywords, Insert = Sql::InsertKeyword, Update = Sql::UpdateKeyword,
                         Remove = Sql::DeleteKeyword;
};
template <> struct RecordSql<CNotification> {
    static constexpr Sql Load = Sql::LoadReminders, Insert = Sql::InsertReminder, Update = Sql::UpdateReminder,
                         Remove = Sql::DeleteReminder;
};
