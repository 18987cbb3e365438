#include "platform/system/runtime_folder.h"

#include "platform/registry.h"
#include "platform/system/environment.h"

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace device {
namespace {

constexpr mode_t PrivateFolderMode = 0700;
constexpr auto HoldInterval = std::chrono::milliseconds{5};
constexpr int HoldAttempts = 100;

/// Makes the folder, or takes one that is there if it is the user's own and no link to another place.
bool MakePrivate(const std::string& folder) {
    if (mkdir(folder.c_str(), PrivateFolderMode) != 0 && errno != EEXIST) {
        return false;
    }
    const FileDescriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)};
    struct stat found { };
    if (!opened.IsOpen() || fstat(opened.Get(), &found) != 0 || found.st_uid != geteuid()) {
        return false;
    }
    return (found.st_mode & 0777U) == PrivateFolderMode || fchmod(opened.Get(), PrivateFolderMode) == 0;
}

/// One spelling of the storage place for all processes, whatever links and working folders they came by.
std::string PlaceName() {
    std::error_code error;
    const std::string& place = TheEnvironment().storagePlace;
    const auto canonical = std::filesystem::weakly_canonical(place, error);
    return ShortNameOf(error ? place : canonical.string());
}

} // namespace

std::optional<std::string> RuntimeFolder() {
    const Environment& environment = TheEnvironment();
    if (!environment.runtimeFolder.empty()) {
        std::string folder = environment.runtimeFolder + "/odoledger-" + PlaceName();
        if (MakePrivate(folder)) {
            return folder;
        }
    }
    const std::string users = environment.temporaryFolder + "/odoledger-" + std::to_string(geteuid());
    std::string folder = users + '/' + PlaceName();
    return MakePrivate(users) && MakePrivate(folder) ? std::optional{std::move(folder)} : std::nullopt;
}

std::string ShortNameOf(std::string_view text) {
    // FNV-1a, 64 bits.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
    }
    std::string name;
    for (int shift = 60; shift >= 0; shift -= 4) {
        name += "0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 0xFU];
    }
    return name;
}

std::optional<FileDescriptor> HoldRuntimeFolder(const std::string& folder) {
    FileDescriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    for (int attempt = 0; opened.IsOpen() && attempt < HoldAttempts; ++attempt) {
        if (flock(opened.Get(), LOCK_EX | LOCK_NB) == 0) {
            return opened;
        }
        std::this_thread::sleep_for(HoldInterval);
    }
    return std::nullopt;
}

} // namespace device
