#pragma once

#include "exchange/batch.h"

#include <string>
#include <string_view>

/// Files in our own form: all that a log holds, and the units that its numbers are in.
namespace exchange {

std::string WriteOwnCsv(const Batch& batch);
std::string WriteOwnJson(const Batch& batch);

/// By the contents alone.
bool IsOwnCsv(std::string_view text);
bool IsOwnJson(std::string_view text);
void ReadOwnCsv(std::string_view text, Batch* batch);
void ReadOwnJson(std::string_view text, Batch* batch);

} // namespace exchange
