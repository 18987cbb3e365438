#include "platform/system/ipc.h"

#include "platform/registry.h"
#include "platform/system/posix/local_socket.h"
#include "platform/system/posix/runtime_folder.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <deque>
#include <mutex>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <vector>

namespace device {
namespace {

using SteadyTime = std::chrono::steady_clock::time_point;

constexpr std::chrono::milliseconds Patience{900};
/// Who wants a window in front asks again and again.
constexpr std::chrono::milliseconds FrontPatience{60};
/// How long a client may take to say what it wants.
constexpr std::chrono::milliseconds ClientTime{500};
constexpr std::size_t MostClients = 16;
/// Requests that nobody takes do not pile up for ever.
constexpr std::size_t MostRequests = 64;
constexpr std::string_view FrontRequest = "front";
constexpr std::string_view PostRequest = "post ";
constexpr std::string_view Taken = "taken";

std::vector<std::string> SocketPaths(const std::wstring& windowClass) {
    std::vector<std::string> paths = RuntimeFolders();
    for (std::string& path : paths)
        path += "/window-" + ShortNameOf(ToUtf8(windowClass));
    return paths;
}

std::optional<WindowRequest> RequestIn(const std::string& packet) {
    if (packet == FrontRequest)
        return WindowRequest{WindowRequest::Kind::BringToFront, {}};
    const std::string name = packet.substr(std::min(packet.size(), PostRequest.size()));
    if (packet.rfind(PostRequest, 0) != 0 || name.empty() || name.find('\0') != std::string::npos
        || ToUtf8(FromUtf8(name)) != name) {
        return std::nullopt;
    }
    return WindowRequest{WindowRequest::Kind::PostRegistered, FromUtf8(name)};
}

bool Ask(const std::wstring& windowClass, const std::string& request, std::chrono::milliseconds patience) {
    const auto paths = SocketPaths(windowClass);
    const auto path = std::find_if(paths.begin(), paths.end(), IsListenedAt);
    if (path == paths.end())
        return false;
    const FileDescriptor socket = ConnectTo(*path, patience);
    return socket.IsOpen() && SendPacket(socket, request) && ReceivePacket(socket) == Taken;
}

/// The thread that holds it starts all others with signals blocked: they belong to the program's thread.
class BlockedSignals {
public:
    BlockedSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &before_);
    }
    BlockedSignals(const BlockedSignals&) = delete;
    BlockedSignals& operator=(const BlockedSignals&) = delete;
    ~BlockedSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
    sigset_t before_{};
};

} // namespace

