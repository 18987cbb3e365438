#pragma once

#include <optional>
#include <string>

namespace device {
/// What a host does before anything else, so that whatever the process was given makes no difference later on: the
/// three standard descriptors are open, a pipe without a reader and a file at its limit are errors of the write and no
/// signals, and there is room for the descriptors that the device needs. One line on what is missing where the program
/// cannot start.
std::optional<std::string> PrepareProcess();
} // namespace device
