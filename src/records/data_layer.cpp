#include "records/data_layer.h"

#include "platform/files.h"
#include "records/data_file.h"
#include "records/entry_filter.h"
#include "records/record_access.h"

#include <cerrno>
#include <exception>
#include <new>
#include <sys/stat.h>

namespace {

CDataLayer::ConnectStatus StatusOfPath(const std::string& path) {
    struct stat info { };
    if (stat(path.c_str(), &info) != 0)
        return errno == ENOENT || errno == ENOTDIR ? CDataLayer::ConnectNotFound : CDataLayer::ConnectFailed;
    if (!S_ISREG(info.st_mode))
        return CDataLayer::ConnectInvalid;
    constexpr mode_t AnybodyWrites = S_IWUSR | S_IWGRP | S_IWOTH;
    return (info.st_mode & AnybodyWrites) == 0 ? CDataLayer::ConnectReadOnly : CDataLayer::ConnectOK;
}

/// Runs a statement whose two last parameters are the record's keys; true when it met the record.
bool MeetsRecord(CStatementRun& run, const CBaseObject& record, ULONG* refId) {
    run.Bind(LONGLONG{record.GetID()}).Bind(LONGLONG{record.GetRefID()});
    return run.SingleRow([&](CStatementRun& row) { *refId = row.ReadKey(); });
}

template <typename Record> bool Insert(CDataFile& file, const Record& record, LONG* id, ULONG* refId) {
    if (!file.Execute(Sql::TakeRef)
        || !file.Run(Sql::TakenRef).SingleRow([&](CStatementRun& row) { *refId = row.ReadKey(); }))
        return false;
    CStatementRun run = file.Run(RecordSql<Record>::Insert);
    run.Bind(LONGLONG{*refId});
    RecordAccess::Bind(run, record);
    const bool isDone = run.Step() == CStatementRun::Result::Done;
    *id = file.NewestId();
    return isDone;
}

template <typename Record> bool Update(CDataFile& file, const Record& record, ULONG* refId) {
    CStatementRun run = file.Run(RecordSql<Record>::Update);
    RecordAccess::Bind(run, record);
    return MeetsRecord(run, record, refId);
}

template <typename Record> bool DeleteRow(CDataFile& file, const Record& record, ULONG* refId) {
    CStatementRun run = file.Run(RecordSql<Record>::Remove);
    return MeetsRecord(run, record, refId);
}

/// False on an error alone: that another process was first leaves nothing to do.
bool DeleteIfThere(CDataFile& file, const CEntry& entry) {
    CStatementRun run = file.Run(Sql::DeleteEntry);
    run.Bind(LONGLONG{entry.GetID()}).Bind(LONGLONG{entry.GetRefID()});
    CStatementRun::Result result;
    while ((result = run.Step()) == CStatementRun::Result::Row) { }
    return result == CStatementRun::Result::Done;
}

bool DeleteOwned(CDataFile& file, Sql statement, ULONG vehicle) {
    return file.Run(statement).Bind(LONGLONG{vehicle}).Step() == CStatementRun::Result::Done;
}

} // namespace

CDataLayer::CDataLayer() = default;
CDataLayer::~CDataLayer() = default;

/// Memory that runs out is a failure like any other, and no exception gets past the data layer.
template <typename Operation> int CDataLayer::Perform(Operation operation) {
    failure_ = file_ ? StoreFailure::None : StoreFailure::Replaced;
    if (!file_)
        return 0;
    file_->ForgetFailure();
    try {
        if (operation(*file_))
            return 1;
        failure_ = file_->Failure();
    } catch (const std::bad_alloc&) {
        failure_ = StoreFailure::NoMemory;
    } catch (const std::exception&) {
        failure_ = StoreFailure::Other;
    }
    return 0;
}

/// All of it, or nothing.
template <typename Operation> int CDataLayer::Change(Operation operation) {
    return Perform([&](CDataFile& file) {
        CTransaction transaction(file);
        return transaction.HasBegun() && operation(file) && transaction.Commit();
    });
}

int CDataLayer::PerformOn(const std::function<bool(sqlite3* connection)>& operation) {
    return Perform([&](CDataFile& file) { return operation(file.Connection()); });
}

CDataLayer::ConnectStatus CDataLayer::Connect(const wchar_t* path) try {
    Disconnect();
    const std::optional<std::string> hostPath = HostPathOf(path ? path : L"");
    const ConnectStatus status = hostPath ? ConnectHostFile(*hostPath) : ConnectNotFound;
    if (file_)
        KeepDocumentsFolderOf(*hostPath);
    return status;
} catch (const std::exception&) {
    return ConnectFailed;
}

CDataLayer::ConnectStatus CDataLayer::ConnectHostFile(const std::string& path) try {
    Disconnect();
    hostPath_ = path;
    failure_ = StoreFailure::None;
    const ConnectStatus status = StatusOfPath(hostPath_);
    if (status != ConnectOK)
        return status;
    auto opened = CDataFile::Status::Failed;
    file_ = CDataFile::Open(hostPath_, &opened);
    if (file_)
        file_->Codec().Use(factory_.get());
    if (opened == CDataFile::Status::Locked)
        failure_ = StoreFailure::Locked;
    if (opened == CDataFile::Status::Locked || opened == CDataFile::Status::Failed)
        return ConnectFailed;
    return file_ ? ConnectOK : ConnectInvalid;
} catch (const std::exception&) {
    return ConnectFailed;
}

void CDataLayer::Disconnect() {
    file_.reset();
    hostPath_.clear();
}

