#pragma once

#include "hosts/terminal/terminal_key.h"

#include <optional>
#include <string_view>

namespace device {

/// The key of a whole escape sequence in the forms that terminals have in common, whatever their type is called: those
/// of one key with and without modifiers, of a character with modifiers, and of the pointer. Nothing for any other.
std::optional<TerminalKey> KeyOfSequence(std::string_view sequence);

} // namespace device
