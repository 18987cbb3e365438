#pragma once

#include <functional>

namespace tally {

/// Runs `work` in one transaction on the open log. Its changes stay where it gives true. What it throws gets through,
/// and a failure of the log is a Failure; either leaves the log as it was.
void Transact(const std::function<bool()>& work);

/// Throws a Failure with what theDataLayer knows of it where `succeeded` is 0.
void RequireStored(int succeeded);

} // namespace tally
