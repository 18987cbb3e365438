#pragma once

#include "exchange/reading.h"

#include <string>
#include <string_view>

namespace exchange {

/// The keys that ReadingOptions::format may have.
std::vector<std::string> FormatKeys();

/// Reads the contents of a file, told apart by themselves alone. What is wrong in it are the faults of the batch. With
/// open questions the batch is a guess, good for nothing but its faults.
FileFacts ReadFile(std::string bytes, const ReadingOptions& options, Batch* batch);

} // namespace exchange
