// Presses keys, and buttons of a mouse, at random, weighted so that forms do get filled in and stored, on screens of
// many sizes, in several languages, zones and times. Every hundred keys there must be a way out to the main frame, and
// what stands there must be in order.

#include "soak_run.h"

#include <algorithm>

namespace {

constexpr long KeysInARound = 5000;
constexpr std::size_t LinesBetweenChecks = 100;
constexpr int FirstRangeCommand = 32790;
constexpr int FirstTypeCommand = 32796;
constexpr const char* CustomRange = "5";

constexpr const char* Screens[] = {"1x1", "176x220", "240x320", "320x480", "800x480"};
constexpr const char* Locales[] = {"en_US", "de_DE", "fr_FR", "ar_EG", "hi_IN", "ja_JP", "bn_BD"};
constexpr const char* Zones[] = {"UTC", "America/New_York", "Asia/Kolkata", "Pacific/Auckland", "Etc/GMT+12"};
constexpr const char* Times[] = {"2026-03-01T10:00:00Z", "2024-02-29T23:59:59.999Z", "2025-12-31T23:59:50.001Z",
    "2026-10-25T00:30:00Z", "2026-03-29T01:30:00Z", "1999-12-31T12:00:00Z", "2099-06-15T00:00:00Z"};
constexpr const char* Walking[] = {"down", "down", "down", "up", "up", "left", "right", "action", "action", "soft1",
    "soft1", "soft2", "soft2", "back", "home", "end", "pageup", "pagedown", "backspace", "delete", "shift+down",
    "shift+up", "ctrl+down", "ctrl+up", "shift+action", "ctrl+a", "ctrl+x", "ctrl+c", "ctrl+v", "shift+left", "menu",
    "tab", "+", "-", "*", "#"};
constexpr const char* Mouse[] = {"click", "click", "double", "down", "move", "move", "up"};
constexpr const char* Buttons[] = {"left", "left", "left", "left", "middle", "right"};
constexpr const char* Numbers[] = {"0", "1", "7", "12", "250", "2026", "10500", "99999", "2147483647", "99999999999",
    "-5", "3.459", "3,459", "1.234,5", "12/31/2026", "1e9", ".", "-"};
constexpr const char* Words[] = {"Oil", "North", "Müller & Söhne", "日本語", "\U0001F697\U0001F697", "tires, front",
    " ", "وقود", "a rather long text that no column of any list on any screen of this handset is ever going to hold"};

class Monkey : public Round {
public:
    using Round::Round;

    long Run() {
        long keys = 0;
        while (keys < KeysInARound) {
            Start();
            keys += PressSome();
            if (Console->IsRunning())
                Check();
        }
        Start();
        GoHome();
        for (const char* wrong : {"nothing", "key nosuch", "key up x", "clock x", "registry set", "post x", "keydown",
                 "mouse click 1", "mouse click 1 2 nosuch", "mouse wheel 1 2", "mouse down 99999 1"})
            Require(Console->Ask(wrong).at(0)[0] == '?', wrong);
        PostClose();
        RequireSame("the integrity check", "ok", Log().Run("PRAGMA integrity_check"));
        Tally["entries left"] += std::stol(Log().Run("SELECT count(*) FROM entries"));
        const std::filesystem::directory_iterator documents(Storage / "My Documents");
        Require(std::distance(begin(documents), {}) == 1, "more than one file at rest");
        return keys;
    }

private:
    void Start() {
        if (Console->IsRunning())
            return;
        ++Tally["starts"];
        Surroundings["HANDSET_SCREEN"] = Pick(Screens);
        Surroundings["HANDSET_LOCALE"] = Pick(Locales);
        Surroundings["HANDSET_CLOCK"] = Pick(Times);
        Surroundings["TZ"] = Pick(Zones);
        Open();
        GoHome();
    }

    // Keys

    Lines Field() {
        return {"key down", std::string(Chance(80) ? "type " : "paste ") + (Chance(60) ? Pick(Numbers) : Pick(Words))};
    }
    std::string Digit(unsigned long highest) { return "key " + std::to_string(1 + Below(highest)); }

    Lines Form(const std::string& opening) {
        Lines keys{opening};
        if (opening == "key soft1")
            Append(keys, {Digit(6)});
        // Only whole numbers are taken by every field of every form.
        for (auto fields = Below(7); fields > 0 && Chance(80); --fields)
            Append(keys, {"key down", "type " + std::to_string(10 + Below(90))});
        for (auto fields = Below(3); fields > 0; --fields)
            Append(keys, Chance(30) ? Field() : Lines{"key down"});
        if (Chance(30))
            Append(keys, {"key soft2", Digit(3), "key soft1"});
        Append(keys, {"key soft1"});
        return keys;
    }

    /// Also beside the screen, as far as a desktop's mouse goes while a button is held.
    std::string Pointed() {
        const std::string place = std::to_string(Below(340)) + " " + std::to_string(Below(500));
        if (Chance(10))
            return "mouse wheel " + place + (Chance(50) ? " 3" : " -3");
        return std::string("mouse ") + Pick(Mouse) + " " + place + " " + Pick(Buttons);
    }

