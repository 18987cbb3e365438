#include "platform/system/host_file.h"

#include "platform/registry.h"
#include "platform/system/troubles.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace device {

FileDescriptor::~FileDescriptor() {
    if (IsOpen())
        close(descriptor_);
}

LONG ErrorOf(int hostError) {
    switch (hostError) {
    case 0:
        return ERROR_SUCCESS;
    case ENOENT:
        return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return ERROR_ACCESS_DENIED;
    case EEXIST:
    case ENOTEMPTY:
        return ERROR_ALREADY_EXISTS;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return ERROR_DISK_FULL;
    default:
        return ERROR_WRITE_FAULT;
    }
}

const char* ReasonOf(LONG error) {
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return "there is no such place";
    case ERROR_ACCESS_DENIED:
        return "that is not allowed";
    case ERROR_LOCK_VIOLATION:
        return "another program has locked it";
    case ERROR_DISK_FULL:
        return "there is no space left";
    default:
        return "the disk fails";
    }
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos)
        return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

LONG MakeFolders(const std::string& folder) {
    struct stat found { };
    if (stat(folder.c_str(), &found) == 0)
        return S_ISDIR(found.st_mode) ? ERROR_SUCCESS : ERROR_PATH_NOT_FOUND;
    if (errno == ENOENT && folder.find('/', 1) != std::string::npos) {
        if (const LONG above = MakeFolders(FolderOf(folder)))
            return above;
    }
    if (mkdir(folder.c_str(), S_IRWXU) == 0) {
        SyncNamesIn(FolderOf(folder));
        return ERROR_SUCCESS;
    }
    const int error = errno;
    const bool isThereNow = error == EEXIST && stat(folder.c_str(), &found) == 0 && S_ISDIR(found.st_mode);
    return isThereNow ? ERROR_SUCCESS : ErrorOf(error);
}

LONG OpenToRead(const std::string& path, FileDescriptor& file) {
    // O_NONBLOCK: a pipe of that name must not hold the program up.
    file = FileDescriptor{open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)};
    struct stat found { };
    if (!file.IsOpen() || fstat(file.Get(), &found) != 0)
        return ErrorOf(errno);
    return S_ISREG(found.st_mode) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

namespace {
/// As read, but through interruptions.
ssize_t ReadSome(const FileDescriptor& file, char* buffer, std::size_t size) {
    ssize_t count = 0;
    do {
        count = read(file.Get(), buffer, size);
    } while (count < 0 && errno == EINTR);
    return count;
}

/// Calls `take` with each piece of the file until it gives another result than ERROR_SUCCESS.
template <typename Take> LONG ForEachPiece(const FileDescriptor& file, Take take) {
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = ReadSome(file, buffer.data(), buffer.size());
        if (count <= 0)
            return count == 0 ? ERROR_SUCCESS : ErrorOf(errno);
        if (const LONG result = take(std::string_view{buffer.data(), static_cast<std::size_t>(count)}))
            return result;
    }
}
} // namespace

LONG ReadWhole(const FileDescriptor& file, std::size_t limit, std::string& contents) {
    return ForEachPiece(file, [&](std::string_view piece) {
        contents += piece;
        return contents.size() > limit ? ERROR_MORE_DATA : ERROR_SUCCESS;
    });
}

LONG CopyContents(const FileDescriptor& source, const FileDescriptor& target) {
    return ForEachPiece(source, [&](std::string_view piece) { return WriteAll(target, piece); });
}

LONG WriteAll(const FileDescriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file.Get(), bytes.data(), bytes.size());
        if (count > 0)
            bytes.remove_prefix(static_cast<std::size_t>(count));
        else if (count == 0 || errno != EINTR)
            return count == 0 ? ERROR_WRITE_FAULT : ErrorOf(errno);
    }
    return ERROR_SUCCESS;
}

LONG Sync(const FileDescriptor& file) {
    // EINVAL: a file system that has nothing to sync.
    return fsync(file.Get()) == 0 || errno == EINVAL ? ERROR_SUCCESS : ErrorOf(errno);
}

void SyncNamesIn(const std::string& folder) {
    const FileDescriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    // A folder that may be written but not read cannot be opened for its sync.
    const LONG error = opened.IsOpen() ? Sync(opened) : errno == EACCES ? ERROR_SUCCESS : ErrorOf(errno);
    if (error != ERROR_SUCCESS)
        NoteTrouble(Trouble::Disk, "what was stored in " + folder + " may not outlast a power cut: " + ReasonOf(error));
}

LONG HoldFolder(const std::string& folder, std::chrono::milliseconds patience, FileDescriptor& held) {
    constexpr std::chrono::milliseconds Interval{5};
    held = FileDescriptor{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    if (!held.IsOpen())
        return ErrorOf(errno);
    for (auto waited = std::chrono::milliseconds{0}; flock(held.Get(), LOCK_EX | LOCK_NB) != 0; waited += Interval) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return ErrorOf(errno);
        if (waited >= patience)
            return ERROR_LOCK_VIOLATION;
        std::this_thread::sleep_for(Interval);
    }
    return ERROR_SUCCESS;
}

LONG RenameToNew(const std::string& source, const std::string& target) {
#ifndef RENAME_NOREPLACE
    // A browser's system, which has no second names either; but nobody else is at its files.
    struct stat found { };
    if (lstat(target.c_str(), &found) == 0)
        return ERROR_ALREADY_EXISTS;
    return std::rename(source.c_str(), target.c_str()) == 0 ? ERROR_SUCCESS : ErrorOf(errno);
#else
    if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0)
        return ERROR_SUCCESS;
    if (errno != EINVAL && errno != ENOSYS)
        return ErrorOf(errno);
    // Without that kind of rename a second name is made instead, which never replaces one either.
    if (link(source.c_str(), target.c_str()) != 0)
        return ErrorOf(errno);
    if (unlink(source.c_str()) != 0) {
        const int error = errno;
        unlink(target.c_str());
        return ErrorOf(error);
    }
    return ERROR_SUCCESS;
#endif
}

} // namespace device
