#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace device {
/// What another process of the same device asks of a window.
struct WindowRequest {
    enum class Kind { BringToFront, PostRegistered };

    Kind kind = Kind::BringToFront;
    std::wstring messageName; ///< of a registered message
};

/// A window class of this process as the device's other processes find it. Requests come in on a thread of their own
/// and wait until they are taken.
class PublishedWindow {
public:
    /// `wake` is called on that other thread after each request; it must be safe there. Null when the class cannot be
    /// published, for one because another process has done so.
    static std::unique_ptr<PublishedWindow> Publish(const std::wstring& windowClass, const std::function<void()>& wake);
    PublishedWindow(const PublishedWindow&) = delete;
    PublishedWindow& operator=(const PublishedWindow&) = delete;
    /// Nobody finds the class any more, and no further call of `wake` comes.
    ~PublishedWindow();

    /// The oldest request that was not taken yet. Any thread may call it.
    std::optional<WindowRequest> Take();

private:
    class Listener;
    PublishedWindow();

    std::vector<std::unique_ptr<Listener>> listeners_; ///< one a place that other processes may look at
};

// To the windows of other processes; each takes a second at the most.

/// A process that is stopped has its windows all the same. Never waits.
bool WindowExists(const std::wstring& windowClass);
/// True when the other process has taken the request over, within 60 milliseconds.
bool BringToFront(const std::wstring& windowClass);
/// Posts the registered message of this name, with parameters of 0. True as above.
bool PostRegistered(const std::wstring& windowClass, const std::wstring& messageName);
} // namespace device
