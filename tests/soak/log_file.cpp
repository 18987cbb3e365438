#include "log_file.h"

#include "soak_run.h"

#include <sqlite3.h>

namespace {

constexpr int LockWaitMilliseconds = 30'000;

int AddFirst(void* rows, int /*count*/, char** values, char** /*names*/) {
    static_cast<Lines*>(rows)->emplace_back(values[0] ? values[0] : "");
    return 0;
}

} // namespace

void LogFile::Close::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

LogFile::LogFile(const std::string& path) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
    connection_.reset(raw);
    Require(opened == SQLITE_OK, path + ": " + sqlite3_errmsg(raw));
    sqlite3_busy_timeout(raw, LockWaitMilliseconds);
}

void LogFile::Run(const std::string& sql) {
    Column(sql);
}

std::vector<std::string> LogFile::Column(const std::string& sql) {
    Lines rows;
    const int result = sqlite3_exec(connection_.get(), sql.c_str(), AddFirst, &rows, nullptr);
    Require(result == SQLITE_OK, sql + ": " + sqlite3_errmsg(connection_.get()));
    return rows;
}

std::string LogFile::Text(const std::string& sql) {
    const Lines rows = Column(sql);
    return rows.empty() ? std::string() : rows.front();
}

void LogFile::RequireIntegrity() {
    const std::string found = Text("PRAGMA integrity_check");
    Require(found == "ok", "integrity check: " + found);
}
