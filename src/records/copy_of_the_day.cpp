#include "records/copy_of_the_day.h"

#include "platform/files.h"
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

bool IsSound(const std::string& path) {
    const ConnectionHandle connection = OpenToRead(path);
    return connection && filecheck::CheckPages(connection.get());
}

/// A log without a vehicle: one that was made because there was none, or in the place of a spoilt one.
bool IsEmpty(sqlite3* connection) {
    bool isEmpty = false;
    const auto note = [](void* result, int, char** values, char**) {
        *static_cast<bool*>(result) = values[0] != nullptr && *values[0] == '0';
        return 0;
    };
    return sqlite3_exec(connection, "SELECT EXISTS (SELECT * FROM vehicles)", note, &isEmpty, nullptr) == SQLITE_OK
        && isEmpty;
}

void Copy(const std::string& path, const device::DailyCopy& copy) {
    const ConnectionHandle connection = OpenToRead(path);
    // It must not take the place of a copy of the same day that has records.
    if (connection && IsEmpty(connection.get()) && copy.HasFormer())
        return;
    // Read through SQLite: whoever else opens the file and closes it again takes this process's locks away with it.
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, void (*)(void*)> image(
        connection ? sqlite3_serialize(connection.get(), "main", &size, 0) : nullptr, sqlite3_free);
    if (!image) {
        copy.Fail("the log cannot be read");
        return;
    }
    const std::string_view bytes(reinterpret_cast<const char*>(image.get()), static_cast<std::size_t>(size));
    if (!copy.IsNewest(bytes))
        copy.Keep(bytes, IsSound);
}

} // namespace

CCopyOfTheDay::CCopyOfTheDay(const wchar_t* path)
    : job_([path = HostPathOf(path), copy = device::DailyCopy()] {
        try {
            if (path)
                Copy(*path, copy);
        } catch (const std::exception& failure) {
            copy.Fail(failure.what());
        }
    }) {
}
