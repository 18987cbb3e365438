#include "exchange/formats.h"
#include "exchange/plain_text.h"
#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace exchange {
namespace {

bool IsLog(const Table& table) {
    return table.Has("record type") && table.Has("vehicle id") && (table.Has("qty") || table.Has("partial tank"));
}

bool IsTrips(const Table& table) {
    return table.Has("departure odo");
}

bool IsServices(const Table& table) {
    return table.Has("service name") && table.Has("due miles") && table.Has("due days");
}

bool IsVehicles(const Table& table) {
    return table.Has("lic#") && table.Has("vehicle id");
}

double NumberOf(const std::string& text) {
    return std::strtod(text.c_str(), nullptr);
}

bool IsTrue(const std::string& text) {
    return text == "1";
}

/// What three columns and a time give as "2024-3-30 18:05"; its place is the day's.
Cell DateOf(const CsvRow& row, const Table& table, const std::string& prefix, int monthShift) {
    const auto cell = [&](const std::string& title) { return CellOf(row, table.Find({(prefix + title).c_str()})); };
    Cell date = cell("day");
    const std::string month = cell("month").text;
    const std::string shifted = monthShift == 0 ? month : std::to_string(std::atoi(month.c_str()) + monthShift);
    date.text = cell("year").text + '-' + shifted + '-' + date.text;
    const std::string minute = cell("min").text;
    if (!cell("hour").text.empty())
        date.text += ' ' + cell("hour").text + ':' + (minute.size() < 2 ? "0" : "") + minute;
    return date;
}

/// One version counts months from 0.
int MonthShiftOf(const Table& table, const char* title, Drafts* drafts) {
    const int month = table.Find({title});
    for (const CsvRow& row : table.Rows())
        if (TextOf(row, month) == "0") {
            drafts->Facts().assumed.emplace_back("months are counted from 0");
            return 1;
        }
    return 0;
}

/// The writer of one version quotes nothing: what is beyond the last column belongs to it.
void FoldSurplus(Table* table) {
    const std::size_t width = table->Titles().size();
    for (CsvRow& row : table->Rows()) {
        for (std::size_t cell = width; cell < row.cells.size(); ++cell)
            row.cells[width - 1] += row.cells[cell].empty() ? "" : ',' + row.cells[cell];
        if (row.cells.size() > width)
            row.cells.resize(width);
    }
}

void ReadLog(Table table, Drafts* drafts) {
    drafts->Facts().variant = "fuel log";
    FoldSurplus(&table);
    const int shift = MonthShiftOf(table, "month", drafts);
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        const Cell kind = cell("record type");
        const bool isFuel = kind.text == "0";
        const bool isKnown = kind.text.size() == 1 && kind.text >= "0" && kind.text <= "4";
        if (kind.place == 0)
            return drafts->Fault(row.line, 0, "the row has too few cells");
        if (!isKnown)
            return drafts->Fault(row.line, kind.place, '"' + kind.text + "\" is no kind of record");
        if (kind.text >= "3" && NumberOf(text("total cost")) == 0)
            return drafts->Notice(
                kind.text == "3" ? "a trip of the log was left out" : "a reading alone is no entry; it was left out",
                row.line);
        EntryDraft draft;
        draft.line = row.line;
        draft.vehicle = text("vehicle id");
        draft.date = DateOf(row, table, "", shift);
        draft.odometer = cell("odometer");
        draft.total = cell("total cost");
        draft.vendor = text("filling station").empty() ? text("fuel brand") : text("filling station");
        draft.notes = text("notes");
        if (isFuel) {
            draft.type = CEntry::EntryTypeFuel;
            draft.volume = cell("qty");
            draft.isPartial = IsTrue(text("partial tank"));
            draft.isMissed = IsTrue(TextOf(row, table.Find({"missed fill up", "missed previous fill up"})));
        } else {
            draft.type = kind.text == "1" ? CEntry::EntryTypeRepair : CEntry::EntryTypeExpense;
            draft.name = text("record desc");
        }
        drafts->entries.push_back(std::move(draft));
    });
}

void ReadTrips(Table table, Drafts* drafts) {
    drafts->Facts().variant = "trips";
    const int shift = MonthShiftOf(table, "departure month", drafts);
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        if (cell("arrival odo").place != 0 && NumberOf(text("arrival odo")) == 0)
            return drafts->Notice("a trip that has not ended was left out", row.line);
        EntryDraft draft;
        draft.type = CEntry::EntryTypeTrip;
        draft.line = row.line;
        draft.vehicle = text("vehicle id");
        draft.date = DateOf(row, table, "departure ", shift);
        draft.start = cell("departure odo");
        draft.odometer = cell("arrival odo");
        draft.total = cell("parking");
        draft.further = cell("toll");
        const bool hasBoth = !text("departure loc").empty() && !text("arrival loc").empty();
        draft.name = text("departure loc") + (hasBoth ? " - " : "") + text("arrival loc");
        draft.vendor = text("trip type");
        draft.notes = text("notes");
        drafts->entries.push_back(std::move(draft));
    });
}

/// When something that recurs is due next: so long after the last time.
void ReadServices(Table table, Drafts* drafts) {
    drafts->Facts().variant = "services";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        const double days = NumberOf(text("due days"));
        const double last = NumberOf(text("last date"));
        ReminderDraft draft;
        draft.line = row.line;
        draft.name = text("service name");
        if (NumberOf(text("due miles")) > 0) {
            draft.odometer = cell("last odo");
            if (draft.odometer.text.empty())
                draft.odometer.text = "0";
            draft.interval = cell("due miles");
            Append(&draft.notes, "every " + text("due miles"));
        }
        if (days > 0) {
            constexpr double MillisecondsOfDay = 86'400'000;
            constexpr double Epoch = 25569; // 1 January 1970
            draft.date = cell("last date");
            draft.date.text.clear();
            if (last > 0)
                draft.date.text = PlainDate(std::floor(Epoch + last / MillisecondsOfDay + days));
            Append(&draft.notes, "every " + text("due days") + " days");
        }
        if (draft.odometer.text.empty() && draft.date.text.empty())
            return drafts->Notice("this is due at no date and no reading; it was left out", row.line);
        draft.vehicle = text("vehicle id");
        drafts->reminders.push_back(std::move(draft));
    });
}

void ReadVehicles(Table table, Drafts* drafts) {
    drafts->Facts().variant = "vehicles";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto wide = [&](const char* title) { return device::FromUtf8(text(title)); };
        const std::string name = text("make") + ' ' + text("model");
        CVehicle& vehicle = drafts->Vehicle(text("vehicle id").empty() ? Trimmed(name) : text("vehicle id"));
        vehicle.SetYear(std::atoi(text("year").c_str()));
        vehicle.SetLicensePlate(wide("lic#").c_str());
        vehicle.SetVIN(wide("vin").c_str());
        vehicle.SetInsurancePolicyNumber(wide("insurance#").c_str());
        vehicle.SetNotes(wide("notes").c_str());
    });
}

} // namespace

bool IsSimplyAuto(const Beginning& file) {
    return IsLog(file.titles) || IsTrips(file.titles) || IsServices(file.titles) || IsVehicles(file.titles);
}

void ReadSimplyAuto(std::vector<CsvRow> rows, Drafts* drafts) {
    Table table = TableOf(std::move(rows));
    if (IsLog(table))
        ReadLog(std::move(table), drafts);
    else if (IsTrips(table))
        ReadTrips(std::move(table), drafts);
    else if (IsServices(table))
        ReadServices(std::move(table), drafts);
    else
        ReadVehicles(std::move(table), drafts);
}

} // namespace exchange
