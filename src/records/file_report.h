#pragma once

#include <string>
#include <vector>

/// Looks at everything that can be wrong with a data file, also at what opening it would mend without a word, and at
/// records that no screen could have made. A line of words for each fault, none for a sound file. Neither the file nor
/// what lies beside it is changed.
std::vector<std::string> FaultsOfFile(const std::string& path);
