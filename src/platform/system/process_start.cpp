#include "platform/system/process_start.h"

#include "platform/system/host_file.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace device {
namespace {

/// More than are ever open at a time: the data file and its journal, locks, sockets and their clients, the display.
constexpr std::size_t NeededDescriptors = 64;

/// A closed one would be given to the next file that is opened, and what is told there would be written into that file.
bool OpenStandardDescriptors() {
    while (true) {
        const int descriptor = open("/dev/null", O_RDWR); // it stays open over exec, as the standard ones do
        if (descriptor > STDERR_FILENO)
            close(descriptor);
        if (descriptor < 0 || descriptor > STDERR_FILENO)
            return descriptor >= 0;
    }
}

bool HasRoomForDescriptors() {
    std::array<FileDescriptor, NeededDescriptors> trial;
    for (FileDescriptor& descriptor : trial)
        descriptor = FileDescriptor{fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)};
    return trial.back().IsOpen();
}

} // namespace

std::optional<std::string> PrepareProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    if (!OpenStandardDescriptors() || !HasRoomForDescriptors())
        return "too few files may be open at a time (ulimit -n): " + std::to_string(NeededDescriptors) + " are needed";
    return std::nullopt;
}

} // namespace device
