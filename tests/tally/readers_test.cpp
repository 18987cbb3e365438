// The files of other apps: one of each kind lies in samples/, and beside it what must come of it.

#include "exchange/csv_rows.h"
#include "exchange/plain_text.h"
#include "exchange/written_values.h"
#include "tally_device.h"

#include <algorithm>
#include <cstdlib>

namespace {

struct Sample {
    const char* name;
    Lines options;
    int firstRow; ///< of the records, among the rows of the file
    int date; ///< the places of cells
    int number;
    int notes; ///< -1: none, or not in the first row
    bool hasStory = false; ///< the three fills of 48.4 l on 740 km
};

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char character : text)
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

std::ostream& operator<<(std::ostream& out, const Sample& sample) {
    return out << sample.name;
}

const Sample Samples[] = {{"fuelio", {}, 5, 0, 2, 9, true}, {"fuelio-2018", {}, 5, 0, 1, 9},
    {"drivvo", {"--vehicle", "Van"}, 2, 1, 5, 20, true}, {"drivvo-translated", {}, 2, 1, 5, 27},
    {"acar", {}, 9, 1, 5, 15, true}, {"fuelly", {}, 1, 8, 5, 11, true},
    {"fuelly-services", {"--distance", "km"}, 1, 4, 3, 9},
    {"fuelly-app", {"--distance", "mi", "--volume", "usgal"}, 1, 2, 8, 16},
    {"simply-auto", {"--distance", "km", "--volume", "l"}, 1, 13, 3, 12, true},
    {"simply-auto-services", {"--distance", "km"}, 1, -1, 5, -1},
    {"simply-auto-trips", {"--distance", "km"}, 1, 6, 3, 19},
    {"lubelogger", {"--distance", "km", "--volume", "l", "--vehicle", "Van"}, 1, 0, 2, 7, true},
    {"lubelogger-service", {"--distance", "km", "--vehicle", "Van"}, 1, 0, 2, -1},
    {"mapped",
        {"--distance", "km", "--volume", "l", "--map",
            "date=day,odometer=Km,volume=Litres,total=Paid,kind=What,vehicle=Car,vendor=Where,notes=Remark"},
        1, 0, 2, 7}};

class Readers : public TallyDevice, public testing::WithParamInterface<Sample> {
protected:
    Readers() {
        theSettings.UnitDistance = DistanceKilometres;
        theSettings.UnitVolume = VolumeLitres;
        theSettings.UnitFuelEconomy = EconomyKilometresPerLitre;
    }
    static std::string Contents(const char* end) { return Read(std::string(SAMPLES) + '/' + GetParam().name + end); }
    /// Runs `import` with what the sample needs to be told.
    Outcome Import(const std::string& contents, Lines options = {}) {
        options.insert(options.end(), GetParam().options.begin(), GetParam().options.end());
        return TallyDevice::Import(contents, options);
    }
    /// All that the log holds: a line a record, of the cells that are not empty.
    std::string Log() {
        constexpr int VehicleNumber = 2;
        constexpr int InsuranceExpires = 21;
        std::string told;
        const std::vector<exchange::CsvRow> rows = exchange::ReadCsvRows(Run({"export"}).out, ',').rows;
        for (auto row = rows.begin() + 1; row != rows.end(); ++row) {
            for (int cell = 0; cell < static_cast<int>(row->cells.size()); ++cell)
                if (const std::string& text = row->cells[cell]; !text.empty() && cell != VehicleNumber
                    && cell != InsuranceExpires && (text != "0" || row->cells[0] != "vehicle"))
                    told += (cell == 0 ? "" : "|") + text;
            told += '\n';
        }
        return told;
    }
    /// The sample with other rows in front of its records, from line `line` on; `change` gets a copy of the first one.
    static std::string With(const std::vector<std::function<void(Lines* cells)>>& changes, int* line) {
        const std::string text = Contents(".csv");
        const char separator = exchange::SeparatorOf(text);
        const exchange::CsvRow row = exchange::ReadCsvRows(text, separator).rows[GetParam().firstRow];
        std::size_t place = 0;
        for (int lines = 1; lines < row.line; ++lines)
            place = text.find('\n', place) + 1;
        std::string rows;
        for (const auto& change : changes) {
            Lines cells = row.cells;
            change(&cells);
            for (std::size_t cell = 0; cell < cells.size(); ++cell)
                rows += (cell == 0 ? "" : std::string(1, separator)) + Quoted(cells[cell]);
            rows += '\n';
        }
        *line = row.line;
        return text.substr(0, place) + rows + text.substr(place);
    }
};

