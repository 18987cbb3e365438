#pragma once

#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <string>

/// A data file as another program sees it: through a connection of its own, which waits for a lock.
class LogFile {
public:
    explicit LogFile(const std::string& path) {
        sqlite3* raw = nullptr;
        const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
        connection_.reset(raw);
        Require(opened, path);
        sqlite3_busy_timeout(raw, 30'000);
    }

    /// Runs the statements. All their rows, one below the other, with "|" between the values.
    std::string Run(const std::string& sql) {
        std::string rows;
        Require(sqlite3_exec(connection_.get(), sql.c_str(), AddRow, &rows, nullptr), sql);
        return rows;
    }

private:
    static int AddRow(void* rows, int count, char** values, char** /*names*/) {
        auto& text = *static_cast<std::string*>(rows);
        text += text.empty() ? "" : "\n";
        for (int i = 0; i < count; ++i)
            text.append(i == 0 ? "" : "|").append(values[i] ? values[i] : "NULL");
        return 0;
    }
    void Require(int result, const std::string& what) const {
        if (result != SQLITE_OK)
            throw std::runtime_error(what + ": " + sqlite3_errmsg(connection_.get()));
    }

    std::unique_ptr<sqlite3, int (*)(sqlite3*)> connection_{nullptr, sqlite3_close_v2};
};
