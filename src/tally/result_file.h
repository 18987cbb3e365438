#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tally {

/// Makes a file of these bytes, or replaces one, whole or not at all. `isSound` looks at it before it gets its name.
/// Throws a Failure: EX_CANTCREAT where nothing may be written there, else EX_IOERR.
void WriteFile(
    const std::string& path, std::string_view bytes, const std::function<bool(const std::string& path)>& isSound = {});

} // namespace tally
