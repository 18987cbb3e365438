#pragma once

#include "platform/system/date_order.h"

#include <optional>
#include <string>

namespace device {
/// The pieces of a date pattern as `d.MM.yy 'г.'`. Eras are left out. Nothing for a pattern that does not have day,
/// month and year once each, in numbers.
std::optional<std::vector<ShortDatePart>> PartsOfPattern(const std::wstring& pattern);
} // namespace device
