#include "records/data_file.h"

#include "records/ad_hoc_query.h"
#include "records/file_check.h"
#include "records/file_header.h"
#include "records/strange_journals.h"

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using Status = CDataFile::Status;

constexpr std::chrono::seconds LongestLockWait{2};
constexpr int LockTrialMilliseconds = 1;
// Ample for the program's statements and for the schema that it writes.
constexpr int DeepestExpression = 20;
constexpr int LongestStatement = 10'000;

bool HasMemory() {
    constexpr int MoreThanAnyRecord = 1 << 20;
    const std::unique_ptr<void, void (*)(void*)> trial(sqlite3_malloc(MoreThanAnyRecord), sqlite3_free);
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
    case SQLITE_BUSY:
        return Status::Locked;
    default:
        return Status::Failed;
    }
}

/// What can be seen of the file before SQLite sees it, and what it must not see.
Status LookAt(const std::string& path, struct stat* info) {
    const std::unique_ptr<char, void (*)(void*)> place(realpath(path.c_str(), nullptr), std::free);
    const int descriptor = place ? open(place.get(), O_RDONLY | O_CLOEXEC | O_NONBLOCK) : -1;
    if (descriptor < 0)
        return Status::Failed;
    CFileHeader header;
    const CFileHeader::Reading reading
        = fstat(descriptor, info) == 0 ? header.Read(descriptor, 0) : CFileHeader::Reading::Failed;
    close(descriptor);
    if (reading == CFileHeader::Reading::TooShort || (reading == CFileHeader::Reading::Done && !header.IsOurs()))
        return Status::Invalid;
    if (reading != CFileHeader::Reading::Done)
        return Status::Failed;
    const StoreFailure failure = PutStrangeJournalsAside(place.get());
    if (failure == StoreFailure::Locked)
        return Status::Locked;
    return failure == StoreFailure::None ? Status::Ok : Status::Failed;
}

/// Tries again all the time: the library's own wait grows to tenths of a second, in which another program that writes
/// one record after the other has let go of its lock and taken it again.
int WaitForLock(void* /*context*/, int trials) {
    static std::chrono::steady_clock::time_point begin;
    const auto now = std::chrono::steady_clock::now();
    if (trials == 0)
        begin = now;
    if (now - begin >= LongestLockWait)
        return 0;
    sqlite3_sleep(LockTrialMilliseconds);
    return 1;
}

ConnectionHandle OpenConnection(const std::string& path) {
    sqlite3* raw = nullptr;
    const int opened = sqlite3_open_v2(
        path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
    ConnectionHandle connection(raw);
    Require(opened);
    PrepareForStrangers(raw);
    Require(sqlite3_busy_handler(raw, WaitForLock, nullptr));
    return connection;
}

/// Settings of the connection that cannot change within a transaction.
void Prepare(sqlite3* connection) {
    // EXTRA: after a commit the folder is synced too, or a power cut would bring the journal back, and it the state
    // before. Without spilling nothing reaches the file before its journal holds the first page, by which the journal
    // is known to belong to the file. A cell that lies about its size is met as damage.
    Require(sqlite3_exec(connection,
        "PRAGMA synchronous = EXTRA; PRAGMA cache_spill = OFF; PRAGMA cell_size_check = ON;"
        "PRAGMA ignore_check_constraints = ON",
        nullptr, nullptr, nullptr));
}

/// At rest there is to be one file; somebody's tool may have left another mode behind.
void UseRollbackJournal(sqlite3* connection) {
    bool isUsed = false;
    Query(connection, "PRAGMA journal_mode = DELETE", {},
        [&](sqlite3_stmt* row) { isUsed = TextColumn(row, 0) == "delete"; });
    Require(isUsed ? SQLITE_OK : SQLITE_BUSY);
}

} // namespace

