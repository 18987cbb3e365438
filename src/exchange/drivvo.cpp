#include "exchange/formats.h"
#include "exchange/written_values.h"
#include "platform/utf8.h"

#include <algorithm>
#include <cstdlib>

namespace exchange {
namespace {

/// What is translated is compared in lower case, of ASCII letters only.
using Words = std::initializer_list<const char*>;

bool IsOneOf(const std::string& text, Words words) {
    return std::find(words.begin(), words.end(), LowerCase(text)) != words.end();
}

enum class Section { None, Fuel, Expense, Service, Vehicle, Income, Route };

Section SectionNamed(const std::string& name) {
    if (IsOneOf(name,
            {"refuelling", "reabastecimento", "reabastecimentos", "reabastecimiento", "reabastecimientos",
                "abastecimento", "abastecimentos", "tankowanie", "tankowania"}))
        return Section::Fuel;
    if (IsOneOf(name, {"expense", "expenses", "gasto", "gastos", "despesa", "despesas", "wydatek", "wydatki"}))
        return Section::Expense;
    if (IsOneOf(name,
            {"service", "services", "servicio", "servicios", "servico", "servicos", "serviço", "serviços", "serwis"}))
        return Section::Service;
    if (IsOneOf(name, {"vehicle", "vehiculo", "vehículo", "veiculo", "veículo"}))
        return Section::Vehicle;
    if (IsOneOf(name, {"income", "ingreso", "receita", "przychod", "przychód"}))
        return Section::Income;
    return IsOneOf(name, {"route", "ruta", "rota", "trasa"}) ? Section::Route : Section::None;
}

constexpr const char* NoteTitles[] = {"notes", "note", "observação", "observacao", "observación", "notatka", "notatki",
    "uwagi", "notizen", "notiz", "Примечание"};
constexpr const char* StationTitles[] = {"gas station", "posto de combustível", "gasolinera", "stacja paliw", "Азс"};
constexpr const char* VehicleTitles[] = {"vehicle", "veiculo", "veículo", "vehiculo", "vehículo", "pojazd"};

template <std::size_t count> int FindOneOf(const Table& table, const char* const (&titles)[count]) {
    for (const char* title : titles)
        if (const int column = table.Find({title}); column >= 0)
            return column;
    return -1;
}

/// Whether a word says yes; nothing for one that nobody knows.
std::optional<bool> IsYes(const std::string& word) {
    if (IsOneOf(word, {"yes", "sim", "si", "sí", "sì", "ja", "tak", "oui", "evet", "1", "true", "Да", "да"}))
        return true;
    if (IsOneOf(word, {"no", "não", "nao", "nein", "nie", "non", "hayır", "0", "false", "Нет", "нет"}))
        return false;
    return std::nullopt;
}

bool IsNothing(const std::string& text) {
    return text.find_first_not_of("0.,") == std::string::npos;
}

/// Titles are translated; columns keep their places.
class DrivvoReader {
public:
    explicit DrivvoReader(Drafts* drafts)
        : drafts_(*drafts) { }

    void Read(std::vector<Table> tables) {
        drafts_.hasMissedFills = false;
        drafts_.dateHabit = "dmy";
        drafts_.volumeHabit = "that of the fuel";
        for (Table& table : tables)
            if (SectionNamed(table.Name()) == Section::Vehicle)
                drafts_.ForEachRow(table, [&](const CsvRow& row) { ReadVehicle(row); });
        for (Table& table : tables)
            ReadSection(table);
    }

private:
    void ReadVehicle(const CsvRow& row) {
        enum { Name, Model, Plate, Brand, Year, Notes };
        CVehicle& vehicle = drafts_.Vehicle(TextOf(row, Name));
        std::string notes = TextOf(row, Notes);
        Append(&notes, Trimmed(TextOf(row, Brand) + ' ' + TextOf(row, Model)));
        vehicle.SetLicensePlate(device::FromUtf8(TextOf(row, Plate)).c_str());
        vehicle.SetYear(std::atoi(TextOf(row, Year).c_str()));
        vehicle.SetNotes(device::FromUtf8(notes).c_str());
        onlyVehicle_ = vehicleCount_++ == 0 ? TextOf(row, Name) : "";
    }

    void ReadSection(Table& table) {
        const Section section = SectionNamed(table.Name());
        if (section == Section::Fuel || section == Section::Expense || section == Section::Service)
            drafts_.distance = drafts_.distance ? drafts_.distance : DistanceWritten(UnitInTitle(table, Odometer));
        if (section == Section::Fuel)
            ReadFills(table);
        else if (section == Section::Expense || section == Section::Service)
            ReadCosts(table, section);
        else if (section != Section::Vehicle)
            drafts_.ForEachRow(table, [&](const CsvRow& row) {
                drafts_.Notice("the section \"" + table.Name() + "\" was left out", row.line);
            });
    }

