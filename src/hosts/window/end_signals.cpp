#include "hosts/window/end_signals.h"

#include <system_error>
#include <utility>

namespace device {

EndSignals::EndSignals(std::function<void(int signal)> heard)
    : heard_(std::move(heard)) {
    sigemptyset(&signals_);
    for (const int signal : {SIGTERM, SIGHUP, SIGINT})
        sigaddset(&signals_, signal);
    pthread_sigmask(SIG_BLOCK, &signals_, &former_);
}

EndSignals::~EndSignals() {
    if (listener_.joinable()) {
        listener_.request_stop();
        pthread_kill(listener_.native_handle(), SIGHUP); // one of those that it waits for
        listener_.join();
    }
    pthread_sigmask(SIG_SETMASK, &former_, nullptr);
}

bool EndSignals::Listen() {
    try {
        listener_ = std::jthread([this](const std::stop_token& stop) { Hear(stop); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void EndSignals::Hear(const std::stop_token& stop) {
    int signal = 0;
    while (sigwait(&signals_, &signal) == 0 && !stop.stop_requested())
        heard_(signal);
}

} // namespace device
