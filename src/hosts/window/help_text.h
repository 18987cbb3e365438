#pragma once

namespace device {

/// What `--help` prints: the keys, and where the rest is told. Ends with a line end.
const char* HelpText();

} // namespace device
