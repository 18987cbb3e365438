#include "platform/system/named_mutex.h"

#include "platform/registry.h"
#include "platform/system/environment.h"
#include "platform/system/host_file.h"
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

struct Share {
    FileDescriptor lock;
    bool isFirst = false; ///< nobody had one before
    LONG error = ERROR_SUCCESS;
};

Share TakeShare(const std::string& folder, const std::string& name) {
    Share share;
    FileDescriptor held;
    share.error = HoldRuntimeFolder(folder, held);
    if (share.error != ERROR_SUCCESS)
        return share;
    const int opened = open((folder + name).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, LockFileMode);
    share.error = opened < 0 ? ErrorOf(errno) : ERROR_SUCCESS;
    share.lock = FileDescriptor{opened};
    if (opened < 0)
        return share;
    // Everybody who has the mutex open shares its lock, so only the first can have it alone. The two steps belong
    // together: that is what the folder is held for.
    share.isFirst = flock(opened, LOCK_EX | LOCK_NB) == 0;
    if (flock(opened, LOCK_SH | LOCK_NB) != 0)
        share.error = ErrorOf(errno);
    return share;
}

} // namespace

/// One in each place that processes of the device share.
struct NamedMutex::Shares {
    std::vector<FileDescriptor> locks;
};

NamedMutex::NamedMutex()
    : shares_(std::make_unique<Shares>()) {
}

NamedMutex::~NamedMutex() = default;

NamedMutex::Opened NamedMutex::Open(const std::wstring& name) {
    Opened result{std::unique_ptr<NamedMutex>{new NamedMutex}};
    const auto& preset = TheEnvironment().presetMutexes;
    result.existed = std::find(preset.begin(), preset.end(), name) != preset.end();
    if (result.existed)
        return result;
    result.error = ERROR_ACCESS_DENIED;
    std::vector<FileDescriptor>& locks = result.mutex->shares_->locks;
    for (const std::string& folder : RuntimeFolders()) {
        Share share = TakeShare(folder, "/mutex-" + ShortNameOf(ToUtf8(name)));
        const bool isOwn = locks.empty();
        if (share.error == ERROR_SUCCESS) {
            result.error = ERROR_SUCCESS;
            result.existed = result.existed || !share.isFirst;
            locks.push_back(std::move(share.lock));
        } else if (isOwn) {
            NoteTrouble(Trouble::Locks, "the lock in " + folder + " cannot be had: " + ReasonOf(share.error));
            return {nullptr, false, share.error};
        }
    }
    if (result.error != ERROR_SUCCESS)
        result.mutex = nullptr;
    return result;
}

} // namespace device
