#include "platform/system/named_mutex.h"

#include "platform/registry.h"
#include "platform/system/environment.h"
#include "platform/system/runtime_folder.h"
#include "platform/system/utf8.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace device {
namespace {

/// The sticky bit tells those who tidy up such folders that the file is in use.
constexpr mode_t LockFileMode = S_ISVTX | S_IRUSR | S_IWUSR;

NamedMutex::Opened Failed(LONG error) {
    return {nullptr, false, error};
}

} // namespace

NamedMutex::Opened NamedMutex::Open(const std::wstring& name) {
    const auto& preset = TheEnvironment().presetMutexes;
    if (std::find(preset.begin(), preset.end(), name) != preset.end()) {
        return {std::unique_ptr<NamedMutex>{new NamedMutex{FileDescriptor{}}}, true, ERROR_SUCCESS};
    }
    const auto folder = RuntimeFolder();
    const auto held = folder ? HoldRuntimeFolder(*folder) : std::nullopt;
    if (!held) {
        return Failed(ERROR_ACCESS_DENIED);
    }
    const std::string file = *folder + "/mutex-" + ShortNameOf(ToUtf8(name));
    FileDescriptor lock{open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, LockFileMode)};
    if (!lock.IsOpen()) {
        return Failed(ErrorOf(errno));
    }
    // Everybody who has the mutex open shares its lock, so only the first can have it alone. The two steps belong
    // together: that is what the folder is held for.
    const bool first = flock(lock.Get(), LOCK_EX | LOCK_NB) == 0;
    if (flock(lock.Get(), LOCK_SH | LOCK_NB) != 0) {
        return Failed(ErrorOf(errno));
    }
    return {std::unique_ptr<NamedMutex>{new NamedMutex{std::move(lock)}}, !first, ERROR_SUCCESS};
}

} // namespace device
