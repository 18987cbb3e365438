#pragma once

#include "platform/system/registry_file.h"

#include <string>
#include <vector>

namespace device {
// The registry as whoever looks after the device sees it, past the program. Keys are paths below the current user.

/// The values of a key by name; none of a key that is not there.
std::vector<NamedRegistryValue> ListRegistryValues(const std::wstring& key);
/// Both are on the disk when they return 0. A value that is not there cannot be deleted (ERROR_FILE_NOT_FOUND).
LONG SetRegistryValue(const std::wstring& key, const std::wstring& name, const RegistryValue& value);
LONG DeleteRegistryValue(const std::wstring& key, const std::wstring& name);
} // namespace device