INSTANTIATE_TEST_SUITE_P(All, Readers, testing::ValuesIn(Samples), [](const auto& sample) {
    std::string name = sample.param.name;
    name.erase(std::remove(name.begin(), name.end(), '-'), name.end());
    return name;
});

TEST_P(Readers, TheFileGivesItsRecordsOnceAndTheyGoAgain) {
    const std::string file = Contents(".csv");
    const std::string expected = Contents(".txt");
    const Outcome tried = Import(file, {"--dry-run"});
    EXPECT_EQ(tried.status, 0) << tried.err;
    EXPECT_EQ(Log(), "");
    const Outcome outcome = Import(file);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Log(), expected) << outcome.err;
    EXPECT_EQ(Progress, "");
    EXPECT_EQ(Import(file).status, 1) << "nothing is new";
    EXPECT_EQ(Run({"undo"}).status, 0);
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(Import(file).status, 0);
    EXPECT_EQ(Log(), expected);
    if (GetParam().hasStory) {
        const std::string vehicle = Sql("SELECT name FROM vehicles ORDER BY id LIMIT 1");
        const std::string stats = Run({"stats", "--by", "year", "--format", "csv", "--vehicle", vehicle}).out;
        EXPECT_NE(stats.find(",15.289"), std::string::npos) << stats;
    }
}

TEST_P(Readers, HoweverTheLinesEndAndWhateverStandsBeforeThem) {
    const std::string file = Contents(".csv");
    for (const char* end : {"\r\n", "\r"}) {
        std::string ended = "\xEF\xBB\xBF";
        for (const char character : file)
            ended += character == '\n' ? end : std::string(1, character);
        Empty();
        EXPECT_EQ(Import(ended).status, 0);
        std::string log = Log();
        for (std::size_t place = 0; (place = log.find(end)) != std::string::npos;)
            log.replace(place, std::string(end).size(), "\n");
        EXPECT_EQ(log, Contents(".txt"));
    }
}

TEST_P(Readers, FaultsAreToldByTheirPlaceAndCanBeLeftOut) {
    const Sample& sample = GetParam();
    const auto set = [](int cell, const char* text) {
        return [cell, text](Lines* cells) {
            if (cell >= 0)
                (*cells)[cell] = text;
        };
    };
    int line = 0;
    const std::string file
        = With({set(sample.date, "yesterday"), set(sample.number, "1x"), [](Lines* cells) { cells->resize(1); }}, &line)
        + "\n\"never closed";
    const Outcome outcome = Import(file);
    EXPECT_EQ(outcome.status, EX_DATAERR) << outcome.err;
    EXPECT_EQ(Log(), "");
    const auto tells = [&](int behind, int cell) {
        return outcome.err.find(':' + std::to_string(line + behind) + ':' + std::to_string(cell) + ": ")
            != std::string::npos;
    };
    EXPECT_TRUE(sample.date < 0 || tells(0, sample.date + 1)) << outcome.err;
    EXPECT_TRUE(tells(1, sample.number + 1)) << outcome.err;
    EXPECT_TRUE(sample.date < 0 || tells(2, 0)) << outcome.err;
    EXPECT_NE(outcome.err.find("never closed"), std::string::npos) << outcome.err;
    if (sample.date >= 0) {
        EXPECT_EQ(Import(file, {"--skip-faulty"}).status, 0);
        EXPECT_EQ(Log(), Contents(".txt"));
    }
}

TEST_P(Readers, ANoteIsKeptToTheLetterAndTitlesAloneAreNothing) {
    const Sample& sample = GetParam();
    int line = 0;
    const std::string note = "=1+1 \"said\"\nthe \xF0\x9F\x9A\x97";
    if (sample.notes >= 0) {
        EXPECT_EQ(Import(With({[&](Lines* cells) { (*cells)[sample.notes] = note; }}, &line)).status, 0);
        EXPECT_NE(Sql("SELECT notes FROM entries").find(note), std::string::npos) << Sql("SELECT notes FROM entries");
    }
    Empty();
    const std::string file = With({}, &line);
    std::size_t place = 0;
    for (int lines = 1; lines < line; ++lines)
        place = file.find('\n', place) + 1;
    EXPECT_LE(Import(file.substr(0, place)).status, 1);
    EXPECT_EQ(Sql("SELECT * FROM entries") + Sql("SELECT * FROM reminders"), "");
}

