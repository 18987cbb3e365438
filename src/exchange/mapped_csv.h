#pragma once

#include "exchange/drafts.h"

namespace exchange {

/// Any table whose columns a person has named. What they ask that cannot be is a question of the facts.
void ReadMappedCsv(std::vector<CsvRow> rows, const ReadingOptions& options, Drafts* drafts);

/// "date=Day,odometer=Km" as titles by field, which is quoted as a row of CSV where need be. Nothing, and why, for what
/// cannot be understood.
std::optional<std::map<std::string, std::string>> ReadMapping(const std::string& text, std::string* reason);

} // namespace exchange
