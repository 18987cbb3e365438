#pragma once

#include <string>
#include <string_view>

/// Both replace the contents of `result`, whose room is used again. A surrogate, a number beyond Unicode and every
/// byte that belongs to no character become U+FFFD; so does a NUL within a stored text, which would end it.
void EncodeUtf8(std::wstring_view text, std::string* result);
void DecodeUtf8(std::string_view text, std::wstring* result);
