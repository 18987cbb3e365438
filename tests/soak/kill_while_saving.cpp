// Records are stored as fast as the program can, and the process is killed at a random moment, also while it starts.
// Afterwards the file must be sound and hold everything that was answered, each record in full; what was under way may
// be there in full or not at all.

#include "soak_run.h"

#include <algorithm>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int KillsInARound = 20;
constexpr int FirstReading = 1000;
constexpr int OleDateOfLastFebruary = 46081;

/// Its deletion is one transaction over hundreds of pages.
constexpr int SpareEntries = 3000;
constexpr const char* AddSpareVehicle = R"(BEGIN;
INSERT INTO vehicles VALUES (77, 5000, 'Spare', '', '', '', 0, 0, '', '', '', '', 0, '', '', '');
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)
  INSERT INTO entries SELECT 100000 + i, 5000 + i, 5000, 46000, 1, i, 1, 1, 1, '', hex(zeroblob(150)), '' FROM n;
UPDATE sequence SET next_ref = max(next_ref, 9000);
COMMIT)";

struct Entry {
    std::string text; ///< all its fields, as the file tells them
    long odometer;
};

struct Log {
    std::vector<Entry> entries;
    long odometer = FirstReading;
    std::string name = "Van";
    long spareEntries = 0; ///< of a second vehicle, which is there to be deleted

    std::string Told() const {
        std::string told = name + ' ' + std::to_string(odometer) + ' ' + std::to_string(spareEntries);
        for (const Entry& entry : entries)
            told += '\n' + entry.text;
        return told;
    }
    void FollowHighestEntry() {
        odometer = 0;
        for (const Entry& entry : entries)
            odometer = std::max(odometer, entry.odometer);
    }
};

/// One thing that a person does: the lines for it, and the log after each of its transactions.
struct Deed {
    Lines lines;
    std::vector<Log> stages;
};

struct Totals {
    long kills = 0, unanswered = 0, halfDone = 0, journals = 0, answered = 0;
} totals;

class Round {
public:
    Round(const std::string& program, unsigned long seed)
        : random_(seed)
        , console_(program) { }

    void Run() {
        Prepare();
        for (int kill = 0; kill < KillsInARound; ++kill) {
            SetDay(1 + kill);
            if (random_.Chance(25)) {
                console_.Start(handset_.Surroundings);
                console_.Send("boot\n");
                Strike(30'000);
                CheckFile({});
            }
            Open();
            for (auto calm = random_.Below(3); calm > 0; --calm) {
                const Clock::time_point begin = Clock::now();
                const Deed deed = NextDeed(log_);
                console_.AskAll(deed.lines);
                log_ = deed.stages.back();
                ++totals.answered;
                typical_ = (typical_ + Microseconds(begin)) / 2;
            }
            KillInTheMiddle();
        }
        Open();
        PostClose(console_);
    }

private:
    static long Microseconds(Clock::time_point since) {
        return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - since).count();
    }

    void SetDay(int day) {
        day_ = day;
        handset_.Surroundings["HANDSET_CLOCK"]
            = "2026-03-" + std::string(day < 10 ? "0" : "") + std::to_string(day) + "T10:00:00Z";
    }

    /// A vehicle whose log is the first screen from now on.
    void Prepare() {
        console_.Start(handset_.Surroundings);
        console_.AskAll({"boot", "key action", "key soft1", "key 1", "type Van", "key down 2",
            "type " + std::to_string(FirstReading), "key soft1", "key action"});
        PostClose(console_);
    }

    void Open() {
        console_.Start(handset_.Surroundings);
        console_.Ask("boot");
        const View view = Look(console_);
        Require(view.isLog && view.title == log_.name + " (0)", "after the kill [" + view.title + "]");
        Require(view.rows.size() == log_.entries.size(), "the list shows " + std::to_string(view.rows.size()));
        isFresh_ = true;
    }

