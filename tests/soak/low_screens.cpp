// Every screen of the program on screens of every height from 1 to 400, of several widths and resolutions: each must
// paint, answer keys, take another size while it is open, and let the user out again.

#include "soak_run.h"

namespace {

constexpr const char* Resolutions[] = {"96", "131", "192"};
constexpr int Widths[] = {176, 320, 1, 40, 240, 800};
constexpr int Heights = 400;
constexpr int HeightsInARound = 10;

struct Screen {
    const char* title;
    Lines keys; ///< that open it from the log
};

const Screen Screens[] = {
    {"Van (0)", {}},
    {"Van (0)", {"key soft1"}},
    {"Van (0)", {"key soft2", "key 4"}},
    {"Van (0)", {"key soft2", "key 5"}},
    {"Van (0)", {"key soft2", "key up"}},
    {"Fuel Entry", {"key soft1", "key 2"}},
    {"Fuel Entry", {"key action", "key soft2"}},
    {"Fuel Vendors", {"key soft1", "key 2", "key soft2", "key 1"}},
    {"Add Category", {"key soft1", "key 2", "key soft2", "key 1", "key soft2", "key 1", "type North"}},
    {"Entry Properties", {"key soft1", "key 3", "key soft1"}},
    {"Repair", {"key soft1", "key 3", "key up"}},
    {"Notes", {"key soft1", "key 3", "key up", "type a note of some length, in words", "key action", "key action"}},
    {"Repairs and Maintenance", {"key soft1", "key 3", "key soft2", "key 1"}},
    {"Trip", {"key soft1", "key 4"}},
    {"Expense", {"key soft1", "key 5"}},
    {"Vehicle Properties", {"key soft1", "key 1"}},
    {"Edit Reminder", {"key soft1", "key 6"}},
    {"Odoledger", {"key soft1", "key 6", "key soft1"}},
    {"Odoledger", {"key down", "key soft2", "key 2"}},
    {"Quick Stats", {"key soft2", "key 3"}},
    {"Select Date Range", {"key soft2", "key 4", "key 6"}},
    {"Select Date Range", {"key soft2", "key 4", "key 6", "key soft2"}},
    {"Upcoming Reminders", {"key soft2", "key 6"}},
    {"Edit Reminder", {"key soft2", "key 6", "key down", "key action"}},
    {"Options", {"key soft2", "key 8"}},
    {"About", {"key soft2", "key 9"}},
    {"", {"key soft2", "key 9", "key soft2"}},
    {"Reminder", {"key soft2", "key 7", "key action"}}, // a due one, over the log
    {"My Vehicles", {"key soft2", "key 7"}},
    {"Vehicle Properties", {"key soft2", "key 7", "key soft2", "key 1"}},
};

class LowScreens : public Round {
public:
    LowScreens(const std::string& program, unsigned long seed)
        : Round(program, seed)
        , round_(static_cast<int>(seed - 1)) { }

    long Run() {
        Surroundings["HANDSET_DPI"] = Resolutions[round_ % 3];
        width_ = Widths[round_ / 3 % 6];
        Surroundings["HANDSET_SCREEN"] = Size(HeightOf(0));
        Open();
        for (const long reading : {100, 200, 300})
            Console->AskAll(FuelEntry(reading));
        for (const char* reading : {"400", "150", "500"})
            Console->AskAll({"key soft1", "key 6", "type Tires", "key down", std::string("type ") + reading,
                "key soft1", "key soft1", "key soft2"});
        for (int step = 0; step < HeightsInARound; ++step)
            TryHeight(HeightOf(step));
        GoHome();
        PostClose();
        return HeightsInARound;
    }

private:
    /// After 3 x 6 x 40 rounds each resolution and width has had every height.
    int HeightOf(int step) const { return 1 + (round_ / 18 + step * (Heights / HeightsInARound)) % Heights; }
    std::string Size(int height) const { return std::to_string(width_) + "x" + std::to_string(height); }
    std::string Resize(int height) const { return "resize " + Size(height); }

    void TryHeight(int height) {
        Console->Ask(Resize(height));
        for (const Screen& screen : Screens) {
            if (!GoHome().isLog)
                Console->AskAll({"key down", "key action", "key soft2"});
            Require(GoHome().isLog, "no log at " + Resize(height));
            Console->AskAll(screen.keys);
            const View view = Look();
            RequireSame("title, " + Resize(height), screen.title, view.title);
            Poke(height);
        }
    }

    void Poke(int height) {
        Lines keys;
        for (const char* key :
            {"down 3", "up 2", "right", "left", "pagedown", "pageup", "end", "home", "shift+down", "up 9"})
            keys.push_back(std::string("key ") + key);
        Append(keys, {"screen", Resize(400 - height % 399), "screen", Resize(height), "key down", "shot /dev/null"});
        Console->AskAll(keys);
        const Lines told = Console->Ask("screen");
        Require(told.size() >= 2 && told.front()[0] == '[' && told.back()[0] == '{', "no screen at " + Resize(height));
        ++Tally["screens"];
    }

    int round_;
    int width_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak<LowScreens>(count, arguments);
}
