#include "platform/system/fresh_file.h"

#include "platform/registry.h"
#include "platform/system/device_paths.h"
#include "platform/system/environment.h"

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace device {
namespace {

constexpr int MostAttempts = 100;
constexpr unsigned PrivateMode = 0600;
constexpr unsigned AccessRights = 0777;
constexpr std::string_view Prefix = ".odoledger-";

/// The process that a fresh file's name tells, 0 for any other name.
pid_t MakerOf(std::string_view name) {
    if (name.substr(0, Prefix.size()) != Prefix)
        return 0;
    name.remove_prefix(Prefix.size());
    pid_t process = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    name.remove_prefix(static_cast<std::size_t>(end - name.data()));
    const bool isNumbered
        = name.size() > 1 && name.front() == '-' && name.find_first_not_of("0123456789", 1) == std::string_view::npos;
    return error == std::errc{} && isNumbered && process > 0 ? process : 0;
}

/// Whether this is a file of the user's own that nobody is at. The number alone is not enough: a process of another
/// container is none here, but it holds the lock.
bool IsLeft(const std::string& path) {
    const FileDescriptor file{open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)};
    struct stat found { };
    return file.IsOpen() && fstat(file.Get(), &found) == 0 && S_ISREG(found.st_mode) && found.st_uid == geteuid()
        && (flock(file.Get(), LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK);
}

void ClearFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::directory_iterator place{folder, error};
    for (; !error && place != std::filesystem::directory_iterator{}; place.increment(error)) {
        const pid_t maker = MakerOf(place->path().filename().string());
        // Of this process's own number is what another one of that number has left, as they are where numbers are few.
        const bool isGone = maker == getpid() || (maker != 0 && kill(maker, 0) != 0 && errno == ESRCH);
        if (isGone && IsLeft(place->path()))
            unlink(place->path().c_str());
    }
}

} // namespace

FreshFile::FreshFile(std::string target, Kind kind)
    : target_(std::move(target))
    , kind_(kind)
    , mode_(PrivateMode)
    , error_(LookAtTarget()) {
    if (error_ == ERROR_SUCCESS)
        Create();
}

FreshFile::~FreshFile() {
    if (!name_.empty())
        unlink(name_.c_str());
}

LONG FreshFile::LookAtTarget() {
    struct stat found { };
    if (lstat(target_.c_str(), &found) != 0)
        return ERROR_SUCCESS;
    if (kind_ == Kind::New)
        return ERROR_FILE_EXISTS;
    mode_ = found.st_mode & AccessRights;
    return S_ISREG(found.st_mode) && !IsReadOnlyMode(found.st_mode) ? ERROR_SUCCESS : ERROR_ACCESS_DENIED;
}

void FreshFile::Create() {
    const std::string begin = FolderOf(target_) + '/' + std::string{Prefix} + std::to_string(getpid()) + '-';
    errno = EEXIST;
    for (int attempt = 0; attempt < MostAttempts && !file_.IsOpen() && errno == EEXIST; ++attempt) {
        name_ = begin + std::to_string(attempt);
        const int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW;
        file_ = FileDescriptor{open(name_.c_str(), flags, PrivateMode)};
    }
    if (!file_.IsOpen()) {
        error_ = ErrorOf(errno);
        name_.clear();
        return;
    }
    // Where there are no locks the number of the process stands alone.
    flock(file_.Get(), LOCK_EX | LOCK_NB);
}

LONG FreshFile::TakeName() {
    // A file system without access rights keeps none.
    fchmod(file_.Get(), mode_);
    LONG error = Sync(file_);
    if (error == ERROR_SUCCESS && kind_ == Kind::New)
        error = RenameToNew(name_, target_);
    else if (error == ERROR_SUCCESS && std::rename(name_.c_str(), target_.c_str()) != 0)
        error = ErrorOf(errno);
    if (error == ERROR_SUCCESS) {
        name_.clear();
        SyncNamesIn(FolderOf(target_));
    }
    return error;
}

LONG ReplaceFile(const std::string& path, std::string_view contents) {
    if (const LONG error = MakeFolders(FolderOf(path)))
        return error;
    FreshFile fresh(path, FreshFile::Kind::Replacement);
    if (fresh.Error() != ERROR_SUCCESS)
        return fresh.Error();
    const LONG error = WriteAll(fresh.File(), contents);
    return error == ERROR_SUCCESS ? fresh.TakeName() : error;
}

void ClearLeftovers() {
    const Environment& environment = TheEnvironment();
    ClearFolder(environment.documentsFolder);
    ClearFolder(FolderOf(environment.registryFile));
    ClearFolder(environment.copiesFolder);
}

} // namespace device
