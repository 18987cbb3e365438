#include "exchange/formats.h"
#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdlib>

namespace exchange {
namespace {

/// That there is no date.
constexpr const char* NoReminderDate = "2011-01-01";

bool IsZero(const std::string& text) {
    return text.find_first_not_of("0.,") == std::string::npos;
}

std::optional<UnitVolume> VolumeOf(const std::string& code) {
    if (code == "0")
        return VolumeLitres;
    if (code == "1")
        return VolumeGallonsUS;
    return code == "2" ? std::optional{VolumeGallonsUK} : std::nullopt;
}

class FuelioReader {
public:
    explicit FuelioReader(Drafts* drafts)
        : drafts_(*drafts) { }

    void Read(std::vector<Table> tables) {
        // What the others refer to first, wherever it stands.
        ForEach(tables, "vehicle", [this](Table& table) { ReadVehicles(table); });
        ForEach(
            tables, "costcategories", [this](Table& table) { ReadNames(table, "costtypeid", "name", &categories_); });
        ForEach(
            tables, "favstations", [this](Table& table) { ReadNames(table, "stationid", "namebrand", &stations_); });
        ForEach(tables, "log", [this](Table& table) { ReadLog(table); });
        ForEach(tables, "costs", [this](Table& table) { ReadCosts(table); });
        for (const Table& table : tables)
            if (!IsKnown(table.Name()) && !table.Rows().empty())
                drafts_.Notice("the section \"" + table.Name() + "\" was left out", table.Rows().front().line);
    }

private:
    template <typename Work> static void ForEach(std::vector<Table>& tables, const char* name, Work work) {
        for (Table& table : tables)
            if (table.Name() == name)
                work(table);
    }

    static bool IsKnown(const std::string& name) {
        constexpr const char* Known[] = {"vehicle", "costcategories", "favstations", "log", "costs", "category"};
        return std::any_of(std::begin(Known), std::end(Known), [&](const char* known) { return name == known; });
    }

    void ReadVehicles(Table& table) {
        drafts_.Facts().variant = "a vehicle of " + std::to_string(table.Titles().size()) + " columns";
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
            const auto wide = [&](const char* title) { return device::FromUtf8(text(title)); };
            vehicle_ = text("name");
            CVehicle& vehicle = drafts_.Vehicle(vehicle_);
            std::string notes = text("description");
            Append(&notes, Trimmed(text("make") + ' ' + text("model")));
            vehicle.SetNotes(device::FromUtf8(notes).c_str());
            vehicle.SetVIN(wide("vin").c_str());
            vehicle.SetLicensePlate(wide("plate").c_str());
            vehicle.SetInsurancePolicyNumber(wide("insurance").c_str());
            vehicle.SetYear(std::atoi(text("year").c_str()));
            if (text("distunit") == "0" || text("distunit") == "1")
                drafts_.distance = text("distunit") == "1" ? DistanceMiles : DistanceKilometres;
            drafts_.volume = VolumeOf(text("fuelunit"));
            secondVolume_ = VolumeOf(text("fuelunittank2"));
            drafts_.dates = DateOrderOf(text("importcsvdateformat"));
        });
    }

    void ReadNames(Table& table, const char* key, const char* name, std::map<std::string, std::string>* names) {
        drafts_.ForEachRow(table,
            [&](const CsvRow& row) { (*names)[TextOf(row, table.Find({key}))] = TextOf(row, table.Find({name})); });
    }

    static std::string NameIn(const std::map<std::string, std::string>& names, const std::string& key) {
        const auto found = names.find(key);
        return found == names.end() ? "" : found->second;
    }

