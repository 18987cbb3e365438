#include "tally/command_line.h"

#include "exchange/mapped_csv.h"
#include "exchange/own_rows.h"
#include "exchange/plain_text.h"
#include "exchange/read_file.h"
#include "resources/module.h"
#include "tally/vehicle_charts.h"

#include <CLI/CLI.hpp>
#include <array>
#include <cstdio>
#include <map>
#include <sysexits.h>

namespace tally {
namespace {

std::string Version() {
    const VersionResource& version = *OdoledgerModule()->version;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "odoledger-tally %d.%d.%d.%d", version.major, version.minor, version.third,
        version.build);
    return text.data();
}

double ReadDay(const std::string& option, const std::string& text) {
    const std::optional<double> day = exchange::ReadPlainDate(text);
    constexpr std::size_t DayLength = 10;
    if (!day || text.size() != DayLength)
        throw CLI::ValidationError(option, "\"" + text + "\" is no day as 2026-03-01");
    return *day;
}

/// Days, with or without the letter that says so.
int ReadDays(const std::string& option, std::string text) {
    if (!text.empty() && text.back() == 'd')
        text.pop_back();
    constexpr std::size_t MostDigits = 6;
    if (text.empty() || text.size() > MostDigits || text.find_first_not_of("0123456789") != std::string::npos)
        throw CLI::ValidationError(option, "\"" + text + "\" is no number of days as 30d");
    return std::stoi(text);
}

CLI::Validator OneOf(std::vector<std::string> words) {
    return CLI::IsMember(std::move(words)).description("");
}

/// The commands and their options, which fill a request.
class CommandLine {
public:
    explicit CommandLine(Request* request)
        : request_(*request) {
        app_.require_subcommand(0, 1);
        app_.get_formatter()->label("SUBCOMMAND", "COMMAND");
        app_.fallthrough(); // so that --file may stand behind a command too
        app_.set_version_flag("--version", Version());
        app_.add_option("--file", request_.file, "The log, in the place of the program's own")->type_name("FILE");
        app_.footer("Example: odoledger-tally stats --vehicle Roadster --by year\n"
                    "\n"
                    "The log is the one of odoledger: HANDSET_STORAGE, HANDSET_LOCALE and TZ count here too.\n"
                    "Ends with 0 when done, 1 with nothing to do or something soon, 2 with something overdue,\n"
                    "64 and above when it failed. See also: man odoledger-tally");
        AddCheck();
        AddBackup();
        AddList();
        AddStats();
        AddChart();
        AddReport();
        AddDue();
        AddCalendar();
        AddExport();
        AddImport();
        AddUndo();
        AddAdd();
    }

    CLI::App& App() { return app_; }

private:
    CLI::App& Add(const std::string& name, const std::string& description, const std::string& example) {
        CLI::App& command = *app_.add_subcommand(name, description);
        command.group("Commands");
        command.footer("Example: odoledger-tally " + example);
        command.final_callback([this, name] { request_.command = name; });
        return command;
    }

    void AddOutput(CLI::App& command) {
        command.add_option("-o,--output", request_.output, "A file for the result")->type_name("FILE");
    }

    void AddFormat(CLI::App& command) {
        static const std::map<std::string, Format> Formats
            = {{"text", Format::Text}, {"csv", Format::Csv}, {"json", Format::Json}};
        command
            .add_option_function<std::string>(
                "--format", [this](const std::string& name) { request_.format = Formats.at(name); },
                "text (for people), csv or json")
            ->type_name("FORMAT")
            ->check(OneOf({"text", "csv", "json"}));
        AddOutput(command);
    }

    void AddVehicle(CLI::App& command) {
        command.add_option("--vehicle", request_.vehicle, "The vehicle, by its name")->type_name("NAME");
    }

    void AddDays(CLI::App& command) {
        command
            .add_option_function<std::string>(
                "--from", [this](const std::string& text) { request_.from = ReadDay("--from", text); },
                "The first day, as 2026-03-01")
            ->type_name("DAY");
        command
            .add_option_function<std::string>(
                "--to", [this](const std::string& text) { request_.to = ReadDay("--to", text); }, "The last day")
            ->type_name("DAY");
    }

    void AddCheck() {
        CLI::App& command = Add("check", "Look for faults in the log, and change nothing", "check --file copy.dat");
        AddOutput(command);
    }

