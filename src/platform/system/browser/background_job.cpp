#include "platform/daily_copy.h"

namespace device {

struct BackgroundJob::Thread { };

/// There are no threads, and in line with the program's start the job would hold up the first screen. What is done
/// beside the program is the copy of the day: it would lie in the same storage as the log and go with it, so that it is
/// no loss. A copy that helps is the one that the user takes out of the browser.
BackgroundJob::BackgroundJob(std::function<void()> /*job*/) { // NOLINT(performance-unnecessary-value-param)
}

BackgroundJob::~BackgroundJob() = default;

} // namespace device
