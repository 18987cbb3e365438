#include "faulty_disk.h"

#include <map>
#include <sqlite3.h>

namespace {

int changesLeft = -1; ///< -1: a sound disk
bool hasFailed = false;
sqlite3_vfs* sound = nullptr;
sqlite3_vfs faulty;
/// The methods of each sort of file with the changing ones replaced, and the way back.
std::map<const sqlite3_io_methods*, sqlite3_io_methods> replaced;
std::map<const sqlite3_io_methods*, const sqlite3_io_methods*> original;

bool Fails() {
    if (changesLeft < 0)
        return false;
    if (changesLeft > 0) {
        --changesLeft;
        return false;
    }
    hasFailed = true;
    return true;
}

int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 offset) {
    return Fails() ? SQLITE_FULL : original[file->pMethods]->xWrite(file, data, size, offset);
}

int Sync(sqlite3_file* file, int flags) {
    return Fails() ? SQLITE_IOERR_FSYNC : original[file->pMethods]->xSync(file, flags);
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    return Fails() ? SQLITE_IOERR_TRUNCATE : original[file->pMethods]->xTruncate(file, size);
}

int Delete(sqlite3_vfs*, const char* path, int syncFolder) {
    return Fails() ? SQLITE_IOERR_DELETE : sound->xDelete(sound, path, syncFolder);
}

int Open(sqlite3_vfs*, const char* path, sqlite3_file* file, int flags, int* outFlags) {
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
    changesLeft = change;
    hasFailed = false;
}

void FaultyDisk::Mend() {
    changesLeft = -1;
}

bool FaultyDisk::HasFailed() const {
    return hasFailed;
}
