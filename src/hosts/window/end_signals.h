#pragma once

#include <csignal>
#include <functional>
#include <thread>

namespace device {

/// Hears the signals that tell a process to end (SIGTERM, SIGHUP, SIGINT) on a thread of its own, where a handler may
/// do more than one in the middle of anything. To be made before any other thread, which then leaves them alone too.
class EndSignals {
public:
    /// From now on the signals wait. `heard` will be called on the thread that `Listen` starts.
    explicit EndSignals(std::function<void(int signal)> heard);
    /// The signals are as they were before.
    ~EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    /// Those that came meanwhile are heard now. False when there is no thread to be had.
    bool Listen();

private:
    void Hear(const std::stop_token& stop);

    std::function<void(int signal)> heard_;
    sigset_t signals_{};
    sigset_t former_{};
    std::jthread listener_;
};

} // namespace device
