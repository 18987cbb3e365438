// Presses keys at random, weighted so that forms do get filled in and stored, on screens of many sizes, in several
// languages, zones and times. Every hundred keys there must be a way out to the main frame, and what stands there must
// be in order.

#include "soak_run.h"

#include <algorithm>

namespace {

constexpr long KeysInARound = 5000;
constexpr long KeysBetweenChecks = 100;
constexpr int CustomRange = 5;

constexpr const char* Screens[] = {"1x1", "176x220", "240x320", "320x480", "800x480"};
constexpr const char* Locales[] = {"en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN", "ja_JP", "bn_BD"};
constexpr const char* Zones[] = {"UTC", "America/New_York", "Asia/Kolkata", "Pacific/Auckland", "Etc/GMT+12"};
constexpr const char* Times[] = {"2026-03-01T10:00:00Z", "2024-02-29T23:59:59Z", "2025-12-31T23:59:50Z",
    "2026-10-25T00:30:00Z", "2026-03-29T01:30:00Z", "1999-12-31T12:00:00Z", "2099-06-15T00:00:00Z"};
constexpr const char* Walking[] = {"down", "down", "down", "up", "up", "left", "right", "action", "action", "soft1",
    "soft1", "soft2", "soft2", "back", "home", "end", "pageup", "pagedown", "backspace", "delete", "shift+down",
    "shift+up", "ctrl+down", "ctrl+up", "shift+action", "ctrl+a", "tab", "+", "-", "*", "#"};
constexpr const char* Numbers[] = {"0", "1", "7", "12", "250", "2026", "10500", "99999", "2147483647", "99999999999",
    "-5", "3.459", "3,459", "1.234,5", "12/31/2026", "1e9", ".", "-"};
constexpr const char* Words[] = {"Oil", "North", "Müller & Söhne", "日本語", "\U0001F697\U0001F697", "tires, front",
    " ", "وقود", "a rather long text that no column of any list on any screen of this handset is ever going to hold"};

struct Press {
    std::string line;
    long keys;
};

struct Totals {
    long starts = 0, checks = 0, stores = 0, entries = 0;
} totals;

long Characters(const std::string& text) {
    return std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; });
}

bool Has(const std::string& line, const char* word) {
    return line.find(word) != std::string::npos;
}

class Monkey {
public:
    Monkey(const std::string& program, unsigned long seed)
        : random_(seed)
        , console_(program) { }

    long Run() {
        long keys = 0;
        while (keys < KeysInARound) {
            if (!console_.IsRunning())
                Start();
            keys += PressSome();
            if (console_.IsRunning())
                Check();
        }
        if (!console_.IsRunning())
            Start();
        Home();
        PostClose(console_);
        LogFile file(handset_.DataFile());
        file.RequireIntegrity();
        totals.entries += std::stol(file.Text("SELECT count(*) FROM entries"));
        const std::filesystem::directory_iterator documents(handset_.Documents());
        Require(std::distance(begin(documents), {}) == 1, "more than one file at rest");
        return keys;
    }

private:
    void Start() {
        ++totals.starts;
        handset_.Surroundings["HANDSET_SCREEN"] = random_.Pick(Screens);
        handset_.Surroundings["HANDSET_LOCALE"] = random_.Pick(Locales);
        handset_.Surroundings["HANDSET_CLOCK"] = random_.Pick(Times);
        handset_.Surroundings["TZ"] = random_.Pick(Zones);
        console_.Start(handset_.Surroundings);
        console_.Ask("boot");
        if (const View view = Home(); view.isVehicles && view.rows.empty())
            console_.AskAll({"key soft1", "key 1", "type Car", "key soft1"});
        Home();
    }

    // Keys

    void AddField(std::vector<Press>& presses) {
        const std::string text = random_.Chance(60) ? random_.Pick(Numbers) : random_.Pick(Words);
        presses.push_back({"key down", 1});
        presses.push_back({"type " + text, Characters(text)});
    }

