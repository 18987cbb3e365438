#pragma once

#include "platform/system/host_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace device {
/// The user's private folders for what the processes of one storage place share. The first one is this process's own,
/// made if it is missing: below XDG_RUNTIME_DIR, below the temporary folder, or else in the storage place, whichever is
/// the first that nobody else can write. The others are where processes of other surroundings may be. Where there is
/// none the end of the process tells why.
std::vector<std::string> RuntimeFolders();

/// A file name of sixteen characters that stands for any text.
std::string ShortNameOf(std::string_view text);

/// As HoldFolder; it is waited for half a second.
LONG HoldRuntimeFolder(const std::string& folder, FileDescriptor& held);
} // namespace device
