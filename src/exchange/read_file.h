#pragma once

#include "exchange/batch.h"

#include <string>
#include <string_view>

namespace exchange {

struct FileFacts {
    std::string format; ///< in words; empty where it is none that we know
    bool isUtf8 = true; ///< else the text was taken for Windows-1252
};

/// Reads the contents of a file, told apart by themselves alone. What is wrong in it are the faults of the batch.
FileFacts ReadFile(std::string_view bytes, Batch* batch);

} // namespace exchange
