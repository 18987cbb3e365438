#include "records/data_file.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Status = CDataFile::Status;

constexpr std::chrono::seconds longestLockWait{2};
constexpr int lockTrialMilliseconds = 1;
// Ample for the program's statements and for the schema that it writes.
constexpr int deepestExpression = 20;
constexpr int longestStatement = 10'000;

bool HasMemory() {
    constexpr int moreThanAnyRecord = 1 << 20;
    const std::unique_ptr<void, void (*)(void*)> trial(sqlite3_malloc(moreThanAnyRecord), sqlite3_free);
    return trial != nullptr;
}

/// A file that cannot be understood is invalid; one that cannot be reached just now is not.
Status StatusOf(int code) {
    switch (code & 0xFF) {
    case SQLITE_OK:
        return Status::Ok;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
    case SQLITE_ERROR: // a table or a column is missing
    case SQLITE_TOOBIG: // a damaged length
        return Status::Invalid;
    case SQLITE_NOMEM: // so is one that asks for more than there is anywhere
        return HasMemory() ? Status::Invalid : Status::Failed;
    default:
        return Status::Failed;
    }
}

/// The first column of the first row, as text.
int QueryText(sqlite3* connection, const char* sql, std::string* result) {
    sqlite3_stmt* raw = nullptr;
    const int prepared = sqlite3_prepare_v2(connection, sql, -1, &raw, nullptr);
    const StatementHandle statement(raw);
    if (prepared != SQLITE_OK)
        return prepared;
    const int stepped = sqlite3_step(raw);
    if (stepped != SQLITE_ROW)
        return stepped == SQLITE_DONE ? SQLITE_CORRUPT : stepped;
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(raw, 0));
    *result = text ? text : "";
    return SQLITE_OK;
}

Status Expect(sqlite3* connection, const char* sql, const std::string& expected, Status otherwise) {
    std::string found;
    const Status status = StatusOf(QueryText(connection, sql, &found));
    if (status != Status::Ok)
        return status;
    return found == expected ? Status::Ok : otherwise;
}

/// The file may come from anywhere, so nothing that lies in it gets to run.
void Distrust(sqlite3* connection) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_FKEY, 0, nullptr);
    // The file's own schema is parsed all the same. The length of texts stays unlimited.
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(connection, SQLITE_LIMIT_EXPR_DEPTH, deepestExpression);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, longestStatement);
}

/// Tries again all the time: the library's own wait grows to tenths of a second, in which another program that writes
/// one record after the other has let go of its lock and taken it again.
int WaitForLock(void* /*context*/, int trials) {
    static std::chrono::steady_clock::time_point begin;
    const auto now = std::chrono::steady_clock::now();
    if (trials == 0)
        begin = now;
    if (now - begin >= longestLockWait)
        return 0;
    sqlite3_sleep(lockTrialMilliseconds);
    return 1;
}

int OpenConnection(const std::string& path, ConnectionHandle* connection) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(
        path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    connection->reset(raw);
    if (opened != SQLITE_OK)
        return opened;
    Distrust(raw);
    return sqlite3_busy_handler(raw, WaitForLock, nullptr);
}

/// Whether the disk gives every byte of the file, whatever they are.
bool CanBeRead(sqlite3* connection) {
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    if (sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK || !file->pMethods
        || file->pMethods->xFileSize(file, &size) != SQLITE_OK)
        return false;
    std::array<char, 65536> buffer{};
    for (sqlite3_int64 offset = 0; offset < size; offset += static_cast<sqlite3_int64>(buffer.size())) {
        const auto count = static_cast<int>(std::min<sqlite3_int64>(buffer.size(), size - offset));
        if (file->pMethods->xRead(file, buffer.data(), count, offset) != SQLITE_OK)
            return false;
    }
    return true;
}

/// An index that disagrees with its table hides records. It holds nothing of its own, so it can be made anew; where
/// that fails, the file is as good as it was.
void MendIndexes(sqlite3* connection) {
    sqlite3_exec(connection, "REINDEX", nullptr, nullptr, nullptr);
}