    void AddForm(std::vector<Press>& presses) {
        // Only whole numbers are taken by every field of every form.
        for (auto fields = random_.Below(7); fields > 0 && random_.Chance(80); --fields) {
            presses.push_back({"key down", 1});
            presses.push_back({"type " + std::to_string(10 + random_.Below(90)), 2});
        }
        for (auto fields = random_.Below(3); fields > 0; --fields)
            random_.Chance(30) ? AddField(presses) : presses.push_back({"key down", 1});
        if (random_.Chance(30)) {
            presses.push_back({"key soft2", 1});
            presses.push_back({"key " + std::to_string(1 + random_.Below(3)), 1});
            presses.push_back({"key soft1", 1});
        }
        presses.push_back({"key soft1", 1});
    }

    void Add(std::vector<Press>& presses) {
        const auto choice = random_.Below(1000);
        if (choice < 600) {
            presses.push_back({std::string("key ") + random_.Pick(Walking), 1});
        } else if (choice < 680) {
            presses.push_back({"key " + std::to_string(random_.Below(10)), 1});
        } else if (choice < 780) {
            AddField(presses);
        } else if (choice < 850) {
            presses.push_back({"key soft1", 1});
            presses.push_back({"key " + std::to_string(1 + random_.Below(6)), 1});
            AddForm(presses);
        } else if (choice < 900) {
            presses.push_back({"key action", 1});
            AddForm(presses);
        } else if (choice < 960) { // through the frame's right menu
            presses.push_back({"key soft2", 1});
            presses.push_back({"key " + std::to_string(1 + random_.Below(8)), 1});
        } else if (choice < 985) {
            presses.push_back({"post reload", 0});
        } else if (choice < 995) {
            presses.push_back({std::string("clock ") + random_.Pick(Times), 0});
        } else {
            presses.push_back({random_.Chance(50) ? "post close" : "key ctrl+q", 1});
        }
    }

    long PressSome() {
        std::vector<Press> presses;
        long planned = 0;
        for (std::size_t told = 0; planned < KeysBetweenChecks; ++told) {
            if (told == presses.size())
                Add(presses);
            planned += presses[told].keys;
        }
        std::string lines;
        for (const Press& press : presses)
            lines += press.line + '\n';
        console_.Send(lines);
        long keys = 0;
        for (std::size_t i = 0; i < presses.size() && console_.IsRunning(); ++i) {
            const Lines answer = console_.ReadAnswer();
            Require(answer.empty() || answer[0][0] != '?', presses[i].line + ": " + (answer.empty() ? "" : answer[0]));
            Require(console_.IsRunning() || answer.back() == "exit 1 (status 1)", answer.empty() ? "" : answer.back());
            keys += presses[i].keys;
        }
        return keys;
    }

    // What must hold

    /// Every due reminder asks for its own answer.
    View Home() {
        int reminders = 0;
        if (std::filesystem::exists(handset_.DataFile()))
            reminders = std::stoi(LogFile(handset_.DataFile()).Text("SELECT count(*) FROM reminders"));
        return GoHome(console_, 20 + reminders);
    }

    void Check() {
        const View view = Home();
        if (!console_.IsRunning())
            return; // it was told to close while a form was open
        ++totals.checks;
        CheckRows(view);
        const std::string range = CheckedOne(view, "key 4", 6);
        const std::string type = CheckedOne(view, "key 5", 5);
        CheckSettings(view, std::stoi(range) - 32790, std::stoi(type) - 32796);
        if (view.isLog && random_.Chance(50))
            CheckStore();
        if (view.isVehicles && random_.Chance(80))
            console_.AskAll({"key down", "key action"});
    }

    /// As they were stored last, without their types.
    std::map<std::string, std::string> Settings() {
        std::map<std::string, std::string> values;
        for (const std::string& line : console_.Ask("registry"))
            values[line.substr(0, line.find(' '))] = line.substr(line.rfind(' ') + 1);
        return values;
    }