    Lines Some() {
        const auto choice = Below(1000);
        if (choice < 450)
            return {std::string("key ") + Pick(Walking)};
        if (choice < 600)
            return {Pointed()};
        if (choice < 680)
            return {"key " + std::to_string(Below(10))};
        if (choice < 780)
            return Field();
        if (choice < 900)
            return Form(choice < 850 ? "key soft1" : "key action");
        if (choice < 960) // through the frame's right menu
            return {"key soft2", Digit(8)};
        if (choice < 985)
            return {"post reload"};
        if (choice < 995)
            return {std::string("clock ") + Pick(Times)};
        return {Chance(50) ? "post close" : "key ctrl+q"};
    }

    /// The number of lines, which hold more keys than that: a text has several, a posted message none.
    long PressSome() {
        Lines presses;
        while (presses.size() < LinesBetweenChecks)
            Append(presses, Some());
        const Lines answer = Console->AskAll(presses);
        if (!Console->IsRunning())
            RequireSame("the end", OrderlyEnd, answer.back());
        return Console->IsRunning() ? static_cast<long>(presses.size()) : 0;
    }

    // What must hold

    void Check() {
        const View view = GoHome();
        if (!Console->IsRunning())
            return; // it was told to close while a form was open
        ++Tally["checks"];
        CheckRows(view);
        const std::string range = CheckedOne(view, "key 4", 6, FirstRangeCommand);
        const std::string type = CheckedOne(view, "key 5", 5, FirstTypeCommand);
        CheckSettings(view, range, type);
        if (view.isLog && Chance(50))
            CheckStore();
        if (view.isVehicles && Chance(80))
            Console->AskAll({"key down", "key action"});
    }

    /// As it was stored last, without its type.
    std::string Setting(const std::string& name) {
        for (const std::string& line : Console->Ask("registry"))
            if (line.rfind(name + ' ', 0) == 0)
                return line.substr(line.rfind(' ') + 1);
        return "nothing";
    }

    void CheckRows(const View& view) {
        Console->Ask("post reload");
        const View fresh = GoHome();
        Require(view.isLog == fresh.isLog, "the reload changes the view");
        // Rows that compare equal stand as they came, but those of a list by date are told by their date alone.
        if (view.isLog && Setting("LastColSorted") == "0")
            RequireSame(view.title + ", dates", Told(fresh.rows, true), Told(view.rows, true));
        RequireSame(view.title + ", rows", Told(fresh.rows, false), Told(view.rows, false));
    }

    static std::string Told(Lines rows, bool byDate) {
        if (!byDate)
            std::sort(rows.begin(), rows.end());
        std::string told;
        for (const std::string& row : rows)
            told += row.substr(byDate ? row.find('"') : 0) + '\n';
        return told;
    }

    /// The place in its group of the one item that has the mark.
    std::string CheckedOne(const View& view, const std::string& popup, std::size_t size, int first) {
        Console->AskAll({"key soft2", popup});
        const View menu = Look();
        Require(menu.items.size() == size, "the popup of " + popup);
        std::string checked;
        for (const std::string& item : menu.items) {
            Require((item.find(" grayed ") != std::string::npos) == view.isVehicles, item);
            if (item.find(" checked ") != std::string::npos)
                checked += std::to_string(std::stoi(item.substr(5)) - first);
        }
        Require(checked.size() == 1, "marks in " + popup + ": " + checked);
        Console->Ask("key back 2");
        return checked;
    }

    /// Options stores the settings when it is left with Done.
    void CheckSettings(const View& view, const std::string& range, const std::string& type) {
        Console->AskAll({"key soft2", "key 8", "key soft1"});
        Require(Look().IsHome(), "Options does not close");
        if (range != CustomRange) // which is never stored
            RequireSame("the stored range", range, Setting("ViewDateRangeType"));
        RequireSame("the stored type", type, Setting("ViewEntryType"));
        active_ = Setting("LastActiveVehicle");
        Require((active_ == "0") == view.isVehicles, "LastActiveVehicle " + active_ + " under " + view.title);
        const std::string title = "SELECT name || ' (' || year || ')' FROM vehicles WHERE ref = ";
        if (view.isLog)
            RequireSame("the title", Log().Run(title + active_), view.title);
    }

    /// Stores an entry: the vehicle's odometer is then that of the highest one.
    void CheckStore() {
        const std::string count = "SELECT count(*) FROM entries";
        const int before = std::stoi(Log().Run(count));
        Console->AskAll(FuelEntry(static_cast<long>(Below(20'000))));
        GoHome();
        RequireSame("the entries", std::to_string(before + 1), Log().Run(count));
        RequireSame("the odometer", Log().Run("SELECT max(odometer) FROM entries WHERE vehicle = " + active_),
            Log().Run("SELECT odometer FROM vehicles WHERE ref = " + active_));
        ++Tally["stores followed"];
    }

    std::string active_; ///< the RefID of the vehicle whose log shows
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak<Monkey>(count, arguments);
}