void PrepareForStrangers(sqlite3* connection) {
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_TRIGGER, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_VIEW, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_ENABLE_FKEY, 0, nullptr);
    // What a -wal holds goes into the file only when the file was found to be good.
    sqlite3_db_config(connection, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    // The file's own schema is parsed all the same. The length of texts stays unlimited.
    sqlite3_limit(connection, SQLITE_LIMIT_ATTACHED, 0);
    sqlite3_limit(connection, SQLITE_LIMIT_EXPR_DEPTH, DeepestExpression);
    sqlite3_limit(connection, SQLITE_LIMIT_SQL_LENGTH, LongestStatement);
}

void CloseConnection::operator()(sqlite3* connection) const {
    sqlite3_close_v2(connection);
}

CDataFile::CDataFile(ConnectionHandle connection, dev_t device, ino_t inode)
    : device_(device)
    , inode_(inode)
    , connection_(std::move(connection)) {
}

std::unique_ptr<CDataFile> CDataFile::Open(const std::string& path, Status* status) try {
    struct stat info { };
    *status = LookAt(path, &info);
    if (*status != Status::Ok)
        return nullptr;
    std::unique_ptr<CDataFile> file(new CDataFile(OpenConnection(path), info.st_dev, info.st_ino));
    file->CheckAndPrepare();
    return file;
} catch (const SqliteFailure& failure) {
    *status = StatusOf(failure.code);
    return nullptr;
}

void CDataFile::CheckAndPrepare() {
    sqlite3* connection = connection_.get();
    ::Prepare(connection);
    ::Execute(connection, "BEGIN");
    filecheck::CheckSchema(connection);
    // On a disk, or of an owner, that lets nobody write.
    Require(sqlite3_db_readonly(connection, "main") == 0 ? SQLITE_OK : SQLITE_READONLY);
    const bool areIndexesTrue = filecheck::CheckPages(connection);
    filecheck::MendKeys(connection);
    Prepare();
    ::Execute(connection, "COMMIT");
    ::Execute(connection, "PRAGMA ignore_check_constraints = OFF");
    UseRollbackJournal(connection);
    // Last, since a file that is refused is not to be changed.
    if (!areIndexesTrue)
        filecheck::MendIndexes(connection);
}

void CDataFile::Prepare() {
    for (std::size_t i = 0; i < statements_.size(); ++i) {
        sqlite3_stmt* raw = nullptr;
        Require(sqlite3_prepare_v3(
            connection_.get(), SqlText(static_cast<Sql>(i)), -1, SQLITE_PREPARE_PERSISTENT, &raw, nullptr));
        statements_[i].reset(raw);
    }
}

bool CDataFile::IsReplacedAt(const std::string& path) const {
    struct stat info { };
    return stat(path.c_str(), &info) == 0 && (info.st_dev != device_ || info.st_ino != inode_);
}

bool CDataFile::Create(const std::string& path) try {
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (descriptor < 0)
        return false;
    close(descriptor);
    const std::string script = "PRAGMA application_id = " + std::to_string(DataFileApplicationId)
        + "; PRAGMA user_version = " + std::to_string(DataFileVersion) + "; BEGIN;" + DataFileSchema + "COMMIT;";
    Require(sqlite3_exec(OpenConnection(path).get(), script.c_str(), nullptr, nullptr, nullptr));
    return true;
} catch (const SqliteFailure&) {
    unlink(path.c_str());
    return false;
}

bool CDataFile::Execute(Sql statement) {
    return Run(statement).Step() == CStatementRun::Result::Done;
}

LONG CDataFile::NewestId() const {
    return static_cast<LONG>(sqlite3_last_insert_rowid(connection_.get()));
}

bool CDataFile::InTransaction() const {
    return sqlite3_get_autocommit(connection_.get()) == 0;
}

CTransaction::CTransaction(CDataFile& file)
    : file_(file)
    , isPart_(file.InTransaction())
    , begun_(isPart_ || file.Execute(Sql::Begin)) {
}

CTransaction::~CTransaction() {
    if (begun_ && !isPart_ && file_.InTransaction())
        file_.Execute(Sql::Rollback);
}

bool CTransaction::Commit() {
    return isPart_ || file_.Execute(Sql::Commit);
}
