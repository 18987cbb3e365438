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

/// The methods of a sort of file with some of them replaced, and the way back.
struct Methods : sqlite3_io_methods {
    const sqlite3_io_methods* sound;
};
std::map<const sqlite3_io_methods*, Methods> replaced;

const sqlite3_io_methods& Sound(const sqlite3_file* file) {
    return *static_cast<const Methods*>(file->pMethods)->sound;
}

bool Fails(bool counts = true) {
    if (!counts || operationsLeft < 0 || operationsLeft-- > 0)
        return false;
    hasFailed = true;
    operationsLeft = onlyOnce ? -1 : 0;
    return true;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    const bool fails = Fails();
    const int result = Sound(file).xWrite(file, data, fails ? size / 2 : size, offset);
    return fails ? writeError : result;
}

int Sync(sqlite3_file*, int) {
    return Fails() ? SQLITE_IOERR_FSYNC : SQLITE_OK; // no test takes the power away from the host
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return Fails() ? SQLITE_IOERR_TRUNCATE : Sound(file).xTruncate(file, size);
}

int Read(sqlite3_file* file, void* data, int size, sqlite3_int64 offset) {
    return Fails(countsAll) ? SQLITE_IOERR_READ : Sound(file).xRead(file, data, size, offset);
}

int Lock(sqlite3_file* file, int level) {
    return Fails(countsAll) ? SQLITE_IOERR_LOCK : Sound(file).xLock(file, level);
}

int Delete(sqlite3_vfs*, const char* path, int syncFolder) {
    return Fails() ? SQLITE_IOERR_DELETE : sound->xDelete(sound, path, syncFolder);
}

int Open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
    file->pMethods = nullptr;
    const int result = Fails(countsAll) ? SQLITE_CANTOPEN : sound->xOpen(sound, path, file, flags, outFlags);
    if (file->pMethods) {
        Methods& methods = replaced[file->pMethods];
        methods = {*file->pMethods, file->pMethods};
        methods.xWrite = Write;
        methods.xSync = Sync;
        methods.xTruncate = Truncate;
        methods.xRead = Read;
        methods.xLock = Lock;
        file->pMethods = &methods;
    }
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

void FaultyDisk::FailAt(int operation, Span span, Error error, bool countsReading) {
    operationsLeft = operation;
    countsAll = countsReading;
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