/// The thread behind a published window, and the place where it puts the requests.
class PublishedWindow::Listener {
public:
    Listener(FileDescriptor socket, FileDescriptor stop, std::string path, std::function<void()> wake)
        : socket_(std::move(socket))
        , stop_(std::move(stop))
        , path_(std::move(path))
        , wake_(std::move(wake)) {
        struct stat found { };
        inode_ = stat(path_.c_str(), &found) == 0 ? found.st_ino : 0;
        const BlockedSignals blocked;
        thread_ = std::thread{[this] { Listen(); }};
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    ~Listener() {
        // Only what this process put there goes: a folder that was cleared may hold a successor's socket.
        struct stat found { };
        FileDescriptor held;
        if (HoldRuntimeFolder(FolderOf(path_), held) == ERROR_SUCCESS && stat(path_.c_str(), &found) == 0
            && found.st_ino == inode_) {
            unlink(path_.c_str());
        }
        const std::uint64_t one = 1;
        while (write(stop_.Get(), &one, sizeof one) < 0 && errno == EINTR) { }
        thread_.join();
    }

    static std::unique_ptr<Listener> At(const std::string& path, const std::function<void()>& wake);

    std::optional<WindowRequest> Take() {
        const std::lock_guard lock{mutex_};
        if (requests_.empty())
            return std::nullopt;
        WindowRequest request = std::move(requests_.front());
        requests_.pop_front();
        return request;
    }

private:
    struct Client {
        FileDescriptor socket;
        SteadyTime deadline;
    };

    void Listen() {
        while (true) {
            std::vector<pollfd> watched{{stop_.Get(), POLLIN, 0}, {isAccepting_ ? socket_.Get() : -1, POLLIN, 0}};
            for (const Client& client : clients_)
                watched.push_back({client.socket.Get(), POLLIN, 0});
            // A silent client is looked at again when its time has run out, and nobody else waits for it.
            const bool isIdle = clients_.empty() && isAccepting_;
            poll(watched.data(), watched.size(), isIdle ? -1 : static_cast<int>(ClientTime.count() / 4));
            isAccepting_ = true;
            if (watched[0].revents != 0)
                return;
            for (std::size_t i = clients_.size(); i-- > 0;) {
                if (watched[i + 2].revents != 0)
                    Serve(clients_[i].socket);
                if (watched[i + 2].revents != 0 || clients_[i].deadline < std::chrono::steady_clock::now())
                    clients_.erase(clients_.begin() + static_cast<std::ptrdiff_t>(i));
            }
            if (watched[1].revents != 0)
                Welcome();
        }
    }

    void Welcome() {
        FileDescriptor socket = AcceptClient(socket_);
        // One that cannot be let in, as where there are no descriptors left, goes on knocking.
        isAccepting_ = socket.IsOpen();
        if (socket.IsOpen() && clients_.size() == MostClients)
            clients_.erase(clients_.begin());
        if (socket.IsOpen())
            clients_.push_back({std::move(socket), std::chrono::steady_clock::now() + ClientTime});
    }

    void Serve(const FileDescriptor& client) {
        const auto packet = ReceivePacket(client);
        auto request = packet ? RequestIn(*packet) : std::nullopt;
        if (request && Keep(client, std::move(*request)))
            wake_();
    }

    /// Who has hung up meanwhile will ask again: what nobody is told of is not kept.
    bool Keep(const FileDescriptor& client, WindowRequest request) {
        const std::lock_guard lock{mutex_};
        if (requests_.size() >= MostRequests || !SendPacket(client, Taken))
            return false;
        requests_.push_back(std::move(request));
        return true;
    }

    FileDescriptor socket_;
    FileDescriptor stop_;
    std::string path_;
    std::function<void()> wake_;
    ino_t inode_ = 0;
    std::vector<Client> clients_; // the thread's own, as the next
    bool isAccepting_ = true;
    std::mutex mutex_; // over requests_
    std::deque<WindowRequest> requests_;
    std::thread thread_;
};

/// Null when the place cannot be had, for one because another process has it.
std::unique_ptr<PublishedWindow::Listener> PublishedWindow::Listener::At(
    const std::string& path, const std::function<void()>& wake) {
    FileDescriptor stop{eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)};
    FileDescriptor held;
    // Two processes that both find a dead one's socket must not take each other's away.
    if (!stop.IsOpen() || HoldRuntimeFolder(FolderOf(path), held) != ERROR_SUCCESS)
        return nullptr;
    FileDescriptor socket = ListenAt(path);
    if (!socket.IsOpen())
        return nullptr;
    try {
        return std::make_unique<Listener>(std::move(socket), std::move(stop), path, wake);
    } catch (const std::system_error&) {
        // No thread to be had.
        unlink(path.c_str());
        return nullptr;
    }
}

PublishedWindow::PublishedWindow() = default;

PublishedWindow::~PublishedWindow() = default;

std::unique_ptr<PublishedWindow> PublishedWindow::Publish(
    const std::wstring& windowClass, const std::function<void()>& wake) {
    std::unique_ptr<PublishedWindow> window{new PublishedWindow};
    for (const std::string& path : SocketPaths(windowClass))
        if (auto listener = Listener::At(path, wake))
            window->listeners_.push_back(std::move(listener));
        else if (window->listeners_.empty())
            break; // one's own place is the one that counts
    return window->listeners_.empty() ? nullptr : std::move(window);
}

std::optional<WindowRequest> PublishedWindow::Take() {
    for (const auto& listener : listeners_)
        if (auto request = listener->Take())
            return request;
    return std::nullopt;
}

bool WindowExists(const std::wstring& windowClass) {
    const auto paths = SocketPaths(windowClass);
    return std::any_of(paths.begin(), paths.end(), IsListenedAt);
}

bool BringToFront(const std::wstring& windowClass) {
    return Ask(windowClass, std::string{FrontRequest}, FrontPatience);
}

bool PostRegistered(const std::wstring& windowClass, const std::wstring& messageName) {
    return Ask(windowClass, std::string{PostRequest} + ToUtf8(messageName), Patience);
}

} // namespace device
