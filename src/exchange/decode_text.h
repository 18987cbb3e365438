#pragma once

#include <string>
#include <string_view>

namespace exchange {

enum class Encoding { Utf8, Windows1252, Windows1250 };

const char* NameOf(Encoding encoding);

/// Without a byte order mark, as UTF-8. Bytes that are not are taken for Windows-1252, those of a Polish file for
/// Windows-1250; `encoding` tells which.
std::string DecodeText(std::string bytes, Encoding* encoding);

} // namespace exchange