    void ReadFills(Table& table) {
        constexpr std::size_t ColumnsOfLaterFiles = 29;
        constexpr std::size_t ColumnsWithVehicle = 30;
        constexpr std::size_t ColumnsOfEarlyFiles = 21;
        const std::size_t width = table.Titles().size();
        drafts_.Facts().variant = "fills of " + std::to_string(width) + " columns";
        const bool isEarly = width == ColumnsOfEarlyFiles;
        const bool isLater = width == ColumnsOfLaterFiles || width == ColumnsWithVehicle;
        Columns columns;
        columns.place = isEarly ? 18 : isLater ? 23 : FindOneOf(table, StationTitles);
        columns.reason = isEarly ? 19 : isLater ? 25 : -1;
        columns.notes = isEarly ? 20 : isLater ? 27 : FindOneOf(table, NoteTitles);
        columns.vehicle = width == ColumnsWithVehicle ? 29 : FindOneOf(table, VehicleTitles);
        drafts_.volume = VolumeWritten(UnitInTitle(table, Price), &drafts_.isGallons);
        isElectric_ = IsElectric(UnitInTitle(table, Price));
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            constexpr int ColumnsOfFuel = 5;
            ReadFill(row, columns, 0);
            for (int fuel = 1; fuel <= 2; ++fuel)
                if (width >= ColumnsOfEarlyFiles && !IsNothing(TextOf(row, Volume + fuel * ColumnsOfFuel)))
                    ReadFill(row, columns, fuel * ColumnsOfFuel);
        });
    }

    struct Columns {
        int place = -1;
        int reason = -1;
        int notes = -1;
        int vehicle = -1;
    };

    EntryDraft DraftOf(const CsvRow& row, const Columns& columns) {
        EntryDraft draft;
        const std::string vehicle = TextOf(row, columns.vehicle);
        draft.line = row.line;
        draft.vehicle = vehicle.empty() ? onlyVehicle_ : vehicle;
        draft.odometer = CellOf(row, Odometer);
        draft.date = CellOf(row, Date);
        draft.vendor = TextOf(row, columns.place);
        draft.notes = TextOf(row, columns.notes);
        Append(&draft.notes, TextOf(row, columns.reason));
        return draft;
    }

    /// A second and a third fuel stand `shift` columns behind the first one.
    void ReadFill(const CsvRow& row, const Columns& columns, int shift) {
        EntryDraft draft = DraftOf(row, columns);
        const Cell full = CellOf(row, Full + shift);
        const std::optional<bool> isFull = IsYes(full.text);
        if (full.place == 0)
            return drafts_.Fault(row.line, 0, "the row has too few cells");
        if (!isFull)
            return drafts_.Fault(row.line, full.place, '"' + full.text + "\" says neither yes nor no");
        draft.type = CEntry::EntryTypeFuel;
        draft.isPartial = !*isFull;
        draft.volume = CellOf(row, Volume + shift);
        draft.price = CellOf(row, Price + shift);
        draft.total = CellOf(row, Total + shift);
        if (isElectric_)
            MakeCharge(&draft, &drafts_);
        if (shift != 0)
            drafts_.Notice("a further fuel became a fill of its own", row.line);
        drafts_.entries.push_back(std::move(draft));
    }

    void ReadCosts(Table& table, Section section) {
        constexpr std::size_t ColumnsOfLaterServices = 11;
        enum { Money = 2, Kind, Place };
        const bool isService = section == Section::Service;
        const bool isLater = isService && table.Titles().size() == ColumnsOfLaterServices;
        Columns columns;
        columns.place = Place;
        columns.notes = FindOneOf(table, NoteTitles);
        columns.vehicle = FindOneOf(table, VehicleTitles);
        if (columns.notes < 0)
            columns.notes = isLater ? 7 : isService ? 5 : 6;
        if (columns.vehicle < 0 && isLater)
            columns.vehicle = 10;
        columns.reason = !isService && columns.notes == 6 ? 5 : -1;
        drafts_.ForEachRow(table, [&](const CsvRow& row) {
            EntryDraft draft = DraftOf(row, columns);
            draft.type = isService ? CEntry::EntryTypeRepair : CEntry::EntryTypeExpense;
            draft.total = CellOf(row, Money);
            draft.name = TextOf(row, Kind);
            drafts_.entries.push_back(std::move(draft));
        });
    }

    enum { Odometer, Date, Fuel, Price, Total, Volume, Full };

    Drafts& drafts_;
    std::string onlyVehicle_;
    int vehicleCount_ = 0;
    bool isElectric_ = false;
};

} // namespace

bool IsDrivvo(const Beginning& file) {
    return !IsFuelio(file) && std::any_of(file.marks.begin(), file.marks.end(), [](const std::string& mark) {
        return SectionNamed(mark) != Section::None;
    });
}

void ReadDrivvo(std::vector<CsvRow> rows, Drafts* drafts) {
    DrivvoReader(drafts).Read(TablesOf(std::move(rows), NameBehindHash));
}

} // namespace exchange
