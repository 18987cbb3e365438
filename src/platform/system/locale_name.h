#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace device {
/// The name that the locale library knows, from one as `de_DE`, `en-GB`, `sr_RS.UTF-8@latin` or `C`. Nothing for a text
/// that is no such name; whether there is such a locale is not looked at.
std::optional<std::string> LocaleName(std::string_view name);
} // namespace device
