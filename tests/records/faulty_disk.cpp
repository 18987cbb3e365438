#include "faulty_disk.h"

#include <map>
#include <sqlite3.h>

namespace {

int operationsLeft = -1; ///< -1: a sound disk
bool countsAll = false;
bool onlyOnce = false;
int writeError = SQLITE_FULL;
bool hasFailed = false;
sqlite3_vfs* sound = nullptr;
sqlite3_vfs faulty;
/// The methods of each sort of file with the changing ones replaced, and the way back.
std::map<const sqlite3_io_methods*, sqlite3_io_methods> replaced;
std::map<const sqlite3_io_methods*, const sqlite3_io_methods*> original;

bool Fails() {
    if (operationsLeft < 0)
        return false;
    if (operationsLeft > 0) {
        --operationsLeft;
        return false;
    }
    hasFailed = true;
    if (onlyOnce)
        operationsLeft = -1;
    return true;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    if (!Fails())
        return original[file->pMethods]->xWrite(file, data, size, offset);
    original[file->pMethods]->xWrite(file, data, size / 2, offset);
    return writeError;
}

int Sync(sqlite3_file*, int) {
    return Fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK; // no test takes the power away from the host
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return Fails() ? SQLITE_IOERR_TRUNCATE : original[file->pMethods]->xTruncate(file, size);
}

int Read(sqlite3_file* file, void* data, int size, sqlite3_int64 offset) {
    return countsAll && Fails() ? SQLITE_IOERR_READ : original[file->pMethods]->xRead(file, data, size, offset);
}

int Lock(sqlite3_file* file, int level) {
    return countsAll && Fails() ? SQLITE_IOERR_LOCK : original[file->pMethods]->xLock(file, level);
}

int Delete(sqlite3_vfs*, const char* path, int syncFolder) {
    return Fails() ? SQLITE_IOERR_DELETE : sound->xDelete(sound, path, syncFolder);
}

int Open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    if (countsAll && Fails()) {
        file->pMethods = nullptr;
        return SQLITE_CANTOPEN;
    }
    const int result = sound->xOpen(sound, path, file, flags, outFlags);
    if (!file->pMethods)
        return result;
    const auto [position, isNew] = replaced.try_emplace(file->pMethods, *file->pMethods);
    sqlite3_io_methods& methods = position->second;
    if (isNew) {
        original[&methods] = file->pMethods;
        methods.xWrite = Write;
        methods.xSync = Sync;
        methods.xTruncate = Truncate;
        methods.xRead = Read;
        methods.xLock = Lock;
    }
    file->pMethods = &methods;
    return result;
}

} // namespace

FaultyDisk::FaultyDisk() {
    sound = sqlite3_vfs_find(nullptr);
    faulty = *sound;
    faulty.zName = "faulty";
    faulty.xOpen = Open;
    faulty.xDelete = Delete;
    sqlite3_vfs_register(&faulty, 1);
    Mend();
}

FaultyDisk::~FaultyDisk() {
    sqlite3_vfs_unregister(&faulty);
    sqlite3_vfs_register(sound, 1);
}

void FaultyDisk::FailFrom(int change) {
    FailAt(change, Span::FromThenOn, Error::Full);
    countsAll = false;
}

void FaultyDisk::FailAt(int operation, Span span, Error error) {
    operationsLeft = operation;
    countsAll = true;
    onlyOnce = span == Span::Once;
    writeError = error == Error::Full ? SQLITE_FULL : SQLITE_IOERR_WRITE;
    hasFailed = false;
}

void FaultyDisk::Mend() {
    operationsLeft = -1;
}

bool FaultyDisk::HasFailed() const {
    return hasFailed;
}
