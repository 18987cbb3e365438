#pragma once

#include "platform/system/host_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace device {
/// The user's private folders for what the processes of one storage place share: below XDG_RUNTIME_DIR and below the
/// temporary folder, made if they are missing, and in the storage place, as far as nobody else can write them. What a
/// process shares it puts into all of them, since one of other surroundings may see some of them only. Where there is
/// none the end of the process tells why.
std::vector<std::string> RuntimeFolders();

/// A file name of sixteen characters that stands for any text.
std::string ShortNameOf(std::string_view text);

/// As HoldFolder; it is waited for half a second.
LONG HoldRuntimeFolder(const std::string& folder, FileDescriptor& held);
} // namespace device
