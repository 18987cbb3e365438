#pragma once

#include "records/statement.h"
#include "records/statements.h"
#include "records/store_failure.h"

#include <array>
#include <memory>
#include <string>
#include <sys/types.h>

struct CloseConnection {
    void operator()(sqlite3* connection) const;
};
using ConnectionHandle = std::unique_ptr<sqlite3, CloseConnection>;

/// What a connection to a file that may come from anywhere gets before its first statement: nothing that lies in the
/// file gets to run.
void PrepareForStrangers(sqlite3* connection);

/// An open data file with its statements.
class CDataFile {
public:
    enum class Status { Ok, Invalid, Locked, Failed };

    /// Opens a regular file of the host, and mends what would do harm later. Null, and the reason in `status`, where it
    /// cannot be used; then it is as it was.
    static std::unique_ptr<CDataFile> Open(const std::string& path, Status* status);
    /// Makes an empty data file; fails where there is a file already.
    static bool Create(const std::string& path);

    CStatementRun Run(Sql statement) {
        return {statements_[static_cast<std::size_t>(statement)].get(), codec_, failure_};
    }
    /// For a statement that gives no rows.
    bool Execute(Sql statement);
    /// Of the row that was inserted last.
    LONG NewestId() const;
    /// False outside a transaction, and when a failure has ended the transaction already.
    bool InTransaction() const;
    CTextCodec& Codec() { return codec_; }
    /// Why the statement failed that failed first since this was forgotten.
    StoreFailure Failure() const { return failure_; }
    void ForgetFailure() { failure_ = StoreFailure::None; }
    /// For statements beside the prepared ones.
    sqlite3* Connection() const { return connection_.get(); }
    /// Whether this name leads to another file by now.
    bool IsReplacedAt(const std::string& path) const;

private:
    CDataFile(ConnectionHandle connection, dev_t device, ino_t inode);
    void CheckAndPrepare();
    void Prepare();

    CTextCodec codec_;
    StoreFailure failure_ = StoreFailure::None;
    dev_t device_;
    ino_t inode_;
    ConnectionHandle connection_;
    // Destroyed before the connection.
    std::array<StatementHandle, static_cast<std::size_t>(Sql::Count)> statements_;
};

/// All changes until Commit, or none. Within another one it is a part of that, which alone is committed.
class CTransaction {
public:
    explicit CTransaction(CDataFile& file);
    CTransaction(const CTransaction&) = delete;
    CTransaction& operator=(const CTransaction&) = delete;
    ~CTransaction();

    bool HasBegun() const { return begun_; }
    /// True when the changes are on the disk.
    bool Commit();

private:
    CDataFile& file_;
    bool isPart_;
    bool begun_;
};
