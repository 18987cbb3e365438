#pragma once

#include "platform/types.h"
#include "tally/request.h"

#include <string>
#include <variant>
#include <vector>

namespace tally {

/// What a cell of a table holds for other programs: nothing, a text, or a number.
using Value = std::variant<std::monostate, std::string, LONGLONG, double>;

struct Cell {
    std::wstring shown; ///< for a person
    Value value;
};
Cell TextCell(const std::wstring& text);
/// `value` is to be written with as few digits as a float needs.
Cell NumberCell(const std::wstring& shown, float value);
Cell WholeCell(const std::wstring& shown, LONGLONG value);

/// A result: for a person in columns, as CSV, or as JSON.
class Table {
public:
    /// Who sees a column: there may be one text for people in the place of several values.
    enum class For { All, People, Programs };
    struct Column {
        std::string key; ///< in JSON and in the header of a CSV file
        std::wstring title; ///< for a person
        bool isNumber = false; ///< which stands on the right
        For whom = For::All;
    };

    explicit Table(std::vector<Column> columns)
        : columns_(std::move(columns)) { }

    /// A cell for each column.
    void Add(std::vector<Cell> row);
    bool IsEmpty() const { return rows_.empty(); }
    /// The rows and columns that are for people, as an HTML table.
    std::string Html() const;
    std::string Write(Format format, bool hasColours) const;

private:
    std::string WriteText(bool hasColours) const;
    std::string WriteCsv() const;
    std::string WriteJson() const;

    std::vector<Column> columns_;
    std::vector<std::vector<Cell>> rows_;
};

/// To the file that the request names, or to standard output. Throws a Failure.
void Deliver(const std::string& result, const Request& request, Surroundings& surroundings);

} // namespace tally