    std::string Money() {
        const auto cents = 1 + random_.Below(99'999);
        const std::string text = std::to_string(1000 + cents % 100);
        return std::to_string(cents / 100) + "." + text.substr(2);
    }

    /// Fills the fuel form, which stands open.
    Entry Fill(Deed& deed) {
        const long odometer = static_cast<long>(2000 + random_.Below(900'000));
        const std::string volume = Money(), price = Money(), amount = Money();
        const std::string vendor = "V" + std::to_string(++number_) + "\u00fc\U0001F600";
        const std::string notes = std::string(random_.Below(400), 'n') + std::to_string(number_);
        for (const std::string& text : {std::to_string(odometer), volume, price, amount, vendor, notes}) {
            deed.lines.emplace_back("key down");
            deed.lines.push_back("type " + text);
        }
        deed.lines.emplace_back("key soft1");
        return {"1|" + std::to_string(odometer) + '|' + volume + '|' + price + '|' + amount + '|'
                + std::to_string(OleDateOfLastFebruary + day_) + ".0||" + vendor + '|' + notes,
            odometer};
    }

    Deed NextDeed(Log log) {
        Deed deed;
        const auto choice = isFresh_ ? random_.Below(2) * 8 : random_.Below(10);
        if (log.spareEntries != 0 && choice == 8) {
            log.spareEntries = 0;
            deed.lines = {"key back", "key up", "key soft2", "key 2", "key soft1", "key down", "key action"};
            deed.stages = {log};
            isFresh_ = true;
            return deed;
        }
        if (choice == 9) {
            log.name = "Van" + std::to_string(++number_);
            deed.lines = {"key back", "key soft2", "key 1", "type " + log.name, "key soft1", "key action"};
            deed.stages = {log};
            isFresh_ = true;
            return deed;
        }
        if (choice < 5 || choice == 8) {
            deed.lines = {"key soft1", "key 2"};
            log.entries.push_back(Fill(deed));
        } else {
            // The entry that was stored last is the selected one.
            deed.lines = {"key action"};
            log.entries.back() = Fill(deed);
        }
        isFresh_ = false;
        deed.stages = {log};
        log.FollowHighestEntry();
        deed.stages.push_back(log);
        return deed;
    }

    void KillInTheMiddle() {
        std::vector<Deed> deeds;
        Log last = log_;
        std::string batch;
        for (auto count = 1 + random_.Below(5); count > 0; --count) {
            deeds.push_back(NextDeed(last));
            last = deeds.back().stages.back();
            for (const std::string& line : deeds.back().lines)
                batch += line + "\n";
        }
        console_.Send(batch);
        auto answers = static_cast<std::size_t>(Strike(typical_ * static_cast<long>(deeds.size())));
        std::size_t done = 0;
        for (; done < deeds.size() && answers >= deeds[done].lines.size(); ++done) {
            answers -= deeds[done].lines.size();
            log_ = deeds[done].stages.back();
            ++totals.answered;
        }
        totals.unanswered += done < deeds.size() ? 1 : 0;
        CheckFile(done < deeds.size() ? deeds[done].stages : std::vector<Log>());
    }

    int Strike(long mostMicroseconds) {
        usleep(static_cast<useconds_t>(random_.Below(static_cast<unsigned long>(mostMicroseconds))));
        const int answers = console_.Kill();
        ++totals.kills;
        const std::filesystem::path journal = handset_.DataFile() + "-journal";
        totals.journals += std::filesystem::exists(journal) ? 1 : 0;
        return answers;
    }

    /// The file is as the log was left, or further by some of the stages that were under way.
    void CheckFile(const std::vector<Log>& underWay) {
        if (random_.Chance(50)) {
            // The program may be the first to find what the kill left, too.
            console_.Start(handset_.Surroundings);
            console_.Ask("boot");
            Require(Look(console_).isLog, "the program does not open the file");
            console_.Kill();
        }
        LogFile file(handset_.DataFile());
        file.RequireIntegrity();
        std::string told = file.Text("SELECT name || ' ' || odometer FROM vehicles LIMIT 1") + ' '
            + file.Text("SELECT count(*) FROM entries WHERE vehicle = 5000");
        for (const std::string& row :
            file.Column("SELECT printf('%d|%d|%.2f|%.2f|%.2f|%.1f|%s|%s|%s', type, odometer,"
                        " custom1, custom2, amount, date, name, vendor, notes)"
                        " FROM entries WHERE vehicle = (SELECT min(ref) FROM vehicles) ORDER BY id"))
            told += '\n' + row;
        Require(file.Text("SELECT count(*) FROM entries, sequence WHERE ref >= next_ref") == "0",
            "a key beyond its sequence");
        Settle(told, underWay);
        if (log_.spareEntries == 0 && random_.Chance(50)) {
            file.Column(AddSpareVehicle);
            log_.spareEntries = SpareEntries;
        }
    }

    void Settle(const std::string& told, const std::vector<Log>& underWay) {
        if (told == log_.Told())
            return;
        for (const Log& stage : underWay) {
            if (told == stage.Told()) {
                ++totals.halfDone;
                log_ = stage;
                return;
            }
        }
        throw std::runtime_error("the file holds\n" + told + "\nbut answered was\n" + log_.Told());
    }

    Handset handset_{Handset::Place::Disk};
    Random random_;
    ConsoleProcess console_;
    Log log_;
    int day_ = 1;
    int number_ = 0;
    bool isFresh_ = true; ///< the selected entry is not the one that was stored last
    long typical_ = 20'000; ///< microseconds for one deed
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak(count, arguments,
        {"kill_while_saving", KillsInARound,
            [](const std::string& console, unsigned long seed) {
                const long before = totals.kills;
                Round(console, seed).Run();
                return totals.kills - before;
            },
            [] {
                return "kills, " + std::to_string(totals.unanswered) + " with a record under way ("
                    + std::to_string(totals.halfDone) + " of them stored in full), " + std::to_string(totals.journals)
                    + " left a journal, " + std::to_string(totals.answered) + " records answered, none lost";
            }});
}
