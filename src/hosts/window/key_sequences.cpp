#include "hosts/window/key_sequences.h"

#include "hosts/window/display.h"
#include "platform/system/environment.h"
#include "platform/system/posix/runtime_folder.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace device {

namespace {

bool HasOwn(const char* nameInHome) {
    const char* home = std::getenv("HOME");
    return home != nullptr && access((std::string(home) + nameInHome).c_str(), F_OK) == 0;
}

} // namespace

bool KeepKeySequences() {
    if (IsSet("XCOMPOSECACHE") || IsSet("XCOMPOSEFILE") || HasOwn("/.XCompose") || HasOwn("/.compose-cache"))
        return false;
    if (TheEnvironment().runtimeFolder.empty() || geteuid() == 0)
        return false;
    const auto folders = RuntimeFolders();
    if (folders.empty() || FolderOf(folders.front()) != TheEnvironment().runtimeFolder)
        return false;
    const std::string folder = folders.front() + "/key-sequences";
    if (mkdir(folder.c_str(), S_IRWXU) != 0 && errno != EEXIST)
        return false;
    setenv("XCOMPOSECACHE", folder.c_str(), 1); // NOLINT(concurrency-mt-unsafe): one thread
    std::error_code error;
    return !std::filesystem::is_empty(folder, error) && !error;
}

} // namespace device
