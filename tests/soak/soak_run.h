#pragma once

#include "../records/log_file.h"
#include "console_process.h"

#include <ctime>
#include <filesystem>
#include <iostream>
#include <iterator>
#include <memory>
#include <random>

/// Throw what is then told as the failure of the round.
void Require(bool holds, const std::string& what);
void RequireSame(const std::string& what, const std::string& wanted, const std::string& got);

std::string FileBytes(const std::filesystem::path& path);

inline void Append(Lines& lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
}

/// What the summary tells of a run beside its rounds.
inline std::map<std::string, long> Tally;

/// What stands on a console's screen, as far as `controls` tells it.
struct View {
    std::string title;
    std::string left; ///< soft keys
    std::string right;
    std::string text; ///< of a message, or of all messages on the way here
    bool isLog = false; ///< the main frame, showing the entries
    bool isVehicles = false; ///< the main frame, showing the vehicles
    Lines items; ///< of an open menu
    Lines rows; ///< of the visible list, without what is selected

    bool IsHome() const { return items.empty() && (isLog || isVehicles); }
};

/// A handset in a folder of its own, odoledger-console on it, and random choices that the seed repeats everywhere.
class Round {
public:
    /// The folder is in memory, which spares the waiting for thousands of syncs, or where the pattern says.
    Round(const std::string& program, unsigned long seed, std::string pattern = "/dev/shm/soak-XXXXXX");
    Round(const Round&) = delete;
    Round& operator=(const Round&) = delete;
    ~Round();

protected:
    static constexpr const char* OrderlyEnd = "exit 1 (status 1)";

    /// 0 to `limit` - 1.
    unsigned long Below(unsigned long limit) { return limit == 0 ? 0 : random_() % limit; }
    bool Chance(unsigned percent) { return Below(100) < percent; }
    template <typename List> const auto& Pick(const List& list) { return list[Below(std::size(list))]; }

    std::string DataFile() const { return Storage / "My Documents" / "My Vehicles.dat"; }
    LogFile Log() const { return LogFile(DataFile()); }

    View Look();
    /// Leaves whatever is open, storing nothing, until the main frame stands without a menu, or the program has come to
    /// that end. A fault when so many steps lead to neither.
    View GoHome(int mostSteps = 300, const std::string& end = OrderlyEnd);
    /// Starts the console and goes to the log of a vehicle, the first one where there is none. What stood at home
    /// first.
    View Open(int mostSteps = 300, const std::string& end = OrderlyEnd);
    static Lines FuelEntry(long odometer);
    /// Ends the program in order.
    void PostClose();

    const std::filesystem::path Folder;
    const std::filesystem::path Storage = Folder / "storage";
    ConsoleProcess::Surroundings Surroundings;
    std::unique_ptr<ConsoleProcess> Console;

private:
    std::mt19937_64 random_;
};

/// PROGRAM CONSOLE [--count N] [--seed S] [--seconds T]: rounds, each with a seed of its own, until they have done the
/// count or the time is over. `Each` is a Round whose Run does one, and gives how much of the count that was.
template <typename Each> int RunSoak(int count, char** arguments) {
    std::map<std::string, long> options{{"--count", 1}, {"--seed", 1}, {"--seconds", 24L * 60 * 60}};
    for (int i = 2; i + 1 < count; i += 2)
        options.at(arguments[i]) = std::stol(arguments[i + 1]);
    const std::string name = std::filesystem::path(arguments[0]).filename();
    const std::time_t begin = std::time(nullptr);
    long seed = options["--seed"];
    long done = 0;
    for (; done < options["--count"] && std::time(nullptr) - begin < options["--seconds"]; ++seed) {
        try {
            done += Each(arguments[1], static_cast<unsigned long>(seed)).Run();
        } catch (const std::exception& fault) {
            std::cout << name << " FAILED, repeat with --seed " << seed << " --count 1: " << fault.what() << '\n';
            return 1;
        }
    }
    std::cout << name << ": " << done << " done, nothing lost";
    for (const auto& [what, times] : Tally)
        std::cout << ", " << times << ' ' << what;
    std::cout << "; seeds " << options["--seed"] << " to " << seed - 1 << " in " << std::time(nullptr) - begin
              << " s\n";
    return 0;
}