bool CDataLayer::IsReplaced() const try {
    return file_ ? file_->IsReplacedAt(hostPath_) : StatusOfPath(hostPath_) == ConnectOK;
} catch (const std::exception&) {
    return false;
}

template <typename Record, typename... Keys> int CDataLayer::LoadAll(CObjectListT<Record>* records, Keys... keys) {
    if (!records)
        return 0;
    return Perform([&](CDataFile& file) {
        CObjectListT<Record> loaded;
        CStatementRun run = file.Run(RecordSql<Record>::Load);
        (run.Bind(keys), ...);
        CStatementRun::Result result;
        while ((result = run.Step()) == CStatementRun::Result::Row) {
            std::unique_ptr<Record> record = RecordAccess::Make<Record>();
            RecordAccess::Read(run, record.get());
            loaded.Add(record.get());
            static_cast<void>(record.release());
        }
        if (result == CStatementRun::Result::Failed)
            return false;
        records->TakeAll(loaded);
        return true;
    });
}

int CDataLayer::Load(CObjectListT<CVehicle>* vehicles) {
    if (IsReplaced())
        ConnectHostFile(std::string(hostPath_));
    return LoadAll(vehicles);
}

int CDataLayer::Load(CObjectListT<CEntry>* entries, const CEntryFilter* filter) {
    if (!filter)
        return 0;
    const CEntryFilter::Bounds bounds = filter->DateBounds();
    return LoadAll(
        entries, LONGLONG{filter->GetVehicleID()}, LONGLONG{filter->GetEntryType()}, bounds.first, bounds.last);
}

int CDataLayer::Load(CObjectListT<CKeyword>* keywords, CKeyword::Type type) {
    return LoadAll(keywords, LONGLONG{type});
}

int CDataLayer::Load(CObjectListT<CNotification>* reminders, ULONG vehicle) {
    return LoadAll(reminders, LONGLONG{vehicle});
}

template <typename Record> int CDataLayer::Store(Record* record) {
    if (!record)
        return 0;
    LONG id = record->GetID();
    ULONG refId = 0;
    const int stored = Change(
        [&](CDataFile& file) { return id == 0 ? Insert(file, *record, &id, &refId) : Update(file, *record, &refId); });
    if (stored)
        RecordAccess::MarkStored(record, id, refId);
    return stored;
}

int CDataLayer::Save(CVehicle* vehicle, int) {
    return Store(vehicle);
}

int CDataLayer::Save(CEntry* entry, int) {
    return Store(entry);
}

int CDataLayer::Save(CKeyword* keyword, int) {
    return Store(keyword);
}

int CDataLayer::Save(CNotification* reminder, int) {
    return Store(reminder);
}

template <typename Record> int CDataLayer::Remove(const Record* record) {
    if (!record)
        return 0;
    ULONG refId = 0;
    return Change([&](CDataFile& file) { return DeleteRow(file, *record, &refId); });
}

int CDataLayer::Delete(const CVehicle* vehicle) {
    if (!vehicle)
        return 0;
    ULONG refId = 0;
    return Change([&](CDataFile& file) {
        return DeleteRow(file, *vehicle, &refId) && DeleteOwned(file, Sql::DeleteEntriesOfVehicle, refId)
            && DeleteOwned(file, Sql::DeleteRemindersOfVehicle, refId);
    });
}

int CDataLayer::Delete(const CEntry* entry) {
    return Remove(entry);
}

int CDataLayer::Delete(const CKeyword* keyword) {
    return Remove(keyword);
}

int CDataLayer::Delete(const CNotification* reminder) {
    return Remove(reminder);
}

int CDataLayer::Delete(const CObjectListT<CEntry>* entries) {
    if (!entries)
        return 0;
    return Change([&](CDataFile& file) {
        for (int i = 0; i < entries->GetCount(); ++i)
            if (const CEntry* entry = entries->Get(i); entry && !DeleteIfThere(file, *entry))
                return false;
        return true;
    });
}

int CDataLayer::InOneTransaction(const std::function<bool()>& work) {
    return Change([&](CDataFile&) { return work(); });
}

int CDataLayer::GetMaxOdometer(ULONG vehicle, LONG* odometer) {
    if (!odometer)
        return 0;
    return Perform([&](CDataFile& file) {
        bool found = false;
        LONG highest = 0;
        CStatementRun run = file.Run(Sql::MaxOdometer);
        const bool done = run.Bind(LONGLONG{vehicle}).SingleRow([&](CStatementRun& row) {
            found = !row.IsNull();
            highest = row.ReadLong();
        });
        if (!done || !found)
            return false;
        *odometer = highest;
        return true;
    });
}

int CDataLayer::UpdateCurrentOdometer(CVehicle* vehicle, LONG odometer) {
    if (!vehicle)
        return 0;
    ULONG refId = 0;
    const int stored = Change([&](CDataFile& file) {
        CStatementRun run = file.Run(Sql::SetOdometer);
        run.Bind(LONGLONG{odometer});
        return MeetsRecord(run, *vehicle, &refId);
    });
    if (stored)
        RecordAccess::SetCurrentOdometer(vehicle, odometer);
    return stored;
}

CStringHelperFactory* CDataLayer::GetStringHelperFactory() {
    if (factory_)
        return factory_.get();
    return &defaultFactory_;
}

void CDataLayer::SetStringHelperFactory(std::unique_ptr<CStringHelperFactory> factory) {
    factory_ = std::move(factory);
    if (file_)
        file_->Codec().Use(factory_.get());
}
