#pragma once

#include "platform/types.h"

#include <chrono>
#include <optional>
#include <string_view>

namespace device {
using UtcTime = std::chrono::sys_time<std::chrono::milliseconds>;

/// `2026-03-01T10:00:00Z`, with up to three digits of a fraction if there is one; years 1601 to 9999.
std::optional<UtcTime> ParseUtcTime(std::string_view text);

/// The device's clock: the host's, until it was stopped at a time.
UtcTime UtcNow();
/// From now on the clock stands still at `time`.
void StopClock(UtcTime time);

/// The calendar's names for a moment, its day of the week with them.
SYSTEMTIME CalendarTime(UtcTime time);
/// The same moment in the zone that TZ names.
SYSTEMTIME LocalCalendarTime(UtcTime time);
} // namespace device
