#include "exchange/formats.h"
#include "exchange/written_values.h"

namespace exchange {
namespace {

bool IsFillUps(const Table& table) {
    return (table.Has("fuelup_date") || table.Has("fuelup date")) && table.Find({"litres", "liters", "gallons"}) >= 0;
}

bool IsServices(const Table& table) {
    return table.Has("service_date") && table.Has("sub_service_types");
}

bool IsOfApp(const Table& table) {
    return table.Has("filled up") && table.Has("type") && table.Find({"cost/gallon", "gallons"}) >= 0;
}

void ReadFillUps(Table table, Drafts* drafts) {
    const int car = table.Find({"car_name", "name"});
    const int date = table.Find({"fuelup_date", "fuelup date"});
    const int odometer = table.Find({"odometer"});
    const int distance = table.Find({"km", "miles"});
    const int volume = table.Find({"litres", "liters", "gallons"});
    const int price = table.Find({"price"});
    const int total = table.Find({"total"});
    const int partial = table.Find({"partial_fuelup"});
    const int missed = table.Find({"missed_fuelup"});
    const int brand = table.Find({"brand"});
    const int notes = table.Find({"notes"});
    const int tags = table.Find({"tags"});
    drafts->Facts().variant = "fill-ups";
    if (distance >= 0)
        drafts->distance = DistanceWritten(table.Titles()[static_cast<std::size_t>(distance)]);
    drafts->volume = VolumeWritten(table.Titles()[static_cast<std::size_t>(volume)], &drafts->isGallons);
    drafts->volumeHabit = "usgal";
    drafts->dateHabit = "mdy";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        EntryDraft draft;
        draft.type = CEntry::EntryTypeFuel;
        draft.line = row.line;
        draft.vehicle = TextOf(row, car);
        draft.date = CellOf(row, date);
        draft.odometer = CellOf(row, odometer);
        draft.distance = CellOf(row, distance);
        draft.volume = CellOf(row, volume);
        draft.price = CellOf(row, price);
        draft.total = CellOf(row, total);
        draft.isPartial = TextOf(row, partial) == "1";
        draft.isMissed = TextOf(row, missed) == "1";
        draft.vendor = TextOf(row, brand);
        draft.notes = TextOf(row, notes);
        Append(&draft.notes, TextOf(row, tags));
        drafts->entries.push_back(std::move(draft));
    });
}

void ReadServices(Table table, Drafts* drafts) {
    drafts->Facts().variant = "services";
    drafts->dateHabit = "mdy";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        const std::string kind = LowerCase(text("service_type"));
        EntryDraft draft;
        draft.type = kind == "service" ? CEntry::EntryTypeRepair : CEntry::EntryTypeExpense;
        draft.line = row.line;
        draft.vehicle = text("car_name");
        draft.date = cell("service_date");
        draft.odometer = cell("odometer");
        draft.total = cell("price");
        draft.name = text("sub_service_types").empty() ? text("service_type") : text("sub_service_types");
        draft.notes = text("notes");
        Append(&draft.notes, text("tags"));
        if (kind != "service" && kind != "expense" && kind != "bought")
            drafts->Notice("\"" + kind + "\" became an other expense", row.line);
        drafts->entries.push_back(std::move(draft));
    });
}

void ReadApp(Table table, Drafts* drafts) {
    drafts->Facts().variant = "the app's own export";
    drafts->hasMissedFills = false;
    drafts->isGallons = true;
    drafts->volumeHabit = "usgal";
    drafts->ForEachRow(table, [&](const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        const Cell type = cell("type");
        const std::string fullness = LowerCase(text("filled up"));
        EntryDraft draft;
        draft.line = row.line;
        if (LowerCase(type.text) == "gas")
            draft.type = CEntry::EntryTypeFuel;
        else if (LowerCase(type.text) == "service")
            draft.type = CEntry::EntryTypeRepair;
        else
            return drafts->Fault(row.line, type.place, '"' + type.text + "\" is neither Gas nor Service");
        if (draft.type == CEntry::EntryTypeFuel) {
            draft.volume = cell("gallons");
            draft.price = cell("cost/gallon");
            draft.isPartial = fullness == "partial";
            draft.vendor = text("gas brand");
        } else {
            draft.name = text("services");
        }
        if (draft.vendor.empty())
            draft.vendor = text("location");
        draft.vehicle = text("vehicle");
        draft.date = cell("date");
        draft.date.text += draft.date.text.empty() ? "" : ' ' + text("time");
        draft.odometer = cell("odometer");
        draft.total = cell("total cost");
        draft.notes = text("notes");
        Append(&draft.notes, text("tags"));
        drafts->entries.push_back(std::move(draft));
    });
}

} // namespace

bool IsFuelly(const Beginning& file) {
    return IsFillUps(file.titles) || IsServices(file.titles) || IsOfApp(file.titles);
}

void ReadFuelly(std::vector<CsvRow> rows, Drafts* drafts) {
    Table table = TableOf(std::move(rows));
    if (IsFillUps(table))
        ReadFillUps(std::move(table), drafts);
    else if (IsServices(table))
        ReadServices(std::move(table), drafts);
    else
        ReadApp(std::move(table), drafts);
}

} // namespace exchange
