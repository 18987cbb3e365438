#include "exchange/csv_table.h"

#include "exchange/written_values.h"

#include <algorithm>
#include <iterator>

namespace exchange {
namespace {

std::string TitleOf(const std::string& cell) {
    std::string title = LowerCase(Trimmed(cell));
    const auto isSecondBlank = [](char left, char right) { return left == ' ' && right == ' '; };
    title.erase(std::unique(title.begin(), title.end(), isSecondBlank), title.end());
    return title;
}

} // namespace

Table::Table(std::string name, const CsvRow& titles)
    : name_(std::move(name)) {
    for (const std::string& cell : titles.cells) {
        titlesAsWritten_.push_back(Trimmed(cell));
        titles_.push_back(TitleOf(cell));
    }
    // What a spreadsheet leaves behind the last column.
    while (!titles_.empty() && titles_.back().empty())
        titles_.pop_back();
    titlesAsWritten_.resize(titles_.size());
}

int Table::Find(std::initializer_list<const char*> titles) const {
    for (const char* title : titles)
        for (std::size_t column = 0; column < titles_.size(); ++column)
            if (titles_[column] == title)
                return static_cast<int>(column);
    return -1;
}

int Table::FindBeginning(const std::string& beginning) const {
    for (std::size_t column = 0; column < titles_.size(); ++column)
        if (titles_[column].rfind(beginning, 0) == 0)
            return static_cast<int>(column);
    return -1;
}

std::string UnitInTitle(const Table& table, int column) {
    const auto place = static_cast<std::size_t>(column);
    const std::string title = place < table.Titles().size() ? table.Titles()[place] : "";
    const std::size_t begin = title.find_first_of("(/");
    std::string unit = begin == std::string::npos ? "" : Trimmed(title.substr(begin + 1));
    if (!unit.empty() && unit.back() == ')')
        unit.pop_back();
    return unit;
}

Cell CellOf(const CsvRow& row, int column) {
    if (column < 0)
        return {};
    const auto place = static_cast<std::size_t>(column);
    return place < row.cells.size() ? Cell{Trimmed(row.cells[place]), column + 1} : Cell{"", 0};
}

std::string TextOf(const CsvRow& row, int column) {
    return CellOf(row, column).text;
}

Table TableOf(std::vector<CsvRow> rows) {
    if (rows.empty())
        return Table("", {});
    Table table("", rows.front());
    table.Rows().assign(std::make_move_iterator(rows.begin() + 1), std::make_move_iterator(rows.end()));
    return table;
}

std::vector<Table> TablesOf(std::vector<CsvRow> rows, const std::function<std::string(const CsvRow& row)>& nameOf) {
    std::vector<Table> tables;
    std::string name;
    bool isInTable = false;
    for (CsvRow& row : rows) {
        const std::string next = nameOf(row);
        if (!next.empty()) {
            name = next;
            isInTable = false;
        } else if (!isInTable && !name.empty()) {
            tables.emplace_back(name, row);
            isInTable = true;
        } else if (isInTable) {
            tables.back().Rows().push_back(std::move(row));
        }
    }
    return tables;
}

std::string NameBehindHash(const CsvRow& row) {
    const std::string first = LowerCase(TextOf(row, 0));
    const bool isAlone
        = std::all_of(row.cells.begin() + 1, row.cells.end(), [](const std::string& cell) { return cell.empty(); });
    const std::size_t begin = first.find_first_not_of("# ");
    return isAlone && !first.empty() && first.front() == '#' && begin != std::string::npos ? first.substr(begin) : "";
}

} // namespace exchange