    void AddBackup() {
        CLI::App& command
            = Add("backup", "Copy the log, also while the program runs", "backup /media/stick/vehicles.dat");
        command.add_option("FILE", request_.target, "The copy; an older one is replaced")->required()->type_name("");
    }

    void AddList() {
        CLI::App& command = Add("list", "Tell the log, the oldest entry first", "list --vehicle Roadster --format csv");
        AddVehicle(command);
        AddDays(command);
        AddFormat(command);
    }

    void AddStats() {
        CLI::App& command = Add("stats", "Tell the figures of a vehicle", "stats --from 2025-01-01 --by quarter");
        AddVehicle(command);
        AddDays(command);
        command.add_option("--by", request_.period, "A row for each month, quarter or year")
            ->type_name("PERIOD")
            ->check(OneOf({"month", "quarter", "year"}));
        AddFormat(command);
    }

    void AddChart() {
        CLI::App& command = Add("chart", "Draw a vehicle's figures as SVG", "chart economy -o economy.svg");
        std::string kinds;
        for (const std::string& kind : ChartKinds())
            kinds += (kinds.empty() ? "" : ", ") + kind;
        command.add_option("KIND", request_.target, kinds)->required()->type_name("")->check(OneOf(ChartKinds()));
        AddVehicle(command);
        AddDays(command);
        AddOutput(command);
    }

    void AddReport() {
        CLI::App& command
            = Add("report", "Put a vehicle's figures, charts, log and reminders on a page", "report -o car.html");
        AddVehicle(command);
        AddDays(command);
        AddOutput(command);
    }

    void AddDue() {
        CLI::App& command = Add("due", "Tell what is overdue and what is soon, or nothing", "due --within 14d");
        AddVehicle(command);
        command
            .add_option_function<std::string>(
                "--within", [this](const std::string& text) { request_.withinDays = ReadDays("--within", text); },
                "What is soon: so many days ahead (30d)")
            ->type_name("DAYS");
        command
            .add_option(
                "--within-distance", request_.withinDistance, "What is soon: so many miles or kilometres ahead (500)")
            ->type_name("DISTANCE")
            ->check(CLI::NonNegativeNumber.description(""));
        AddFormat(command);
    }

    void AddCalendar() {
        CLI::App& command
            = Add("calendar", "Tell the reminders that have a date as iCalendar", "calendar -o vehicles.ics");
        AddVehicle(command);
        AddOutput(command);
    }

    void AddExport() {
        CLI::App& command = Add("export", "Tell everything that the log holds", "export -o everything.csv");
        AddVehicle(command);
        command
            .add_option_function<std::string>(
                "--format",
                [this](const std::string& name) { request_.format = name == "json" ? Format::Json : Format::Csv; },
                "csv (for spreadsheets too) or json")
            ->type_name("FORMAT")
            ->check(OneOf({"csv", "json"}));
        AddOutput(command);
    }

    void AddImport() {
        CLI::App& command = Add("import", "Bring records of a file into the log", "import --dry-run everything.csv");
        command.add_option("FILE", request_.files, "What export or another app has written, also as ZIP")
            ->required()
            ->type_name("");
        command.add_option("--vehicle", request_.vehicle, "The vehicle that it is for; made where there is none")
            ->type_name("NAME");
        command.add_flag("--dry-run", request_.isDryRun, "Tell what would be added, and change nothing");
        command.add_flag("--skip-faulty", request_.skipsFaulty, "Leave out rows that cannot be understood");
        command
            .add_option_function<std::string>(
                "--distance",
                [this](const std::string& name) { request_.reading.distance = exchange::DistanceNamed(name); },
                "What its distances are where it does not say: km or mi")
            ->type_name("UNIT")
            ->check(OneOf({"km", "mi"}));
        command
            .add_option_function<std::string>(
                "--volume", [this](const std::string& name) { request_.reading.volume = exchange::VolumeNamed(name); },
                "What its volumes are where it does not say: l, usgal or ukgal")
            ->type_name("UNIT")
            ->check(OneOf({"l", "usgal", "ukgal"}));
        AddWaysToWrite(command);
        AddOutput(command);
    }

