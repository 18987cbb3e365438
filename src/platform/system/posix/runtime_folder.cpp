#include "platform/system/posix/runtime_folder.h"

#include "platform/system/environment.h"
#include "platform/system/troubles.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace device {
namespace {

constexpr mode_t PrivateFolderMode = 0700;
constexpr std::chrono::milliseconds HoldPatience{500};

/// A folder that only the user may change, and those above it that must be so as well.
using Place = std::vector<std::string>;

/// Why the folder is not the user's own alone; empty if it is. A link to another place is none.
std::string FaultOf(const std::string& folder) {
    const FileDescriptor opened{open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)};
    struct stat found { };
    if (!opened.IsOpen() || fstat(opened.Get(), &found) != 0)
        return std::generic_category().message(errno);
    if (found.st_uid != geteuid())
        return "belongs to somebody else";
    const bool isPrivate = (found.st_mode & 0777U) == PrivateFolderMode || fchmod(opened.Get(), PrivateFolderMode) == 0;
    return isPrivate && access(folder.c_str(), W_OK) == 0 ? "" : std::generic_category().message(errno);
}

/// What keeps the place from being used, with the folder's name; empty where nothing does.
std::string FaultOf(const Place& place, bool make) {
    for (const std::string& folder : place) {
        const bool isMissing = make && mkdir(folder.c_str(), PrivateFolderMode) != 0 && errno != EEXIST;
        const std::string fault = isMissing ? std::generic_category().message(errno) : FaultOf(folder);
        if (!fault.empty())
            return std::string{folder}.append(": ").append(fault);
    }
    return {};
}

/// One spelling of the storage place for all processes, whatever links and working folders they came by.
std::string PlaceName() {
    std::error_code error;
    const std::string& place = TheEnvironment().storagePlace;
    const auto canonical = std::filesystem::weakly_canonical(place, error);
    return ShortNameOf(error ? place : canonical.string());
}

/// All that processes of this user and storage place may use, in the order of preference. The last one, which is the
/// same for all of them, is made only where there is no other.
std::vector<Place> Places() {
    const Environment& environment = TheEnvironment();
    std::vector<Place> places;
    const std::string name = PlaceName();
    if (!environment.runtimeFolder.empty())
        places.push_back({environment.runtimeFolder + "/odoledger-" + name});
    const std::string users = environment.temporaryFolder + "/odoledger-" + std::to_string(geteuid());
    places.push_back({users, users + '/' + name});
    places.push_back({environment.storagePlace + "/locks"});
    return places;
}

} // namespace

std::vector<std::string> RuntimeFolders() {
    std::vector<std::string> folders;
    std::string faults;
    for (const Place& place : Places()) {
        const bool isLast = FolderOf(place.back()) == TheEnvironment().storagePlace;
        if (isLast && folders.empty())
            MakeFolders(TheEnvironment().storagePlace);
        const std::string fault = FaultOf(place, !isLast || folders.empty());
        if (fault.empty())
            folders.push_back(place.back());
        else
            faults += (faults.empty() ? "" : "; ") + fault;
    }
    if (folders.empty())
        NoteTrouble(Trouble::Locks, "there is no place for locks: " + faults);
    return folders;
}

std::string ShortNameOf(std::string_view text) {
    // FNV-1a, 64 bits.
    std::uint64_t hash = 0xCBF29CE484222325U;
    for (const char character : text)
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
    std::string name;
    for (int shift = 60; shift >= 0; shift -= 4)
        name += "0123456789abcdef"[(hash >> static_cast<unsigned>(shift)) & 0xFU];
    return name;
}

LONG HoldRuntimeFolder(const std::string& folder, FileDescriptor& held) {
    return HoldFolder(folder, HoldPatience, held);
}

} // namespace device
