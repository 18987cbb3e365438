#include "exchange/mapped_csv.h"

#include "exchange/written_values.h"

#include <algorithm>

namespace exchange {
namespace {

constexpr const char* Fields[]
    = {"date", "odometer", "volume", "price", "total", "kind", "name", "vendor", "notes", "vehicle"};

std::optional<CEntry::Type> KindOf(const std::string& written) {
    const std::string word = LowerCase(written);
    const auto isOneOf = [&](std::initializer_list<const char*> words) {
        return std::find(words.begin(), words.end(), word) != words.end();
    };
    if (isOneOf({"fuel", "fill", "fill-up", "fillup", "gas"}))
        return CEntry::EntryTypeFuel;
    if (isOneOf({"repair", "service", "maintenance", "upgrade"}))
        return CEntry::EntryTypeRepair;
    if (word == "trip")
        return CEntry::EntryTypeTrip;
    return isOneOf({"expense", "cost", "other"}) ? std::optional{CEntry::EntryTypeExpense} : std::nullopt;
}

} // namespace

void ReadMappedCsv(std::vector<CsvRow> rows, const ReadingOptions& options, Drafts* drafts) {
    Table table = TableOf(std::move(rows));
    std::map<std::string, int> columns;
    for (const char* field : Fields)
        columns[field] = -1;
    for (const auto& [field, title] : options.columns) {
        const Table wanted("", {1, {title}});
        columns[field] = wanted.Titles().empty() ? -1 : table.Find({wanted.Titles().front().c_str()});
        if (columns[field] < 0)
            drafts->Facts().questions.push_back(
                std::string("there is no column \"").append(title).append("\" for --map ").append(field));
    }
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        EntryDraft draft;
        draft.type = columns["volume"] >= 0 ? CEntry::EntryTypeFuel : CEntry::EntryTypeExpense;
        const Cell kind = CellOf(row, columns["kind"]);
        if (kind.place >= 0) {
            const std::optional<CEntry::Type> type = KindOf(kind.text);
            if (!type)
                return drafts->Fault(
                    row.line, kind.place, '"' + kind.text + "\" is no kind (fuel, repair, trip, expense)");
            draft.type = *type;
        }
        draft.line = row.line;
        draft.vehicle = TextOf(row, columns["vehicle"]);
        draft.date = CellOf(row, columns["date"]);
        draft.odometer = CellOf(row, columns["odometer"]);
        draft.isZeroReading = true;
        if (draft.type == CEntry::EntryTypeFuel) {
            draft.volume = CellOf(row, columns["volume"]);
            draft.price = CellOf(row, columns["price"]);
        }
        draft.total = CellOf(row, columns["total"]);
        draft.name = draft.type == CEntry::EntryTypeFuel ? "" : TextOf(row, columns["name"]);
        draft.vendor = TextOf(row, columns["vendor"]);
        draft.notes = TextOf(row, columns["notes"]);
        drafts->entries.push_back(std::move(draft));
    });
}

std::optional<std::map<std::string, std::string>> ReadMapping(const std::string& text, std::string* reason) {
    std::map<std::string, std::string> columns;
    for (const CsvRow& row : ReadCsvRows(text, ',').rows)
        for (const std::string& part : row.cells) {
            const std::size_t place = part.find('=');
            const std::string field = LowerCase(Trimmed(part.substr(0, place)));
            const bool isField
                = std::any_of(std::begin(Fields), std::end(Fields), [&](const char* known) { return field == known; });
            if (place == std::string::npos || !isField) {
                *reason = '"' + part
                    + "\" is no FIELD=TITLE; fields are date, odometer, volume, price, total, kind, "
                      "name, vendor, notes and vehicle";
                return std::nullopt;
            }
            columns[field] = Trimmed(part.substr(place + 1));
        }
    if (columns.count("date") == 0) {
        *reason = "the column of the date must be among them";
        return std::nullopt;
    }
    return columns;
}

} // namespace exchange