    void CheckRows(const View& view) {
        console_.Ask("post reload");
        const View fresh = Home();
        Require(view.isLog == fresh.isLog, "the reload changes the view");
        // Rows that compare equal stand as they came, but those of a list by date are told by their date alone.
        const bool byDate = view.isLog && Settings()["LastColSorted"] == "0";
        RequireSame(view.title, InOrder(view.rows, byDate), InOrder(fresh.rows, byDate));
        RequireSame(view.title, InOrder(view.rows, false), InOrder(fresh.rows, false));
    }

    static Lines InOrder(Lines rows, bool byDate) {
        if (!byDate)
            std::sort(rows.begin(), rows.end());
        for (std::string& row : rows)
            row.erase(0, byDate ? row.find('"') : 0);
        return rows;
    }

    static void RequireSame(const std::string& title, const Lines& before, const Lines& after) {
        for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
            const std::string was = i < before.size() ? before[i] : "nothing";
            const std::string is = i < after.size() ? after[i] : "nothing";
            Require(was == is, title.substr(0, 40).append(": a row was ").append(was).append(", is ").append(is));
        }
    }

    /// The command of the one item of a group that has the mark.
    std::string CheckedOne(const View& view, const std::string& popup, std::size_t size) {
        console_.AskAll({"key soft2", popup});
        const View menu = Look(console_);
        Require(menu.items.size() == size, "the popup of " + popup);
        std::string command;
        for (const std::string& item : menu.items) {
            Require(Has(item, " grayed ") == view.isVehicles, item);
            if (Has(item, " checked ")) {
                Require(command.empty(), "two marks: " + item);
                command = item.substr(5, 5);
            }
        }
        Require(!command.empty(), "no mark in " + popup);
        console_.Ask("key back 2");
        return command;
    }

    /// Options stores the settings when it is left with Done.
    void CheckSettings(const View& view, int range, int type) {
        console_.AskAll({"key soft2", "key 8", "key soft1"});
        Require(Look(console_).IsHome(), "Options does not close");
        auto values = Settings();
        // A custom range is never stored.
        Require(range == CustomRange || values["ViewDateRangeType"] == std::to_string(range),
            "the mark of range " + std::to_string(range) + ", stored " + values["ViewDateRangeType"]);
        Require(values["ViewEntryType"] == std::to_string(type),
            "the mark of type " + std::to_string(type) + ", stored " + values["ViewEntryType"]);
        const std::string active = values["LastActiveVehicle"];
        Require((active == "0") == view.isVehicles, "LastActiveVehicle " + active + " under " + view.title);
        if (view.isLog) {
            active_ = active;
            const std::string title = "SELECT name || ' (' || year || ')' FROM vehicles WHERE ref = ";
            Require(LogFile(handset_.DataFile()).Text(title + active) == view.title, "another vehicle's title");
        }
    }

    /// Stores an entry: the vehicle's odometer is then that of the highest one.
    void CheckStore() {
        LogFile file(handset_.DataFile());
        const std::string count = "SELECT count(*) FROM entries";
        const int before = std::stoi(file.Text(count));
        console_.AskAll(
            {"key soft1", "key 2", "key down", "type " + std::to_string(random_.Below(20'000)), "key soft1"});
        Home();
        Require(std::stoi(file.Text(count)) == before + 1, "an entry was not stored");
        const std::string highest = file.Text("SELECT max(odometer) FROM entries WHERE vehicle = " + active_);
        const std::string odometer = file.Text("SELECT odometer FROM vehicles WHERE ref = " + active_);
        Require(highest == odometer, "the odometer is " + odometer + ", the highest entry " + highest);
        ++totals.stores;
    }

    Handset handset_;
    Random random_;
    ConsoleProcess console_;
    std::string active_; ///< the RefID of the vehicle whose log shows
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak(count, arguments,
        {"monkey", 50'000, [](const std::string& console, unsigned long seed) { return Monkey(console, seed).Run(); },
            [] {
                return "keys in " + std::to_string(totals.starts) + " starts, " + std::to_string(totals.checks)
                    + " checks, " + std::to_string(totals.stores) + " stores followed, "
                    + std::to_string(totals.entries) + " entries left, no way blocked, nothing lost";
            }});
}
