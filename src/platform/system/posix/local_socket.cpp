#include "platform/system/posix/local_socket.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

namespace device {
namespace {

constexpr int WaitingClients = 8;
constexpr mode_t SocketMode = S_ISVTX | S_IRUSR | S_IWUSR;

/// A socket's address holds a hundred characters, a path may have thousands: the folder is opened, and the address
/// goes through its descriptor.
class Address {
public:
    explicit Address(const std::string& path)
        : folder_(open(FolderOf(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC)) {
        std::string shown = path;
        if (shown.size() >= sizeof address_.sun_path)
            shown = "/proc/self/fd/" + std::to_string(folder_.Get()) + path.substr(path.rfind('/'));
        address_.sun_family = AF_UNIX;
        shown.copy(address_.sun_path, sizeof address_.sun_path - 1);
    }

    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&address_); }
    static socklen_t Size() { return sizeof(sockaddr_un); }

private:
    FileDescriptor folder_;
    sockaddr_un address_{};
};

FileDescriptor NewSocket() {
    return FileDescriptor{socket(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)};
}

bool IsOwnUser(const FileDescriptor& socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket.Get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == geteuid();
}

bool BecomeBlocking(const FileDescriptor& socket, std::chrono::milliseconds patience) {
    const timeval limit{patience.count() / 1000, patience.count() % 1000 * 1000};
    return setsockopt(socket.Get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit) == 0
        && setsockopt(socket.Get(), SOL_SOCKET, SO_SNDTIMEO, &limit, sizeof limit) == 0
        && fcntl(socket.Get(), F_SETFL, 0) == 0;
}

bool Bind(const FileDescriptor& socket, const std::string& path) {
    return bind(socket.Get(), Address{path}.Get(), Address::Size()) == 0;
}

/// Whether the socket at `path` is one that no process listens at. Anything else there stays.
bool IsLeftBehind(const std::string& path) {
    struct stat found { };
    if (lstat(path.c_str(), &found) != 0 || !S_ISSOCK(found.st_mode))
        return false;
    const FileDescriptor trial = NewSocket();
    return trial.IsOpen() && connect(trial.Get(), Address{path}.Get(), Address::Size()) != 0 && errno == ECONNREFUSED;
}

} // namespace

FileDescriptor ListenAt(const std::string& path) {
    FileDescriptor socket = NewSocket();
    if (!socket.IsOpen())
        return socket;
    bool bound = Bind(socket, path);
    if (!bound && errno == EADDRINUSE && IsLeftBehind(path))
        bound = unlink(path.c_str()) == 0 && Bind(socket, path);
    if (!bound)
        return FileDescriptor{};
    if (chmod(path.c_str(), SocketMode) != 0 || listen(socket.Get(), WaitingClients) != 0) {
        unlink(path.c_str());
        return FileDescriptor{};
    }
    return socket;
}

FileDescriptor AcceptClient(const FileDescriptor& listener) {
    FileDescriptor client{accept4(listener.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)};
    return client.IsOpen() && IsOwnUser(client) ? std::move(client) : FileDescriptor{};
}

bool IsListenedAt(const std::string& path) {
    const FileDescriptor trial = NewSocket();
    // EAGAIN: more wait there already than it takes in.
    return trial.IsOpen() && (connect(trial.Get(), Address{path}.Get(), Address::Size()) == 0 || errno == EAGAIN);
}

FileDescriptor ConnectTo(const std::string& path, std::chrono::milliseconds patience) {
    FileDescriptor socket = NewSocket();
    // The time limit holds for connecting too, where the other side's queue is full.
    const bool connected = socket.IsOpen() && BecomeBlocking(socket, patience)
        && connect(socket.Get(), Address{path}.Get(), Address::Size()) == 0 && IsOwnUser(socket);
    return connected ? std::move(socket) : FileDescriptor{};
}

bool SendPacket(const FileDescriptor& socket, std::string_view packet) {
    return packet.size() <= LargestPacket
        && send(socket.Get(), packet.data(), packet.size(), MSG_NOSIGNAL) == static_cast<ssize_t>(packet.size());
}

std::optional<std::string> ReceivePacket(const FileDescriptor& socket) {
    std::array<char, LargestPacket + 1> buffer{};
    const ssize_t count = recv(socket.Get(), buffer.data(), buffer.size(), 0);
    if (count <= 0 || static_cast<std::size_t>(count) > LargestPacket)
        return std::nullopt;
    return std::string{buffer.data(), static_cast<std::size_t>(count)};
}

} // namespace device
