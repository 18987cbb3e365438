#include "platform/system/named_mutex.h"

#include "platform/registry.h"
#include "platform/system/environment.h"
#include "platform/system/posix/runtime_folder.h"
#include "platform/system/troubles.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace device {
namespace {

/// The sticky bit tells those who tidy up such folders that the file is in use.
constexpr mode_t LockFileMode = S_ISVTX | S_IRUSR | S_IWUSR;

NamedMutex::Opened Failed(const std::string& place, LONG error) {
    NoteTrouble(Trouble::Locks, "the lock in " + place + " cannot be had: " + ReasonOf(error));
    return {nullptr, false, error};
}

/// Whether a process that could not use this one's folder has the mutex open.
bool IsHeldIn(const std::string& folder, const std::string& name) {
    FileDescriptor held;
    const FileDescriptor lock{open((folder + name).c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK)};
    return lock.IsOpen() && HoldRuntimeFolder(folder, held) == ERROR_SUCCESS
        && flock(lock.Get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

NamedMutex::Opened NamedMutex::Open(const std::wstring& name) {
    const auto& preset = TheEnvironment().presetMutexes;
    if (std::find(preset.begin(), preset.end(), name) != preset.end())
        return {std::unique_ptr<NamedMutex>{new NamedMutex{FileDescriptor{}}}, true, ERROR_SUCCESS};
    const auto folders = RuntimeFolders();
    if (folders.empty())
        return {nullptr, false, ERROR_ACCESS_DENIED};
    const std::string& own = folders.front();
    FileDescriptor held;
    if (const LONG error = HoldRuntimeFolder(own, held))
        return Failed(own, error);
    const std::string file = "/mutex-" + ShortNameOf(ToUtf8(name));
    FileDescriptor lock{open((own + file).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, LockFileMode)};
    if (!lock.IsOpen())
        return Failed(own, ErrorOf(errno));
    // Everybody who has the mutex open shares its lock, so only the first can have it alone. The two steps belong
    // together: that is what the folder is held for.
    const bool first = flock(lock.Get(), LOCK_EX | LOCK_NB) == 0;
    if (flock(lock.Get(), LOCK_SH | LOCK_NB) != 0)
        return Failed(own, ErrorOf(errno));
    const bool elsewhere = std::any_of(
        folders.begin() + 1, folders.end(), [&file](const std::string& folder) { return IsHeldIn(folder, file); });
    std::unique_ptr<NamedMutex> mutex{new NamedMutex{std::move(lock)}};
    return {std::move(mutex), !first || elsewhere, ERROR_SUCCESS};
}

} // namespace device
