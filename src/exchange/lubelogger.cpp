#include "exchange/formats.h"
#include "exchange/written_values.h"

namespace exchange {
namespace {

bool IsFuel(const Table& table) {
    return table.Has("isfilltofull") || table.Has("fuelconsumed");
}

bool IsReadings(const Table& table) {
    return table.Has("initialodometer");
}

/// Services, repairs and upgrades with readings, taxes without.
bool IsWork(const Table& table) {
    return table.Has("date") && table.Has("description") && table.Has("cost") && table.Has("notes") && table.Has("tags")
        && !table.Has("partnumber");
}

void ReadFuel(Table table, Drafts* drafts) {
    drafts->Facts().variant = "fuel";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        EntryDraft draft;
        draft.type = CEntry::EntryTypeFuel;
        draft.line = row.line;
        draft.date = cell("date");
        draft.odometer = cell("odometer");
        draft.volume = cell("fuelconsumed");
        draft.total = cell("cost");
        draft.isPartial = LowerCase(text("isfilltofull")) == "false";
        draft.isMissed = LowerCase(text("missedfuelup")) == "true";
        draft.notes = text("notes");
        Append(&draft.notes, text("tags"));
        drafts->entries.push_back(std::move(draft));
    });
}

void ReadWork(Table table, Drafts* drafts) {
    const bool isTax = !table.Has("odometer");
    drafts->Facts().variant = isTax ? "taxes" : "services, repairs or upgrades";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        EntryDraft draft;
        draft.type = isTax ? CEntry::EntryTypeExpense : CEntry::EntryTypeRepair;
        draft.line = row.line;
        draft.date = cell("date");
        draft.odometer = cell("odometer");
        draft.total = cell("cost");
        draft.name = text("description");
        draft.notes = text("notes");
        Append(&draft.notes, text("tags"));
        drafts->entries.push_back(std::move(draft));
    });
}

} // namespace

bool IsLubeLogger(const Beginning& file) {
    return IsFuel(file.titles) || IsReadings(file.titles) || IsWork(file.titles);
}

void ReadLubeLogger(std::vector<CsvRow> rows, Drafts* drafts) {
    Table table = TableOf(std::move(rows));
    drafts->dateHabit = "that of the server's language";
    if (IsFuel(table)) {
        ReadFuel(std::move(table), drafts);
    } else if (IsReadings(table)) {
        drafts->Facts().variant = "odometer readings";
        drafts->ForEachRow(table,
            [&](const CsvRow& row) { drafts->Notice("a reading alone is no entry; it was left out", row.line); });
    } else {
        ReadWork(std::move(table), drafts);
    }
}

} // namespace exchange
