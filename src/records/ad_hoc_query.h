#pragma once

#include "platform/types.h"
#include "records/statement.h"

#include <initializer_list>
#include <sqlite3.h>
#include <string>

/// Runs a statement that is needed once, with whole numbers bound, and calls `read` with it for each of its rows.
/// SQLITE_OK when it came to its end.
template <typename Read>
int Query(sqlite3* connection, const std::string& sql, std::initializer_list<LONGLONG> values, Read read) {
    sqlite3_stmt* raw = nullptr;
    int result = sqlite3_prepare_v2(connection, sql.c_str(), -1, &raw, nullptr);
    const StatementHandle statement(raw);
    int parameter = 0;
    for (const LONGLONG value : values)
        result = result == SQLITE_OK ? sqlite3_bind_int64(raw, ++parameter, value) : result;
    if (result != SQLITE_OK)
        return result;
    while ((result = sqlite3_step(raw)) == SQLITE_ROW)
        read(raw);
    return result == SQLITE_DONE ? SQLITE_OK : result;
}

inline int Execute(sqlite3* connection, const std::string& sql, std::initializer_list<LONGLONG> values = {}) {
    return Query(connection, sql, values, [](sqlite3_stmt*) {});
}

/// A column of the row as text; empty for NULL.
inline std::string TextColumn(sqlite3_stmt* row, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(row, column));
    return text ? text : "";
}
