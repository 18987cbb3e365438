#pragma once

#include "platform/system/registry_file.h"

#include <optional>
#include <string>

namespace device {
// How the registry's names and values are written in its file.

/// A name for a key file, of a group or of a value; made up of harmless characters. `alsoAllowed` says which others
/// than letters, digits, '-', '_' and '.' may stand as they are.
std::string EscapedName(const std::wstring& name, const char* alsoAllowed);
std::wstring NameFromEscaped(const std::string& escaped);

/// `dword:5`, `sz:text`, `expand:text`, `hex:00,ff`. Nothing for a type that is none of these.
std::optional<std::string> ValueText(const RegistryValue& value);
/// Nothing for a text that no value is written as.
std::optional<RegistryValue> ValueFromText(const std::string& text);
} // namespace device