using Reading = TallyDevice;

const Lines American{"--distance", "mi", "--volume", "usgal", "--vehicle", "Van"};
const std::string Titles = "Date,Odometer,FuelConsumed,Cost,IsFillToFull,MissedFuelUp\n";

TEST_F(Reading, WhatAFileLeavesOpenIsAskedAndAnOptionSettlesIt) {
    const auto with = [](Lines more) {
        more.insert(more.end(), American.begin(), American.end());
        return more;
    };
    const std::string open = Titles + "3/4/2024,\"12,345\",10,20,True,False\n";
    for (const auto& [options, question] :
        std::vector<std::pair<Lines, const char*>>{{with({"--decimal", "comma"}), "--dates"},
            {with({"--dates", "dmy"}), "--decimal"}, {{"--decimal", "point", "--dates", "dmy"}, "--volume"},
            {{"--decimal", "point", "--dates", "dmy", "--volume", "l"}, "--distance"}}) {
        const Outcome outcome = Import(open, options);
        EXPECT_EQ(outcome.status, EX_USAGE) << outcome.err;
        EXPECT_NE(outcome.err.find(question), std::string::npos) << outcome.err;
    }
    EXPECT_EQ(Import(open, with({"--decimal", "point", "--dates", "dmy"})).status, 0);
    EXPECT_EQ(Import(open, with({"--decimal", "comma", "--dates", "mdy"})).status, 0);
    EXPECT_EQ(Sql("SELECT odometer, date FROM entries"), "12|45355.0\n12345|45385.0");
    // Another row may say what one leaves open; where two contradict each other the first one counts.
    EXPECT_EQ(Import(open + "3/14/2024,\"1,500.5\",10,21,True,False\n", with({})).status, 0);
    const Outcome both = Import(open + "3/14/2024,1.5,1,1,True,False\n14/3/2024,1,\"1,5\",1,True,False\n", with({}));
    EXPECT_EQ(both.status, EX_DATAERR);
    EXPECT_NE(both.err.find(":4:1: \"14/3/2024\" is no date"), std::string::npos) << both.err;
    const std::string gallons = "car_name,odometer,miles,gallons,price,fuelup_date\nA,1000,1,10,3,2024-03-04\n";
    EXPECT_EQ(Import(gallons).status, EX_USAGE);
    EXPECT_EQ(Import(gallons, {"--volume", "l"}).status, EX_USAGE);
    EXPECT_EQ(Import(gallons, {"--volume", "ukgal"}).status, 0);
    EXPECT_EQ(Sql("SELECT round(custom1, 4) FROM entries WHERE odometer = 1000"), "12.0095");
    const std::string two = "Departure Odo,IsFillToFull,Date,Odometer,FuelConsumed,Cost\n1,True,2024-03-04,5,6,7\n";
    EXPECT_EQ(Import(two, with({})).status, EX_USAGE);
    EXPECT_EQ(Import(two, with({"--from", "lubelogger"})).status, 0);
    EXPECT_EQ(Import(two, with({"--from", "fuelio"})).status, EX_DATAERR);
    EXPECT_EQ(Import(two, {"--map", "date=Tag"}).status, EX_USAGE);
    EXPECT_EQ(Import(two, {"--map", "day=Date"}).status, EX_USAGE);
}

