#pragma once

#include "platform/system/host_file.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace device {
// Packets between processes of one user, over sockets in the runtime folder.

inline constexpr std::size_t LargestPacket = 512;

/// A socket at `path` that listens, private to the user. One that was left behind there by a dead process is replaced;
/// not open when somebody answers at it.
FileDescriptor ListenAt(const std::string& path);
/// The next waiting client that is a process of the same user; not open when there is none.
FileDescriptor AcceptClient(const FileDescriptor& listener);
/// Whether somebody listens at `path`, be it a process that has no time for it. Never waits.
bool IsListenedAt(const std::string& path);
/// Not open when nobody listens at `path`.
FileDescriptor ConnectTo(const std::string& path, std::chrono::milliseconds patience);

bool SendPacket(const FileDescriptor& socket, std::string_view packet);
/// Nothing when the peer has hung up, is silent for too long, or sent more than a packet may hold.
std::optional<std::string> ReceivePacket(const FileDescriptor& socket);
} // namespace device