    void ReadLog(Table& table) {
        const int date = table.Find({"data", "date"});
        const int odometer = table.FindBeginning("odo");
        const int volume = table.FindBeginning("fuel");
        const int total = table.FindBeginning("price");
        const int city = table.FindBeginning("city");
        const int notes = table.FindBeginning("notes");
        const int station = table.FindBeginning("stationid");
        const int full = table.Find({"full"});
        const int missed = table.Find({"missed"});
        const int price = table.Find({"volumeprice"});
        const int tank = table.Find({"tanknumber"});
        const int kind = table.Find({"fueltype"});
        const int excluded = table.Find({"excludedistance"});
        if (!drafts_.distance)
            drafts_.distance = DistanceWritten(UnitInTitle(table, odometer));
        if (!drafts_.volume)
            drafts_.volume = VolumeWritten(UnitInTitle(table, volume), &drafts_.isGallons);
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            EntryDraft draft;
            draft.type = CEntry::EntryTypeFuel;
            draft.line = row.line;
            draft.vehicle = vehicle_;
            draft.date = CellOf(row, date);
            draft.odometer = CellOf(row, odometer);
            draft.isZeroReading = true;
            draft.volume = CellOf(row, volume);
            draft.total = CellOf(row, total);
            draft.price = CellOf(row, price);
            draft.isPartial = TextOf(row, full) == "0";
            draft.isMissed = TextOf(row, missed) == "1";
            draft.vendor = TextOf(row, city);
            if (draft.vendor.empty())
                draft.vendor = NameIn(stations_, TextOf(row, station));
            draft.notes = TextOf(row, notes);
            if (TextOf(row, tank) == "2") {
                draft.volumeUnit = secondVolume_;
                drafts_.Notice("this is of a second tank; the figures do not tell it from the first", row.line);
            }
            if (!IsZero(TextOf(row, excluded)))
                drafts_.Notice("a distance to be left out of the economy is not kept", row.line);
            TakeNoFuel(std::atoi(TextOf(row, kind).c_str()), &draft);
            drafts_.entries.push_back(std::move(draft));
        });
    }

    void TakeNoFuel(int kind, EntryDraft* draft) {
        constexpr int Electric = 6; // hundreds
        constexpr int ExhaustFluids[] = {216, 217};
        if (kind / 100 == Electric)
            return MakeCharge(draft, &drafts_);
        if (kind != ExhaustFluids[0] && kind != ExhaustFluids[1])
            return;
        draft->otherThanFuel = "Exhaust fluid";
        drafts_.Notice("exhaust fluid became an other expense", draft->line);
    }

    void ReadCosts(Table& table) {
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
            const auto cell = [&](const char* title) { return CellOf(row, table.Find({title})); };
            const bool isReminder = ReadReminder(row, table);
            const bool isNothing = isReminder && IsZero(text("cost"));
            if (text("istemplate") == "1" || text("isincome") == "1")
                drafts_.Notice(text("isincome") == "1" ? "income was left out" : "a template was left out", row.line);
            else if (!isNothing)
                AddCost(row, text, cell);
        });
    }

    template <typename Text, typename Cells> void AddCost(const CsvRow& row, Text text, Cells cell) {
        const std::string category = Trimmed(NameIn(categories_, text("costtypeid")));
        EntryDraft draft;
        draft.type = text("costtypeid") == "1" || text("costtypeid") == "2" ? CEntry::EntryTypeRepair
                                                                            : CEntry::EntryTypeExpense;
        draft.line = row.line;
        draft.vehicle = vehicle_;
        draft.date = cell("date");
        draft.odometer = cell("odo");
        draft.total = cell("cost");
        draft.name = text("costtitle").empty() ? category : text("costtitle");
        draft.notes = text("notes");
        if (draft.name != category)
            Append(&draft.notes, category);
        drafts_.entries.push_back(std::move(draft));
    }

    /// True where the row has a point at which it falls due.
    bool ReadReminder(const CsvRow& row, const Table& table) {
        const auto text = [&](const char* title) { return TextOf(row, table.Find({title})); };
        const bool hasOdometer = !IsZero(text("remindodo"));
        const std::string date = text("reminddate");
        const bool hasDate = !date.empty() && date.rfind(NoReminderDate, 0) != 0;
        if (!hasOdometer && !hasDate)
            return false;
        ReminderDraft draft;
        draft.line = row.line;
        draft.vehicle = vehicle_;
        if (hasOdometer)
            draft.odometer = CellOf(row, table.Find({"remindodo"}));
        if (hasDate)
            draft.date = CellOf(row, table.Find({"reminddate"}));
        draft.name = text("costtitle");
        draft.notes = text("notes");
        if (!IsZero(text("repeatodo")))
            Append(
                &draft.notes, "every " + text("repeatodo") + ' ' + (drafts_.distance == DistanceMiles ? "mi" : "km"));
        if (!IsZero(text("repeatmonths")))
            Append(&draft.notes, "every " + text("repeatmonths") + " months");
        drafts_.reminders.push_back(std::move(draft));
        return true;
    }

    Drafts& drafts_;
    std::string vehicle_; ///< of the whole file
    std::optional<UnitVolume> secondVolume_;
    std::map<std::string, std::string> categories_;
    std::map<std::string, std::string> stations_;
};

} // namespace

bool IsFuelio(const Beginning& file) {
    const auto has
        = [&](const char* mark) { return std::find(file.marks.begin(), file.marks.end(), mark) != file.marks.end(); };
    return has("log") && (has("vehicle") || has("costs") || has("costcategories"));
}

void ReadFuelio(std::vector<CsvRow> rows, Drafts* drafts) {
    FuelioReader(drafts).Read(TablesOf(std::move(rows), NameBehindHash));
}

} // namespace exchange
