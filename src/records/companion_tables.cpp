#include "records/companion_tables.h"

#include "platform/utf8.h"
#include "records/ad_hoc_query.h"
#include "records/data_layer.h"

namespace {

// Plain tables without an index: whatever else lies in a data file is taken out when it is opened.
constexpr const char* Schema = R"(
CREATE TABLE IF NOT EXISTS tally_batches (
  number INTEGER PRIMARY KEY,
  time TEXT NOT NULL,
  file TEXT NOT NULL,
  format TEXT NOT NULL,
  hash TEXT NOT NULL,
  added INTEGER NOT NULL,
  already_there INTEGER NOT NULL,
  faulty INTEGER NOT NULL,
  undone INTEGER NOT NULL
) STRICT;
CREATE TABLE IF NOT EXISTS tally_added (
  batch INTEGER NOT NULL,
  kind INTEGER NOT NULL,
  ref INTEGER NOT NULL,
  digest INTEGER NOT NULL
) STRICT;
CREATE TABLE IF NOT EXISTS tally_marks (
  ref INTEGER PRIMARY KEY,
  partial INTEGER NOT NULL,
  missed INTEGER NOT NULL,
  unknown_odometer INTEGER NOT NULL
) STRICT;
)";

/// A statement that runs once for each of many rows.
class Repeated {
public:
    Repeated(sqlite3* connection, const char* sql) {
        sqlite3_stmt* raw = nullptr;
        Require(sqlite3_prepare_v2(connection, sql, -1, &raw, nullptr));
        statement_.reset(raw);
    }

    void Run(std::initializer_list<LONGLONG> values) {
        int parameter = 0;
        for (const LONGLONG value : values)
            Require(sqlite3_bind_int64(statement_.get(), ++parameter, value));
        const int result = sqlite3_step(statement_.get());
        Require(result == SQLITE_DONE ? SQLITE_OK : result);
        Require(sqlite3_reset(statement_.get()));
    }

    void BindText(int parameter, const std::wstring& text) {
        const std::string bytes = device::ToUtf8(text);
        Require(sqlite3_bind_text(
            statement_.get(), parameter, bytes.c_str(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT));
    }

private:
    StatementHandle statement_;
};

bool HasTables(sqlite3* connection) {
    bool isThere = false;
    Query(connection, "SELECT 1 FROM sqlite_schema WHERE name = 'tally_batches'", {},
        [&](sqlite3_stmt*) { isThere = true; });
    return isThere;
}

std::wstring WideColumn(sqlite3_stmt* row, int column) {
    return device::FromUtf8(TextColumn(row, column));
}

} // namespace

template <typename Work> bool CCompanionTables::Perform(Work work) {
    auto failure = StoreFailure::None;
    const int succeeded = theDataLayer.PerformOn([&](sqlite3* connection) {
        try {
            work(connection);
        } catch (const SqliteFailure&) {
            failure = FailureOf(connection);
        }
        return failure == StoreFailure::None;
    });
    if (failure != StoreFailure::None)
        theDataLayer.failure_ = failure;
    return succeeded != 0;
}

bool CCompanionTables::Load(std::vector<CImportBatch>* batches) {
    return Perform([&](sqlite3* connection) {
        if (!HasTables(connection))
            return;
        Query(connection,
            "SELECT number, time, file, format, hash, added, already_there, faulty, undone FROM tally_batches"
            " ORDER BY number",
            {}, [&](sqlite3_stmt* row) {
                batches->push_back({sqlite3_column_int64(row, 0), WideColumn(row, 1), WideColumn(row, 2),
                    WideColumn(row, 3), WideColumn(row, 4), sqlite3_column_int64(row, 5), sqlite3_column_int64(row, 6),
                    sqlite3_column_int64(row, 7), sqlite3_column_int64(row, 8) != 0});
            });
    });
}

bool CCompanionTables::Add(CImportBatch* batch, const std::vector<CAddedRecord>& records) {
    return Perform([&](sqlite3* connection) {
        Require(sqlite3_exec(connection, Schema, nullptr, nullptr, nullptr));
        LONGLONG number = 0;
        Query(connection, "SELECT ifnull(max(number), 0) + 1 FROM tally_batches", {},
            [&](sqlite3_stmt* row) { number = sqlite3_column_int64(row, 0); });
        Repeated addBatch(connection, "INSERT INTO tally_batches VALUES (?1, ?6, ?7, ?8, ?9, ?2, ?3, ?4, ?5)");
        int parameter = 6;
        for (const std::wstring* text : {&batch->Time, &batch->File, &batch->Format, &batch->Hash})
            addBatch.BindText(parameter++, *text);
        addBatch.Run({number, batch->Added, batch->AlreadyThere, batch->Faulty, batch->IsUndone ? 1 : 0});
        Repeated addRecord(connection, "INSERT INTO tally_added VALUES (?, ?, ?, ?)");
        for (const CAddedRecord& record : records)
            addRecord.Run({number, record.What, record.Ref, record.Digest});
        batch->Number = number;
    });
}

bool CCompanionTables::Load(LONGLONG batch, std::vector<CAddedRecord>* records) {
    return Perform([&](sqlite3* connection) {
        Query(connection, "SELECT kind, ref, digest FROM tally_added WHERE batch = ? ORDER BY rowid", {batch},
            [&](sqlite3_stmt* row) {
                records->push_back({static_cast<CAddedRecord::Kind>(sqlite3_column_int(row, 0)),
                    static_cast<ULONG>(sqlite3_column_int64(row, 1)), sqlite3_column_int64(row, 2)});
            });
    });
}

bool CCompanionTables::MarkUndone(LONGLONG batch) {
    return Perform([&](sqlite3* connection) {
        Execute(connection, "UPDATE tally_batches SET undone = 1 WHERE number = ?", {batch});
    });
}

bool CCompanionTables::Load(std::map<ULONG, CEntryMarks>* marks) {
    return Perform([&](sqlite3* connection) {
        if (!HasTables(connection))
            return;
        Query(connection, "SELECT ref, partial, missed, unknown_odometer FROM tally_marks", {}, [&](sqlite3_stmt* row) {
            (*marks)[static_cast<ULONG>(sqlite3_column_int64(row, 0))]
                = {sqlite3_column_int(row, 1) != 0, sqlite3_column_int(row, 2) != 0, sqlite3_column_int(row, 3) != 0};
        });
    });
}

bool CCompanionTables::Add(const std::map<ULONG, CEntryMarks>& marks) {
    return Perform([&](sqlite3* connection) {
        Require(sqlite3_exec(connection, Schema, nullptr, nullptr, nullptr));
        Repeated add(connection, "INSERT OR REPLACE INTO tally_marks VALUES (?, ?, ?, ?)");
        for (const auto& [entry, each] : marks)
            add.Run({entry, each.IsPartial ? 1 : 0, each.IsMissed ? 1 : 0, each.HasUnknownOdometer ? 1 : 0});
    });
}

bool CCompanionTables::RemoveMarks(const std::vector<ULONG>& entries) {
    return Perform([&](sqlite3* connection) {
        Repeated remove(connection, "DELETE FROM tally_marks WHERE ref = ?");
        for (const ULONG entry : entries)
            remove.Run({entry});
    });
}
