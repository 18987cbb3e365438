// Many starts at the same moment in one storage place, also after the winner was killed: one runs, all others give way.
// And another program that writes into the data file while this one stores records too.

#include "soak_run.h"

#include <atomic>
#include <fcntl.h>
#include <list>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr int Starts = 20;
constexpr long Saves = 150;
constexpr auto LockPatience = std::chrono::seconds(2);
/// For the machine to be slow in, beside the patience with a lock.
constexpr auto Slack = std::chrono::seconds(8);

constexpr const char* AddAnEntry = R"(
INSERT INTO entries (ref, vehicle, date, type, odometer, amount, custom1, custom2, name, notes, vendor)
  SELECT next_ref, vehicles.ref, 46000, 2, 10, 1, 0, 0, 'other', 'new', '' FROM sequence, vehicles;
UPDATE sequence SET next_ref = next_ref + 1;
UPDATE entries SET notes = 'edited' WHERE name = 'other')";

struct Totals {
    long starts = 0, kills = 0, saves = 0, writes = 0;
} totals;

/// The one of twenty processes that runs; all others have ended with 1.
std::unique_ptr<ConsoleProcess> StartTwenty(const Handset& handset, const std::string& program) {
    std::list<std::unique_ptr<ConsoleProcess>> consoles;
    for (int i = 0; i < Starts; ++i) {
        consoles.push_back(std::make_unique<ConsoleProcess>(program));
        consoles.back()->Start(handset.Surroundings);
    }
    for (const auto& console : consoles)
        console->Ask("now"); // all are ready to be switched on
    for (const auto& console : consoles)
        console->Send("boot\n");
    totals.starts += Starts;
    std::unique_ptr<ConsoleProcess> winner;
    for (auto& console : consoles) {
        const Lines answer = console->ReadAnswer();
        if (console->IsRunning()) {
            Require(!winner, "two processes run");
            winner = std::move(console);
        } else {
            Require(answer == Lines{"exit 1 (status 1)"}, "a loser's end: " + answer.back());
        }
    }
    Require(winner != nullptr, "no process runs");
    return winner;
}

void RequireNoLock(const fs::path& runtime) {
    int locks = 0;
    for (const auto& file : fs::recursive_directory_iterator(runtime)) {
        if (file.path().filename().string().rfind("mutex-", 0) != 0)
            continue;
        ++locks;
        const int lock = open(file.path().c_str(), O_RDWR | O_CLOEXEC);
        Require(flock(lock, LOCK_EX | LOCK_NB) == 0, "a lock is left: " + file.path().string());
        close(lock);
    }
    Require(locks > 0, "no lock file in " + runtime.string());
}

void StartTogether(const std::string& program, Random& random) {
    const Handset handset;
    for (int kill = 0; kill < 2; ++kill) {
        const auto winner = StartTwenty(handset, program);
        if (random.Chance(50)) // in the middle of something
            winner->Send("key action\nkey soft1\nkey 1\ntype Car\nkey soft1\n");
        winner->Kill();
        ++totals.kills;
    }
    const auto winner = StartTwenty(handset, program);
    GoHome(*winner);
    PostClose(*winner);
    RequireNoLock(handset.Folder / "runtime");
}