    void AddWaysToWrite(CLI::App& command) {
        static const std::map<std::string, exchange::DateOrder> Orders = {{"dmy", exchange::DateOrder::DayMonthYear},
            {"mdy", exchange::DateOrder::MonthDayYear}, {"ymd", exchange::DateOrder::YearMonthDay}};
        exchange::ReadingOptions& reading = request_.reading;
        command
            .add_option_function<std::string>(
                "--dates", [&reading](const std::string& name) { reading.dates = Orders.at(name); },
                "The order of its dates where they do not say: dmy, mdy or ymd")
            ->type_name("ORDER")
            ->check(OneOf({"dmy", "mdy", "ymd"}));
        command
            .add_option_function<std::string>(
                "--decimal", [&reading](const std::string& name) { reading.decimal = name == "comma" ? ',' : '.'; },
                "Its decimal sign where its numbers do not say: point or comma")
            ->type_name("SIGN")
            ->check(OneOf({"point", "comma"}));
        std::string apps;
        for (const std::string& key : exchange::FormatKeys())
            apps.append(apps.empty() ? "" : ", ").append(key);
        command.add_option("--from", reading.format, "The app, where its contents could be of several: " + apps)
            ->type_name("APP")
            ->check(OneOf(exchange::FormatKeys()));
        command
            .add_option_function<std::string>(
                "--map",
                [&reading](const std::string& text) {
                    std::string reason;
                    const auto columns = exchange::ReadMapping(text, &reason);
                    if (!columns)
                        throw CLI::ValidationError("--map", reason);
                    reading.columns = *columns;
                },
                "Any CSV file: the titles of its columns, as date=Day,odometer=Km,total=Paid; also volume, price, "
                "kind, name, vendor, notes, vehicle")
            ->type_name("FIELDS");
    }

    void AddUndo() {
        CLI::App& imports = Add("imports", "Tell what was imported", "imports");
        AddFormat(imports);
        CLI::App& undo = Add("undo", "Take out what an import has added", "undo 3");
        undo.add_option("N", request_.number, "The number of the import; the newest without it")->type_name("");
    }

    static void AddNumber(CLI::App& command, const char* name, std::optional<double>* number, const char* words) {
        command.add_option(name, *number, words)->type_name("NUMBER");
    }

    void AddAdd() {
        CLI::App& command = Add("add", "Add an entry", "add fuel --odometer +312 --volume 10 --total 31.5");
        NewEntry& entry = request_.entry;
        command.add_option("KIND", entry.kind, "fuel, repair, trip or expense")
            ->required()
            ->type_name("")
            ->check(OneOf({"fuel", "repair", "trip", "expense"}));
        AddVehicle(command);
        command
            .add_option_function<std::string>(
                "--date", [&entry](const std::string& text) { entry.date = ReadDay("--date", text); },
                "The day, as 2026-03-01; today without it")
            ->type_name("DAY");
        const auto addText = [&](const char* name, std::string* text, const char* type, const char* words) {
            command.add_option(name, *text, words)->type_name(type);
        };
        addText("--odometer", &entry.odometer, "READING", "The reading, or +DISTANCE from the last one");
        AddNumber(command, "--price", &entry.price, "Fuel: the price of a litre or gallon");
        AddNumber(command, "--volume", &entry.volume, "Fuel: how much");
        AddNumber(command, "--total", &entry.total, "What was paid");
        addText("--name", &entry.name, "TEXT", "The description");
        addText("--vendor", &entry.vendor, "TEXT", "Where it was paid");
        addText("--notes", &entry.notes, "TEXT", "Notes");
        addText("--start", &entry.start, "READING", "Trip: the reading at its start; the last one without it");
        addText("--end", &entry.end, "READING", "Trip: the reading at its end, or +DISTANCE from its start");
        addText("--category", &entry.vendor, "TEXT", "Trip: its category");
    }

    Request& request_;
    CLI::App app_{
        "Works on the log of Odoledger from the command line, also while the program runs.", "odoledger-tally"};
};

} // namespace

std::variant<Request, int> ReadCommandLine(const std::vector<std::string>& arguments, Surroundings& surroundings) {
    Request request;
    CommandLine line(&request);
    try {
        // The library takes them from the end.
        line.App().parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
        if (request.command.empty())
            throw CLI::RequiredError("A command");
        return request;
    } catch (const CLI::Success& told) {
        line.App().exit(told, surroundings.out, surroundings.err);
        surroundings.out << std::flush;
        return EX_OK;
    } catch (const CLI::ParseError& mistake) {
        surroundings.err << "odoledger-tally: " << mistake.what() << "; --help tells more" << std::endl;
        return EX_USAGE;
    }
}

} // namespace tally