TEST_F(Reading, OddFillsAreTakenAndTold) {
    const Outcome outcome = Import(Titles
            + "2024-03-04,1000,0,0,True,False\n2999-03-05,2000,10,20,True,False\n"
              "2024-03-06,900,10,20,True,False\n2024-03-07,0,10,20,True,False\n"
              "2024-02-01,0,10,20,True,False\n",
        American);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    for (const char* words : {"line 3: the date is still to come", "line 4: the reading is lower"})
        EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
    EXPECT_EQ(
        Sql("SELECT odometer FROM entries e, tally_marks m WHERE m.unknown_odometer AND m.ref = e.ref"), "900\n1000")
        << "the last one before it, or else the first one behind";
    EXPECT_EQ(Sql("SELECT count(*) FROM entries"), "5");
    EXPECT_EQ(Import("car_name,odometer,miles,gallons,price,fuelup_date\nA,0,300,10,3,2024-03-04\n"
                     "A,1000,200,10,3,2024-03-03\nA,,100,10,3,2024-03-02\n",
                  {"--volume", "usgal"})
                  .status,
        0);
    EXPECT_EQ(Sql("SELECT odometer FROM entries WHERE amount = 30 ORDER BY date"), "800\n1000\n1300");
    std::string fills
        = "##Refuelling\n\"Odometer (mi)\",\"Date\",\"Fuel\",\"Price / L\",\"Total\",\"Volume\",\"Full\" 1\n";
    for (const int odometer : {1000, 1300, 1600, 1900, 2500, 2800, 3100})
        fills += std::to_string(odometer) + ",2024-03-04,Gas,2,20,10,Yes\n";
    const Outcome far = Import(fills, {"--vehicle", "Far"});
    EXPECT_NE(far.err.find("line 7: far more way"), std::string::npos) << far.err;
    const Outcome mixed = Import(Titles + "2024-03-04,12.345,10,20.55,True,False\n", American);
    EXPECT_NE(mixed.err.find("line 2: the reading has three decimals"), std::string::npos) << mixed.err;
}

TEST_F(Reading, WhatIsNoTableIsRefusedInWords) {
    const std::string database = Read(HostPath());
    for (const auto& [contents, words] : std::vector<std::pair<std::string, const char*>>{{database, "database"},
             {" <html>", "XML"}, {std::string("a,\0b\n", 5), "no text"}, {"ROAD TRIP CSV \",.\"\n", "Road Trip"},
             {"a,b\n1,2\n", "--map"}, {"\r\n", "empty"}}) {
        const Outcome outcome = Import(contents);
        EXPECT_EQ(outcome.status, EX_DATAERR) << words;
        EXPECT_NE(outcome.err.find(words), std::string::npos) << outcome.err;
    }
    // Polish letters in the code page of their country.
    EXPECT_EQ(Import("##Tankowanie\nPrzebieg (km);Data;Paliwo;Cena / L;Koszt;Ilo\xB6\xE6;Pe\xB3ny\n"
                     "5;2024-03-04;Pb;1,5;15;10,0;Tak\n##Serwis\nPrzebieg (km);Data;Koszt;Rodzaj;Miejsce;Notatki\n"
                     "6;2024-03-05;9;Wymiana;Warsztat;\xB3\x9C\n",
                  {"--vehicle", "Van"})
                  .status,
        0);
    EXPECT_EQ(Sql("SELECT notes FROM entries WHERE type = 2"), "\xC5\x82\xC5\x9B");
}

TEST_F(Reading, AnArchiveIsReadAsOneFile) {
    const std::filesystem::path folder = folder_ / "zip";
    std::filesystem::create_directory(folder);
    for (const auto& [name, sample] : {std::pair("Fuel_Log.csv", "simply-auto"),
             std::pair("Services.csv", "simply-auto-services"), std::pair("Trip_Log.csv", "simply-auto-trips")})
        Write(folder / name, Read(std::string(SAMPLES) + '/' + sample + ".csv"));
    Write(folder / "pictures.data", "PK\x03\x04");
    Write(folder / "Vehicles.csv",
        "Row ID,Make,Model,Year,Lic#,VIN,Insurance#,Notes,Vehicle ID\n"
        "1,Example,Wagon,2018,TS 1,V1,I1,blue,Example Wagon\n");
    const std::string archive = folder_ / "all.zip";
    const auto zip = [&](const char* what) {
        const std::string command = "cd '" + folder.string() + "' && rm -f '" + archive + "' && " + what;
        EXPECT_EQ(std::system(command.c_str()), 0);
    };
    zip("python3 -m zipfile -c ../all.zip *");
    const Lines import{"import", "--distance", "km", "--volume", "l", archive};
    const Outcome outcome = Run(import);
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_NE(outcome.err.find("left out: pictures.data"), std::string::npos) << outcome.err;
    EXPECT_EQ(
        Sql("SELECT v.name, v.license_plate, count(*) FROM vehicles v, entries e WHERE e.vehicle = v.ref GROUP BY 1"),
        "Example Wagon|TS 1|6\nOther Van||1");
    EXPECT_EQ(Sql("SELECT count(*) FROM reminders"), "3");
    EXPECT_EQ(Run(import).status, 1);
    std::string damaged = Read(archive);
    damaged.replace(damaged.size() / 3, 40, std::string(40, 'x'));
    Write(archive, damaged);
    EXPECT_EQ(Run(import).status, EX_DATAERR);
    Write(folder / "Fuel_Log.csv", std::string(210'000'000, ' '));
    zip("python3 -c \"import zipfile; "
        "zipfile.ZipFile('../all.zip', 'w', zipfile.ZIP_DEFLATED).write('Fuel_Log.csv')\"");
    const Outcome bomb = Run(import);
    EXPECT_EQ(bomb.status, EX_DATAERR);
    EXPECT_NE(bomb.err.find("unpacks to more"), std::string::npos) << bomb.err;
}

