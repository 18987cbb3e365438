#include "exchange/csv_rows.h"
#include "exchange/own_files.h"
#include "exchange/own_rows.h"
#include "exchange/plain_text.h"

#include <algorithm>

namespace exchange {
namespace {

// Without it spreadsheets take the file for one in the code page of their system.
constexpr const char* ByteOrderMark = "\xEF\xBB\xBF";

bool IsDistance(Column column) {
    return column == Column::Odometer || column == Column::Start || column == Column::End;
}

std::string UnitOf(const Batch& batch, Column column) {
    if (IsDistance(column))
        return NameOf(batch.distance);
    return column == Column::Volume ? NameOf(batch.volume) : "";
}

/// A title as "odometer (km)" in its two parts.
void SplitTitle(const std::string& title, std::string* name, std::string* unit) {
    const std::size_t place = title.find(" (");
    *name = title.substr(0, place);
    if (place != std::string::npos && title.back() == ')')
        *unit = title.substr(place + 2, title.size() - place - 3);
}

/// Where each column stands in a file, from 0; -1 where it does not.
using Places = std::array<int, ColumnCount>;

Places ReadTitles(const CsvRow& titles, Batch* batch) {
    Places places;
    places.fill(-1);
    for (std::size_t cell = 0; cell < titles.cells.size(); ++cell) {
        std::string name;
        std::string unit;
        SplitTitle(titles.cells[cell], &name, &unit);
        for (std::size_t column = 0; column < ColumnCount; ++column)
            if (name == NameOf(static_cast<Column>(column)))
                places[column] = static_cast<int>(cell);
        if (name == NameOf(Column::Odometer) && !unit.empty())
            batch->distance = DistanceNamed(unit);
        if (name == NameOf(Column::Volume) && !unit.empty())
            batch->volume = VolumeNamed(unit);
    }
    return places;
}

bool HasCell(const CsvRow& row, int place) {
    return place >= 0 && static_cast<std::size_t>(place) < row.cells.size();
}

} // namespace

std::string WriteOwnCsv(const Batch& batch) {
    std::string text = ByteOrderMark;
    for (std::size_t column = 0; column < ColumnCount; ++column) {
        const std::string unit = UnitOf(batch, static_cast<Column>(column));
        text += (column == 0 ? "" : ",") + std::string(NameOf(static_cast<Column>(column)));
        text += unit.empty() ? "" : " (" + unit + ')';
    }
    text += '\n';
    WriteRows(batch, [&](const OwnRow& row) {
        for (std::size_t place = 0; place < ColumnCount; ++place) {
            const auto column = static_cast<Column>(place);
            text += place == 0 ? "" : ",";
            // A number may well begin with a minus.
            text += IsNumber(column) ? row[column] : CsvText(row[column]);
        }
        text += '\n';
    });
    return text;
}

bool IsOwnCsv(std::string_view text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    const CsvRows titles = ReadCsvRows(line, SeparatorOf(line));
    if (titles.rows.empty())
        return false;
    Batch ignored;
    const Places places = ReadTitles(titles.rows.front(), &ignored);
    const auto has = [&](Column column) { return places[static_cast<std::size_t>(column)] >= 0; };
    return has(Column::Record) && has(Column::Date) && has(Column::Odometer) && has(Column::Marks);
}

void ReadOwnCsv(std::string_view text, Batch* batch) {
    const CsvRows file = ReadCsvRows(text, SeparatorOf(text));
    const Places places = ReadTitles(file.rows.front(), batch);
    const auto cellOf = [&](Column column) { return places[static_cast<std::size_t>(column)] + 1; };
    OwnRowReader reader(batch);
    for (std::size_t index = 1; index < file.rows.size(); ++index) {
        const CsvRow& row = file.rows[index];
        if (file.endsInQuotes && index + 1 == file.rows.size()) {
            batch->faults.push_back({row.line, static_cast<int>(row.cells.size()), "the quotes are never closed"});
            break;
        }
        OwnRow own;
        for (std::size_t place = 0; place < ColumnCount; ++place)
            if (HasCell(row, places[place]))
                own[static_cast<Column>(place)] = FromCsvText(row.cells[static_cast<std::size_t>(places[place])]);
        if (row.cells.size() < file.rows.front().cells.size())
            batch->faults.push_back({row.line, 0, "the row has too few cells"});
        else
            reader.Read(own, row.line, cellOf);
    }
}

} // namespace exchange
