#include "exchange/formats.h"
#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdlib>

namespace exchange {
namespace {

constexpr const char* Metadata = "metadata";
constexpr const char* Vehicles = "vehicles";
constexpr const char* FillUps = "fill-up records";
constexpr const char* Events = "event records";
constexpr const char* Services = "service records";
constexpr const char* Expenses = "expense records";
constexpr const char* Trips = "trip records";

/// The name of a section stands alone in its row.
std::string SectionOf(const CsvRow& row) {
    std::string first = LowerCase(TextOf(row, 0));
    const bool isAlone
        = std::all_of(row.cells.begin() + 1, row.cells.end(), [](const std::string& cell) { return cell.empty(); });
    for (const char* name : {Metadata, Vehicles, FillUps, Events, Services, Expenses, Trips})
        if (isAlone && first == name)
            return first;
    return {};
}

bool IsFillUps(const Table& table) {
    return table.Has("odometer reading") && table.Has("partial fill-up?");
}

bool IsYes(const std::string& text) {
    return LowerCase(text) == "yes";
}

class ACarReader {
public:
    explicit ACarReader(Drafts* drafts)
        : drafts_(*drafts) { }

    void Read(std::vector<Table> tables) {
        drafts_.dateHabit = "mdy";
        drafts_.volumeHabit = "usgal";
        for (Table& table : tables)
            ReadHead(table);
        for (Table& table : tables)
            if (table.Name() != Metadata && table.Name() != Vehicles)
                drafts_.ForEachRow(table, [&](const CsvRow& row) { ReadRecord(table, row); });
    }

private:
    void ReadHead(Table& table) {
        const auto find = [&](const char* title) { return table.Find({title}); };
        if (table.Name() == Metadata)
            drafts_.ForEachRow(table, [&](const CsvRow& row) {
                drafts_.dates = DateOrderOf(TextOf(row, find("date format")));
                drafts_.Facts().variant = TextOf(row, find("acar version"));
            });
        if (table.Name() != Vehicles)
            return;
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            const auto wide = [&](const char* title) { return device::FromUtf8(TextOf(row, find(title))); };
            const std::string name = TextOf(row, find("name"));
            CVehicle& vehicle = drafts_.Vehicle(name);
            vehicle.SetYear(std::atoi(TextOf(row, find("year")).c_str()));
            vehicle.SetLicensePlate(wide("license plate").c_str());
            vehicle.SetVIN(wide("vin").c_str());
            vehicle.SetInsurancePolicyNumber(wide("insurance policy").c_str());
            vehicle.SetNotes(wide("notes").c_str());
            bool isGallons = false;
            volumes_[name] = VolumeWritten(TextOf(row, find("volume unit")), &isGallons);
        });
    }

    void ReadRecord(const Table& table, const CsvRow& row) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        EntryDraft draft;
        draft.line = row.line;
        draft.vehicle = text("vehicle");
        draft.date = cell("date");
        draft.date.text += draft.date.text.empty() ? "" : ' ' + text("time");
        draft.odometer = cell("odometer reading");
        draft.distanceUnit = DistanceWritten(text("distance unit"));
        draft.total = cell("total cost");
        draft.notes = text("notes");
        if (table.Name() == FillUps)
            ReadFillUp(table, row, &draft);
        else if (table.Name() == Trips)
            ReadTrip(table, row, &draft);
        else
            ReadEvent(table, row, &draft);
        drafts_.entries.push_back(std::move(draft));
    }

    void ReadFillUp(const Table& table, const CsvRow& row, EntryDraft* draft) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        draft->type = CEntry::EntryTypeFuel;
        draft->volume = CellOf(row, table.Find({"volume"}));
        draft->price = CellOf(row, table.Find({"price per unit"}));
        draft->isPartial = IsYes(text("partial fill-up?"));
        draft->isMissed = IsYes(text("previously missed fill-ups?"));
        draft->vendor = text("fuel brand").empty() ? text("fueling station address") : text("fuel brand");
        Append(&draft->notes, text("tags"));
        if (IsElectric(text("volume unit")))
            MakeCharge(draft, &drafts_);
        bool isGallons = false;
        draft->volumeUnit = VolumeWritten(text("volume unit"), &isGallons);
        if (isGallons)
            draft->volumeUnit = volumes_[draft->vehicle];
        drafts_.isGallons = drafts_.isGallons || (isGallons && !draft->volumeUnit);
    }

    void ReadEvent(const Table& table, const CsvRow& row, EntryDraft* draft) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const std::string type = table.Name() == Events ? LowerCase(text("type")) : table.Name();
        const bool isWork = type == "service" || type == Services;
        draft->type = isWork ? CEntry::EntryTypeRepair : CEntry::EntryTypeExpense;
        draft->name = TextOf(row, table.Find({"sub types", "services", "expenses"}));
        draft->vendor = TextOf(row, table.Find({"place name", "service center name", "expense center name"}));
        if (table.Name() == Events && !isWork && type != "expense")
            drafts_.Notice('"' + text("type") + "\" became an other expense", row.line);
        // One version has a title that its rows have no cell for: what stands at the end is found from there.
        const auto cities = std::count(table.Titles().begin(), table.Titles().end(), "place city");
        if (cities > 1 && row.cells.size() + 1 == table.Titles().size()) {
            draft->notes = Trimmed(row.cells.back());
            Append(&draft->notes, Trimmed(row.cells[row.cells.size() - 2]));
        } else {
            Append(&draft->notes, text("tags"));
        }
    }

    static void ReadTrip(const Table& table, const CsvRow& row, EntryDraft* draft) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
        const bool hasBoth = !text("start location").empty() && !text("end location").empty();
        draft->type = CEntry::EntryTypeTrip;
        draft->date = cell("start date");
        draft->date.text += draft->date.text.empty() ? "" : ' ' + text("start time");
        draft->start = cell("start odometer reading");
        draft->odometer = cell("end odometer reading");
        draft->total = {};
        draft->name = text("purpose").empty() ? text("start location") + (hasBoth ? " - " : "") + text("end location")
                                              : text("purpose");
        draft->vendor = text("type");
        Append(&draft->notes, text("tags"));
    }

    Drafts& drafts_;
    std::map<std::string, std::optional<UnitVolume>> volumes_; ///< that the vehicles are set to
};

} // namespace

bool IsACar(const Beginning& file) {
    const bool hasSection = std::any_of(file.rows.begin(), file.rows.end(), [](const CsvRow& row) {
        const std::string section = SectionOf(row);
        return section == FillUps || section == Services || section == Events || section == Expenses;
    });
    return hasSection || IsFillUps(file.titles);
}

void ReadACar(std::vector<CsvRow> rows, Drafts* drafts) {
    // A table that somebody has cut out has no name before it.
    const bool isAlone = !rows.empty() && IsFillUps(Table("", rows.front()));
    if (isAlone)
        rows.insert(rows.begin(), {1, {FillUps}});
    ACarReader(drafts).Read(TablesOf(std::move(rows), SectionOf));
}

} // namespace exchange
