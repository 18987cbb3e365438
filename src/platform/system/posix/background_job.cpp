#include "platform/daily_copy.h"
#include "platform/system/posix/blocked_signals.h"

#include <system_error>
#include <thread>

namespace device {

struct BackgroundJob::Thread {
    explicit Thread(std::function<void()> job)
        : thread(std::move(job)) { }

    std::jthread thread;
};

BackgroundJob::BackgroundJob(std::function<void()> job) {
    const BlockedSignals blocked;
    try {
        thread_ = std::make_unique<Thread>(std::move(job));
    } catch (const std::system_error&) {
        thread_ = nullptr;
    }
}

BackgroundJob::~BackgroundJob() = default;

} // namespace device
