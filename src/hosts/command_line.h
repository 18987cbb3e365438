#pragma once

#include "platform/resources.h"

namespace device {

/// Answers --help, -h and --version on standard output and refuses all other arguments in one line: the process ends
/// then, with 0 or with EX_USAGE (64). Comes back where there are none.
void ObeyCommandLine(int count, char** arguments, const char* help, const VersionResource& version);

extern const char* const OdoledgerHelp;
extern const char* const ConsoleHelp;

} // namespace device