/// The check takes a page that the disk did not give for a damaged one, and a damaged file makes way for a fresh one.
/// So what it finds counts only where the disk gives everything, and only if it finds it again.
Status CheckPages(sqlite3* connection, bool* indexesLie) {
    const auto check = [connection] { return Expect(connection, "PRAGMA quick_check(1)", "ok", Status::Invalid); };
    // All that the other check sees, and the indexes.
    *indexesLie = Expect(connection, "PRAGMA integrity_check(1)", "ok", Status::Invalid) != Status::Ok;
    const Status status = *indexesLie ? check() : Status::Ok;
    if (status != Status::Invalid)
        return status;
    return CanBeRead(connection) ? check() : Status::Failed;
}

Status Inspect(sqlite3* connection, bool* indexesLie) {
    Status status = Expect(connection, "PRAGMA application_id", std::to_string(dataFileApplicationId), Status::Invalid);
    if (status == Status::Ok)
        status = Expect(connection, "PRAGMA user_version", std::to_string(dataFileVersion), Status::Invalid);
    // On a disk, or of an owner, that lets nobody write; or else the file's own header forbids it, which is that of a
    // later version of the format.
    if (status == Status::Ok && sqlite3_db_readonly(connection, "main") != 0)
        status = access(sqlite3_db_filename(connection, "main"), W_OK) == 0 ? Status::Invalid : Status::Failed;
    // At rest there is to be one file; somebody's tool may have left another mode behind.
    if (status == Status::Ok)
        status = Expect(connection, "PRAGMA journal_mode = DELETE", "delete", Status::Failed);
    if (status == Status::Ok)
        status = StatusOf(sqlite3_exec(connection, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr));
    // A cell that lies about its size is met as damage.
    if (status == Status::Ok)
        status = StatusOf(sqlite3_exec(connection, "PRAGMA cell_size_check = ON", nullptr, nullptr, nullptr));
    if (status == Status::Ok)
        status = CheckPages(connection, indexesLie);
    if (status == Status::Ok)
        status = Expect(connection, "SELECT count(*) FROM sequence", "1", Status::Invalid);
    return status;
}

} // namespace

void CloseConnection::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

CDataFile::CDataFile(ConnectionHandle connection)
    : connection_(std::move(connection)) {
}

std::unique_ptr<CDataFile> CDataFile::Open(const std::string& path, Status* status) {
    ConnectionHandle connection;
    bool indexesLie = false;
    *status = StatusOf(OpenConnection(path, &connection));
    if (*status == Status::Ok)
        *status = Inspect(connection.get(), &indexesLie);
    if (*status != Status::Ok)
        return nullptr;
    std::unique_ptr<CDataFile> file(new CDataFile(std::move(connection)));
    if (!file->Prepare()) {
        *status = StatusOf(sqlite3_errcode(file->connection_.get()));
        return nullptr;
    }
    // Last, since a file that is refused is not to be changed.
    if (indexesLie)
        MendIndexes(file->connection_.get());
    return file;
}

bool CDataFile::Prepare() {
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        sqlite3_stmt* raw = nullptr;
        const int prepared = sqlite3_prepare_v3(
            connection_.get(), SqlText(static_cast<Sql>(i)), -1, SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
        statements_[i].reset(raw);
        if (prepared != SQLITE_OK)
            return false;
    }
    return true;
}

bool CDataFile::Create(const std::string& path) {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return false;
    close(descriptor);
    ConnectionHandle connection;
    const std::string script = "PRAGMA application_id = " + std::to_string(dataFileApplicationId)
        + "; PRAGMA user_version = " + std::to_string(dataFileVersion) + "; BEGIN;" + dataFileSchema + "COMMIT;";
    const bool made = OpenConnection(path, &connection) == SQLITE_OK
        && sqlite3_exec(connection.get(), script.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!made)
        unlink(path.c_str());
    return made;
}

bool CDataFile::Execute(Sql statement) {
    return Run(statement).Step() == CStatementRun::Result::Done;
}

bool CDataFile::InTransaction() const {
    return sqlite3_get_autocommit(connection_.get()) == 0;
}

CTransaction::CTransaction(CDataFile& file)
    : file_(file)
    , begun_(file.Execute(Sql::Begin)) {
}

CTransaction::~CTransaction() {
    if (begun_ && file_.InTransaction())
        file_.Execute(Sql::Rollback);
}

bool CTransaction::Commit() {
    return file_.Execute(Sql::Commit);
}
