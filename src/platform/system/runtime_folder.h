#pragma once

#include "platform/system/host_file.h"

#include <optional>
#include <string>
#include <string_view>

namespace device {
/// The user's private folder for what the processes of one storage place share, made if it is missing. Nothing when
/// there is no such folder that nobody else can write.
std::optional<std::string> RuntimeFolder();

/// A file name of sixteen characters that stands for any text.
std::string ShortNameOf(std::string_view text);

/// Open for as long as this process alone, of all that share the folder, may change what lies there. It is waited for
/// half a second; then nothing is held.
std::optional<FileDescriptor> HoldRuntimeFolder(const std::string& folder);
} // namespace device
