#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Values as texts that mean the same everywhere, whatever the locale, and come back as the same bits.
namespace exchange {

/// The shortest decimal number that is this float, with a point.
std::string PlainNumber(float value);
/// "2026-03-01", or "2026-03-01 18:05:00" where there is a time of day; a bare number for an OLE date that is none of a
/// calendar's whole seconds.
std::string PlainDate(double date);
/// Reads a calendar's date as PlainDate writes it, the seconds left out if need be. Nothing for a day that no calendar
/// has.
std::optional<double> ReadPlainDate(std::string_view text);

/// Whether a date field can hold an OLE date: the years 1601 to 9999.
bool CanBeShown(double date);

/// A cell of a CSV file, quoted where it must be. A spreadsheet does not take it for a formula: such a text, and one
/// that begins with an apostrophe, gets an apostrophe in front.
std::string CsvText(const std::string& text);
/// Without the apostrophe that CsvText put there.
std::string FromCsvText(const std::string& cell);

} // namespace exchange