TEST(WrittenValues, AreReadInTheMannerOfTheirPlace) {
    const auto number = [](const char* text, char decimal) {
        const std::optional<double> value = exchange::ReadWrittenNumber(text, decimal, true);
        return value ? exchange::PlainNumber(static_cast<float>(*value)) : "none";
    };
    const std::pair<const char*, std::pair<const char*, const char*>> numbers[]
        = {{"$1,234.56", {"1234.56", "none"}}, {"1.234,50 \xE2\x82\xAC", {"none", "1234.5"}},
            {"1\xE2\x80\xAF"
             "234,50 kr",
                {"none", "1234.5"}},
            {"12'345.5", {"12345.5", "none"}}, {"($12.00)", {"-12", "none"}}, {"-$3", {"-3", "-3"}},
            {"1,23,456.5", {"123456.5", "none"}}, {"12,345", {"12345", "12.345"}}, {"0,123", {"none", "0.123"}},
            {"1234,567", {"none", "1234.567"}}, {"12 5", {"none", "none"}}, {"- 1 234", {"-1234", "-1234"}},
            {"1.234.567", {"none", "1234567"}}, {"Rs.12.50", {"12.5", "none"}}, {"\xC2\xA3.95", {"0.95", "none"}},
            {"\xE2\x82\xAC.95", {"0.95", "none"}}, {"US$.95", {"0.95", "none"}},
            {"\xD1\x80\xD1\x83\xD0\xB1.95", {"95", "95"}}, {"60.00-", {"none", "none"}}, {"12,-", {"12", "12"}},
            {".5", {"0.5", "none"}}, {"", {"none", "none"}}, {".", {"none", "none"}}, {"1O.5", {"none", "none"}},
            {"--1", {"none", "none"}}, {"1e5", {"none", "none"}}};
    for (const auto& [text, values] : numbers) {
        EXPECT_EQ(number(text, '.'), values.first) << text;
        EXPECT_EQ(number(text, ','), values.second) << text;
    }
    const auto date = [](const char* text, exchange::DateOrder order) {
        const std::optional<double> value = exchange::ReadWrittenDate(text, order);
        return value ? exchange::PlainDate(*value) : "none";
    };
    using exchange::DateOrder;
    const std::tuple<const char*, DateOrder, const char*> dates[]
        = {{"2024-3-9 9:05", DateOrder::MonthDayYear, "2024-03-09 09:05:00"},
            {"2024-03-30T18:05:11.5Z", DateOrder::MonthDayYear, "2024-03-30 18:05:11"},
            {"3/4/2024 7:40 PM", DateOrder::MonthDayYear, "2024-03-04 19:40:00"},
            {"3/4/2024 12:00 am", DateOrder::DayMonthYear, "2024-04-03"},
            {"31.12.99", DateOrder::MonthDayYear, "1999-12-31"}, {"24/03/10", DateOrder::YearMonthDay, "2024-03-10"},
            {"30. 3. 2024", DateOrder::MonthDayYear, "2024-03-30"}, {"31/2/2024", DateOrder::DayMonthYear, "none"},
            {"1600-12-31", DateOrder::DayMonthYear, "none"}, {"2024-03", DateOrder::DayMonthYear, "none"},
            {"2024-03-04 25:00", DateOrder::DayMonthYear, "none"}, {"2024-03-04x", DateOrder::DayMonthYear, "none"}};
    for (const auto& [text, order, expected] : dates)
        EXPECT_EQ(date(text, order), expected) << text;
}

} // namespace
