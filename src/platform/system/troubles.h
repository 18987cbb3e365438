#pragma once

#include <string>

namespace device {
/// What goes wrong behind the program's back: no screen tells of it.
enum class Trouble { Locks, Settings, Disk, Copies, Documents, File };

/// Has a line told on standard error when the process ends, after everything else: until then the terminal may be the
/// program's screen. The last one of each kind counts, and none where `line` is empty. From any thread.
void NoteTrouble(Trouble kind, const std::string& line);
/// Tells the lines now; each is told once.
void TellTroubles();
} // namespace device
