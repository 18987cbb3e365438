#pragma once

#include <string>
#include <string_view>

namespace device {
/// Code points that UTF-8 cannot hold (surrogates, beyond U+10FFFF) become U+FFFD. A NUL is text like any other.
std::string ToUtf8(std::wstring_view text);
/// Bytes that are no UTF-8 become U+FFFD each; what follows a broken sequence is not lost.
std::wstring FromUtf8(std::string_view bytes);
/// The same, into a text whose room is used again.
void FromUtf8(std::string_view bytes, std::wstring* text);
} // namespace device
