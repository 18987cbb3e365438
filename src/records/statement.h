#pragma once

#include "platform/types.h"
#include "records/store_failure.h"

#include <memory>
#include <string>

class CStoredText;
class CStringHelperFactory;
struct sqlite3;
struct sqlite3_stmt;

struct FinalizeStatement {
    void operator()(sqlite3_stmt* statement) const;
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

/// What the library says of the connection's last call, and behind an error of the disk what the system said.
StoreFailure FailureOf(sqlite3* connection);

/// Turns texts for the statements. Without a factory of somebody's own it needs no helper, and no copy that outlives
/// the row.
class CTextCodec {
public:
    /// Null for UTF-8.
    void Use(CStringHelperFactory* factory) { factory_ = factory; }
    /// Valid until the next call.
    const std::string& Encode(const wchar_t* text);
    void Decode(const char* text, std::size_t length, CStoredText* target);

private:
    CStringHelperFactory* factory_ = nullptr;
    std::string encoded_;
    std::wstring decoded_;
};

/// One run of a prepared statement: values are bound and columns are read in their order, and the statement is ready
/// for its next run when this one goes.
class CStatementRun {
public:
    CStatementRun(sqlite3_stmt* statement, CTextCodec& codec, StoreFailure& failure);
    CStatementRun(const CStatementRun&) = delete;
    CStatementRun& operator=(const CStatementRun&) = delete;
    ~CStatementRun();

    CStatementRun& Bind(LONGLONG value);
    /// A value that is no number is not bound, and the table refuses the row.
    CStatementRun& Bind(double value);
    CStatementRun& Bind(const CStoredText& text);

    enum class Result { Row, Done, Failed };
    Result Step();
    /// True when exactly one row came and then the end without an error. Without a row its record is gone.
    template <typename Read> bool SingleRow(Read read) {
        if (Step() != Result::Row) {
            Note(StoreFailure::Gone);
            return false;
        }
        read(*this);
        return Step() == Result::Done;
    }

    /// The next column. A whole number beyond 32 bits gives the nearest that fits.
    LONG ReadLong();
    ULONG ReadKey();
    double ReadDouble();
    float ReadFloat() { return static_cast<float>(ReadDouble()); }
    void Read(CStoredText* text);
    bool IsNull() const;

private:
    void Note(StoreFailure failure);

    sqlite3_stmt* statement_;
    CTextCodec& codec_;
    StoreFailure& failure_;
    int parameter_ = 0;
    int column_ = 0;
    bool failed_ = false;
};
