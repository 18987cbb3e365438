// Many starts at the same moment in one storage place, also after the winner was killed: one runs, all others give way.
// And another program that writes into the data file while this one stores records too.

#include "soak_run.h"

#include <chrono>
#include <future>
#include <unistd.h>

namespace {

constexpr int Starts = 20;
constexpr long Saves = 150;
/// The patience with a lock in each of two transactions, and time for the machine to be slow in.
constexpr auto MostForARecord = std::chrono::seconds(2 * 2 + 46);

constexpr const char* AddAnEntry = R"(
INSERT INTO entries (ref, vehicle, date, type, odometer, amount, custom1, custom2, name, notes, vendor)
  SELECT next_ref, vehicles.ref, 46000, 2, 10, 1, 0, 0, 'other', 'new', '' FROM sequence, vehicles;
UPDATE sequence SET next_ref = next_ref + 1;
UPDATE entries SET notes = 'edited' WHERE name = 'other')";

class ManyStarts : public Round {
public:
    using Round::Round;

    long Run() {
        for (int kill = 0; kill < 2; ++kill) {
            StartTwenty();
            if (Chance(50)) // in the middle of something
                Console->Send({"key action", "key soft1", "key 1", "type Car", "key soft1"});
            Console->Kill();
        }
        StartTwenty();
        GoHome();
        PostClose();
        Open();
        WriteBesideAnother();
        MeetALockThatStays();
        PostClose();
        return 1;
    }

private:
    /// One of twenty processes runs; all others end with 1.
    void StartTwenty() {
        std::vector<std::unique_ptr<ConsoleProcess>> consoles;
        for (int i = 0; i < Starts; ++i) {
            consoles.push_back(std::make_unique<ConsoleProcess>(Console->Program()));
            consoles.back()->Start(Surroundings);
        }
        for (const auto& console : consoles)
            console->Ask("now"); // all are ready to be switched on
        for (const auto& console : consoles)
            console->Send({"boot"});
        int running = 0;
        for (auto& console : consoles) {
            const Lines answer = console->ReadAnswer();
            if (!console->IsRunning()) {
                RequireSame("a loser's end", OrderlyEnd, answer.back());
                continue;
            }
            ++running;
            std::swap(Console, console);
        }
        Require(running == 1, std::to_string(running) + " processes run");
        Tally["starts"] += Starts;
    }

    /// Another program adds entries of its own, edits them and the vehicle's notes, and holds the lock for a while.
    void WriteBesideAnother() {
        auto saves = std::async(std::launch::async, [this] {
            for (long i = 1; i <= Saves; ++i) {
                AskInTime(FuelEntry(1000 + i));
                AskInTime({"key action", "key down 2", "type " + std::to_string(i + 1000), "key soft1"});
            }
        });
        LogFile file = Log();
        long written = 0;
        while (saves.wait_for(std::chrono::microseconds(1000 + Below(8000))) == std::future_status::timeout) {
            const std::string number = std::to_string(++written);
            file.Run("BEGIN IMMEDIATE; UPDATE vehicles SET notes = '" + number + "';" + AddAnEntry);
            usleep(static_cast<useconds_t>(Below(Chance(2) ? 500'000 : 3'000)));
            file.Run("COMMIT");
        }
        saves.get();
        Tally["saves"] += 2 * Saves;
        Tally["transactions of another program"] += written;
        const std::pair<const char*, std::string> expected[] = {
            {"SELECT count(*) FROM entries WHERE name = 'other' AND notes = 'edited'", std::to_string(written)},
            {"SELECT notes FROM vehicles", std::to_string(written)},
            {"SELECT count(*) FROM entries WHERE type = 1 AND custom1 = odometer", std::to_string(Saves)},
            {"SELECT count(*) - count(DISTINCT ref) FROM entries", "0"},
            {"SELECT odometer FROM vehicles", std::to_string(1000 + Saves)},
            {"PRAGMA integrity_check", "ok"},
        };
        for (const auto& [question, answer] : expected)
            RequireSame(question, answer, file.Run(question));
        Console->Ask("post reload");
        RequireSame("the rows", std::to_string(Saves + written), std::to_string(Look().rows.size()));
    }

    /// It is not waited for without end: the user hears of it, and can go on when it is gone.
    void MeetALockThatStays() {
        LogFile file = Log();
        file.Run("BEGIN IMMEDIATE");
        AskInTime(FuelEntry(9000));
        Require(Look().text.find("could not be stored") != std::string::npos, "no word of the lock");
        file.Run("COMMIT");
        GoHome();
        AskInTime(FuelEntry(9001));
        RequireSame("after the lock", "9001", file.Run("SELECT odometer FROM entries WHERE odometer >= 9000"));
    }

    void AskInTime(const Lines& lines) {
        const auto begin = std::chrono::steady_clock::now();
        Console->AskAll(lines);
        Require(std::chrono::steady_clock::now() - begin < MostForARecord, "an endless wait");
    }
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak<ManyStarts>(count, arguments);
}
