#include "hosts/window/end_signals.h"

#include <utility>

namespace device {

EndSignals::EndSignals(std::function<void()> heard)
    : heard_(std::move(heard)) {
    sigemptyset(&signals_);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, &former_);
    listener_ = std::jthread([this](std::stop_token stop) { Listen(std::move(stop)); });
}

EndSignals::~EndSignals() {
    listener_.request_stop();
    pthread_kill(listener_.native_handle(), SIGHUP); // one of those that it waits for
    listener_.join();
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

void EndSignals::Listen(std::stop_token stop) { // NOLINT(performance-unnecessary-value-param): as the thread hands it
    int signal = 0;
    while (sigwait(&signals_, &signal) == 0 && !stop.stop_requested())
        heard_();
}

} // namespace device
