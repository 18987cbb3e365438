#pragma once

#include "platform/types.h"
#include "records/statement.h"

#include <initializer_list>
#include <sqlite3.h>
#include <string>

/// What SQLite gives in place of SQLITE_OK; thrown while a file is looked at and opened.
struct SqliteFailure {
    int code;
};

inline void Require(int result) {
    if (result != SQLITE_OK)
        throw SqliteFailure{result};
}

/// Runs a statement that is needed once, with whole numbers bound, and calls `read` with it for each of its rows.
template <typename Read>
void Query(sqlite3* connection, const std::string& sql, std::initializer_list<LONGLONG> values, Read read) {
    sqlite3_stmt* raw = nullptr;
    Require(sqlite3_prepare_v2(connection, sql.c_str(), -1, &raw, nullptr));
    const StatementHandle statement(raw);
    int parameter = 0;
    for (const LONGLONG value : values)
        Require(sqlite3_bind_int64(raw, ++parameter, value));
    int result = SQLITE_OK;
    while ((result = sqlite3_step(raw)) == SQLITE_ROW)
        read(raw);
    Require(result == SQLITE_DONE ? SQLITE_OK : result);
}

inline void Execute(sqlite3* connection, const std::string& sql, std::initializer_list<LONGLONG> values = {}) {
    Query(connection, sql, values, [](sqlite3_stmt*) {});
}

/// A column of the row as text; empty for NULL.
inline std::string TextColumn(sqlite3_stmt* row, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return text ? text : "";
}
