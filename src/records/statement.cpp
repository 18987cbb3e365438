#include "records/statement.h"

#include "platform/utf8.h"
#include "records/stored_text.h"
#include "records/string_helper.h"
#include "records/string_helper_factory.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <sqlite3.h>

namespace {

template <typename Number> Number Nearest(LONGLONG value) {
    using Limits = std::numeric_limits<Number>;
    return static_cast<Number>(std::clamp<LONGLONG>(value, Limits::min(), Limits::max()));
}

} // namespace

StoreFailure FailureOf(sqlite3* connection) {
    // Connections tell extended codes; their lowest byte is the plain one.
    const int code = sqlite3_extended_errcode(connection);
    if (code == SQLITE_READONLY_DBMOVED)
        return StoreFailure::Replaced;
    switch (code & 0xFF) {
    case SQLITE_NOMEM:
        return StoreFailure::NoMemory;
    case SQLITE_FULL:
        return StoreFailure::NoSpace;
    case SQLITE_READONLY:
        return StoreFailure::ReadOnly;
    case SQLITE_BUSY:
        return StoreFailure::Locked;
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
        break;
    default:
        return StoreFailure::Other;
    }
    switch (sqlite3_system_errno(connection)) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return StoreFailure::NoSpace;
    case EROFS:
    case EACCES:
    case EPERM:
        return StoreFailure::ReadOnly;
    default:
        return StoreFailure::Other;
    }
}

void FinalizeStatement::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

const std::string& CTextCodec::Encode(const wchar_t* text) {
    if (!factory_) {
        encoded_ = device::ToUtf8(text);
        return encoded_;
    }
    const std::unique_ptr<CStringHelper> helper = factory_->Create();
    const char* encoded = helper ? helper->Encode(text) : nullptr;
    encoded_ = encoded ? encoded : "";
    return encoded_;
}

void CTextCodec::Decode(const char* text, std::size_t length, CStoredText* target) {
    if (!factory_) {
        device::FromUtf8({text, length}, &decoded_);
        // A NUL within a stored text would end it.
        std::replace(decoded_.begin(), decoded_.end(), L'\0', L'\uFFFD');
        target->Assign(decoded_);
        return;
    }
    const std::unique_ptr<CStringHelper> helper = factory_->Create();
    target->Set(helper ? helper->Decode(text) : nullptr);
}

CStatementRun::CStatementRun(sqlite3_stmt* statement, CTextCodec& codec, StoreFailure& failure)
    : statement_(statement)
    , codec_(codec)
    , failure_(failure) {
}

CStatementRun::~CStatementRun() {
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

CStatementRun& CStatementRun::Bind(LONGLONG value) {
    failed_ |= sqlite3_bind_int64(statement_, ++parameter_, value) != SQLITE_OK;
    return *this;
}

CStatementRun& CStatementRun::Bind(double value) {
    failed_ |= sqlite3_bind_double(statement_, ++parameter_, value) != SQLITE_OK;
    return *this;
}

CStatementRun& CStatementRun::Bind(const CStoredText& text) {
    const std::string& encoded = codec_.Encode(text.Get());
    failed_
        |= sqlite3_bind_text64(statement_, ++parameter_, encoded.data(), encoded.size(), SQLITE_TRANSIENT, SQLITE_UTF8)
        != SQLITE_OK;
    return *this;
}

CStatementRun::Result CStatementRun::Step() {
    column_ = 0;
    if (failed_) {
        Note(StoreFailure::NoMemory);
        return Result::Failed;
    }
    switch (sqlite3_step(statement_)) {
    case SQLITE_ROW:
        return Result::Row;
    case SQLITE_DONE:
        return Result::Done;
    default:
        failed_ = true;
        Note(FailureOf(sqlite3_db_handle(statement_)));
        return Result::Failed;
    }
}

void CStatementRun::Note(StoreFailure failure) {
    if (failure_ == StoreFailure::None)
        failure_ = failure;
}

LONG CStatementRun::ReadLong() {
    return Nearest<LONG>(sqlite3_column_int64(statement_, column_++));
}

ULONG CStatementRun::ReadKey() {
    return Nearest<ULONG>(sqlite3_column_int64(statement_, column_++));
}

double CStatementRun::ReadDouble() {
    return sqlite3_column_double(statement_, column_++);
}

void CStatementRun::Read(CStoredText* text) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column_));
    const int length = sqlite3_column_bytes(statement_, column_++);
    if (bytes && length > 0)
        codec_.Decode(bytes, static_cast<std::size_t>(length), text);
}

bool CStatementRun::IsNull() const {
    return sqlite3_column_type(statement_, column_) == SQLITE_NULL;
}
