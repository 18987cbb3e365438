#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace exchange {

struct CsvRow {
    int line = 1; ///< in which it begins
    std::vector<std::string> cells;
};

struct CsvRows {
    std::vector<CsvRow> rows; ///< those that are not empty
    bool endsInQuotes = false; ///< the last cell was never closed
};

/// The rows of a text, however loosely it was written: lines end in LF, CRLF or CR, cells in quotes hold line ends,
/// doubled quotes and the separator, and what stands behind a closing quote belongs to its cell.
CsvRows ReadCsvRows(std::string_view text, char separator);

/// The comma, semicolon or tab that stands most often outside quotes in the first line that has any of them (those
/// before it are marks of sections); a comma where none does.
char SeparatorOf(std::string_view text);

} // namespace exchange
