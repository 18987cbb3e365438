#pragma once

#include <string>

namespace device {

/// On one line whatever is in it: line ends and other control characters are blanks. In UTF-8.
std::string OneLine(std::wstring text);
/// On one line, in double quotes, with \" \\ \n and \t for those characters.
std::string Quoted(const std::wstring& text);
/// The text between double quotes that fills `text`; false when it is no such thing.
bool Unquote(const std::string& text, std::wstring& result);

} // namespace device