/// Another program: adds entries of its own, edits them and the vehicle's notes, and holds the lock for a while.
class Writer {
public:
    Writer(const std::string& path, unsigned long seed)
        : random_(seed)
        , file_(path)
        , thread_([this] { Write(); }) { }
    ~Writer() { Stop(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    void Stop() {
        stop_ = true;
        if (thread_.joinable())
            thread_.join();
    }
    int Written() const { return written_; }
    const std::string& Fault() const { return fault_; }

private:
    void Write() {
        try {
            while (!stop_) {
                const std::string number = std::to_string(written_ + 1);
                file_.Column("BEGIN IMMEDIATE; UPDATE vehicles SET notes = '" + number + "';" + AddAnEntry);
                usleep(static_cast<useconds_t>(random_.Below(random_.Chance(2) ? 500'000 : 3'000)));
                file_.Column("COMMIT");
                ++written_;
                usleep(static_cast<useconds_t>(1000 + random_.Below(8000)));
            }
        } catch (const std::exception& fault) {
            fault_ = fault.what();
        }
    }

    Random random_;
    LogFile file_;
    std::atomic<bool> stop_ = false;
    std::atomic<int> written_ = 0;
    std::string fault_;
    std::thread thread_;
};

/// Runs the lines; no answer may take longer than the patience with one lock for each transaction.
void AskInTime(ConsoleProcess& console, const Lines& lines) {
    const auto begin = Clock::now();
    console.AskAll(lines);
    Require(Clock::now() - begin < 2 * LockPatience + Slack, "an endless wait");
}

Lines FuelEntry(const std::string& odometer, const std::string& volume) {
    return {"key soft1", "key 2", "key down", "type " + odometer, "key down", "type " + volume, "key soft1"};
}

void WriteTogether(const std::string& program, unsigned long seed) {
    const Handset handset;
    ConsoleProcess console(program);
    console.Start(handset.Surroundings);
    console.AskAll({"boot", "key action", "key soft1", "key 1", "type Car", "key soft1", "key action"});
    LogFile file(handset.DataFile());
    Writer writer(handset.DataFile(), seed);
    for (long i = 1; i <= Saves; ++i) {
        AskInTime(console, FuelEntry(std::to_string(1000 + i), std::to_string(i)));
        AskInTime(console, {"key action", "key down 2", "type " + std::to_string(i + 1000), "key soft1"});
    }
    writer.Stop();
    Require(writer.Fault().empty(), "the other program: " + writer.Fault());
    totals.saves += 2 * Saves;
    totals.writes += writer.Written();
    const std::string written = std::to_string(writer.Written());
    Require(file.Text("SELECT count(*) FROM entries WHERE name = 'other' AND notes = 'edited'") == written,
        "its entries: " + written + " transactions, stored "
            + file.Text(
                "SELECT group_concat(n, '; ') FROM (SELECT count(*) || ' ' || name || ' ' || notes || ' ' || type"
                " AS n FROM entries GROUP BY name, notes, type)"));
    Require(file.Text("SELECT notes FROM vehicles") == written, "its change to the vehicle");
    Require(file.Text("SELECT count(*) FROM entries WHERE type = 1 AND custom1 = odometer") == std::to_string(Saves),
        "the program's entries");
    Require(file.Text("SELECT count(*) - count(DISTINCT ref) FROM entries") == "0", "a key was given twice");
    Require(file.Text("SELECT odometer FROM vehicles") == std::to_string(1000 + Saves), "the odometer");
    file.RequireIntegrity();
    console.Ask("post reload");
    Require(Look(console).rows.size() == std::size_t{Saves} + static_cast<std::size_t>(writer.Written()),
        "the reloaded rows");

    // A lock that stays is not waited for without end: the user hears of it, and can go on when it is gone.
    file.Column("BEGIN IMMEDIATE");
    AskInTime(console, FuelEntry("9000", "1"));
    Require(Look(console).text.find("could not be stored") != std::string::npos, "no word of the lock");
    file.Column("COMMIT");
    GoHome(console);
    AskInTime(console, FuelEntry("9001", "1"));
    Require(file.Text("SELECT group_concat(odometer) FROM entries WHERE odometer >= 9000") == "9001", "after the lock");
    PostClose(console);
}

} // namespace

int main(int count, char** arguments) {
    return RunSoak(count, arguments,
        {"many_starts", 3,
            [](const std::string& console, unsigned long seed) {
                Random random(seed);
                StartTogether(console, random);
                WriteTogether(console, seed);
                return 1L;
            },
            [] {
                return "rounds, " + std::to_string(totals.starts) + " starts, one of each twenty ran, "
                    + std::to_string(totals.kills) + " of these killed; " + std::to_string(totals.saves)
                    + " saves beside " + std::to_string(totals.writes) + " transactions of another program, none lost";
            }});
}
