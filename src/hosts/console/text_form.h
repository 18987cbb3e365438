#pragma once

#include <string>

namespace device {

/// In double quotes, with \" \\ \n and \t for those characters, in UTF-8.
std::string Quoted(const std::wstring& text);
/// The text between double quotes that fills `text`; false when it is no such thing.
bool Unquote(const std::string& text, std::wstring& result);

} // namespace device
