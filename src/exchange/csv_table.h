#pragma once

#include "exchange/csv_rows.h"

#include <functional>
#include <initializer_list>

/// Tables within a CSV file: a row of titles, and rows below it.
namespace exchange {

/// What stands in a cell, trimmed, and which one it is in its row, from 1; 0 where the row ends before it.
struct Cell {
    std::string text;
    int place = -1; ///< -1: there is no such column
};

class Table {
public:
    Table(std::string name, const CsvRow& titles);

    /// Of a section of a file, in lower case; else empty.
    const std::string& Name() const { return name_; }
    /// In lower case, with single blanks.
    const std::vector<std::string>& Titles() const { return titles_; }
    const std::vector<std::string>& TitlesAsWritten() const { return titlesAsWritten_; }
    std::vector<CsvRow>& Rows() { return rows_; }
    const std::vector<CsvRow>& Rows() const { return rows_; }

    /// The place of the column with one of these titles, the first one before the next, from 0; -1 where there is none.
    int Find(std::initializer_list<const char*> titles) const;
    /// Of the first one that begins so.
    int FindBeginning(const std::string& beginning) const;
    bool Has(const char* title) const { return Find({title}) >= 0; }

private:
    std::string name_;
    std::vector<std::string> titlesAsWritten_;
    std::vector<std::string> titles_;
    std::vector<CsvRow> rows_;
};

/// What stands in the brackets of "Odometer (km)" or behind the bar of "Price / L"; empty where nothing does.
std::string UnitInTitle(const Table& table, int column);

Cell CellOf(const CsvRow& row, int column);
/// Empty where there is no such cell.
std::string TextOf(const CsvRow& row, int column);

/// All rows, the first of which has the titles.
Table TableOf(std::vector<CsvRow> rows);
/// The rows behind each row for which `nameOf` gives the name of a section; the first of them has the titles. Rows
/// before the first such one are not of any table.
std::vector<Table> TablesOf(std::vector<CsvRow> rows, const std::function<std::string(const CsvRow& row)>& nameOf);
/// The name of a section that a row such as "## Log" begins; else empty.
std::string NameBehindHash(const CsvRow& row);

} // namespace exchange
