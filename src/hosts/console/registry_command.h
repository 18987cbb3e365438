#pragma once

#include <string>
#include <vector>

namespace device {

/// The answer to `registry` and its forms `set` and `delete`, on the program's key.
std::vector<std::string> RegistryCommand(const std::wstring& key, const std::string& arguments);

} // namespace device
