#include "records/file_image.h"

#include "records/data_file.h"
#include "records/file_check.h"

#include <sqlite3.h>

namespace {

constexpr int LockPatience = 2000; // milliseconds

ConnectionHandle OpenToRead(const std::string& path) {
    sqlite3* raw = nullptr;
    constexpr int Flags = SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int opened = sqlite3_open_v2(path.c_str(), &raw, Flags, nullptr);
    ConnectionHandle connection(raw);
    if (opened == SQLITE_OK)
        sqlite3_busy_timeout(raw, LockPatience);
    else
        connection.reset();
    return connection;
}

bool IsEmpty(sqlite3* connection) {
    bool isEmpty = false;
    const auto note = [](void* result, int, char** values, char**) {
        *static_cast<bool*>(result) = values[0] != nullptr && *values[0] == '0';
        return 0;
    };
    return sqlite3_exec(connection, "SELECT EXISTS (SELECT * FROM vehicles)", note, &isEmpty, nullptr) == SQLITE_OK
        && isEmpty;
}

} // namespace

CFileImage::CFileImage(const std::string& path)
    : bytes_(nullptr, sqlite3_free) {
    const ConnectionHandle connection = OpenToRead(path);
    if (!connection)
        return;
    hasNoVehicle_ = IsEmpty(connection.get());
    sqlite3_int64 size = 0;
    bytes_.reset(sqlite3_serialize(connection.get(), "main", &size, 0));
    size_ = static_cast<std::size_t>(size);
}

bool IsSoundFile(const std::string& path) {
    const ConnectionHandle connection = OpenToRead(path);
    return connection && filecheck::CheckPages(connection.get());
}
