// Records are stored as fast as the program can, and the process is killed at a random moment, also while it starts.
// Afterwards the file must be sound and hold everything that was answered, each record in full; what was under way may
// be there in full or not at all.

#include "soak_run.h"

#include <algorithm>
#include <unistd.h>

namespace {

constexpr int KillsInARound = 20;

/// Its deletion is one transaction over hundreds of pages.
constexpr const char* AddSpareVehicle = R"(BEGIN;
INSERT INTO vehicles VALUES (77, 5000, 'Spare', '', '', '', 0, 0, '', '', '', '', 0, '', '', '');
WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3000)
  INSERT INTO entries SELECT 100000 + i, 5000 + i, 5000, 46000, 1, i, 1, 1, 1, '', hex(zeroblob(150)), '' FROM n;
UPDATE sequence SET next_ref = max(next_ref, 9000);
COMMIT)";

constexpr const char* TellLog = R"(SELECT name, odometer FROM vehicles LIMIT 1;
SELECT count(*) FROM entries WHERE vehicle = 5000;
SELECT odometer, printf('%.2f|%.2f|%.2f', custom1, custom2, amount), vendor, notes, date, type, name
  FROM entries WHERE vehicle = (SELECT min(ref) FROM vehicles) ORDER BY id)";
constexpr const char* FuelOfToday = "46082.0|1|";

/// What the file holds after a transaction.
struct Stage {
    Lines entries; ///< as the file tells them, the odometer in front
    long odometer = 0;
    std::string name = "Van";
    bool hasSpare = false;
    std::size_t answers = 0; ///< as many as must be there when this is stored for good

    std::string Told() const {
        std::string told = name + '|' + std::to_string(odometer) + (hasSpare ? "\n3000" : "\n0");
        for (const std::string& entry : entries)
            told += '\n' + entry;
        return told;
    }
};

class KillWhileSaving : public Round {
public:
    KillWhileSaving(const std::string& program, unsigned long seed)
        : Round(program, seed, "/tmp/soak-XXXXXX") { }

    long Run() {
        Open();
        PostClose();
        for (int kill = 0; kill < KillsInARound; ++kill) {
            if (Chance(25)) {
                Console->Start(Surroundings);
                Console->Send({"boot"});
                Strike(30'000);
            }
            Reopen();
            KillInTheMiddle();
        }
        Reopen();
        PostClose();
        return KillsInARound;
    }

private:
    /// Either the program or another one is the first to find what the kill left.
    void Reopen() {
        const bool programIsFirst = Chance(50);
        if (!programIsFirst) {
            CheckFile();
            if (!stored_.hasSpare)
                Log().Run(AddSpareVehicle);
            stored_.hasSpare = true;
        }
        Console->Start(Surroundings);
        Console->Ask("boot");
        if (programIsFirst)
            CheckFile();
        const View view = Look();
        RequireSame("the first screen", stored_.name + " (0)", view.title);
        RequireSame("its rows", std::to_string(stored_.entries.size()), std::to_string(view.rows.size()));
        underWay_.clear();
        isFresh_ = true;
    }

    /// The file holds what was answered, or also some of the stages that were under way.
    void CheckFile() {
        LogFile file = Log();
        RequireSame("the integrity check", "ok", file.Run("PRAGMA integrity_check"));
        RequireSame("new keys", "0", file.Run("SELECT count(*) FROM entries, sequence WHERE ref >= next_ref"));
        const std::string told = file.Run(TellLog);
        for (const Stage& stage : underWay_)
            if (told == stage.Told())
                stored_ = stage;
        RequireSame("the file", stored_.Told(), told);
    }

    /// One thing that a person does: the lines for it, and what it makes of the last stage.
    void Add(Lines& lines, std::vector<Stage>& stages) {
        Stage stage = stages.back();
        const auto choice = isFresh_ ? Below(2) * 8 : Below(10);
        isFresh_ = (choice == 8 && stage.hasSpare) || choice == 9;
        if (choice == 9) {
            stage.name = "Van" + std::to_string(++number_);
            Append(lines, {"key back", "key soft2", "key 1", "type " + stage.name, "key soft1", "key action"});
        } else if (isFresh_) {
            stage.hasSpare = false;
            Append(lines, {"key back", "key up", "key soft2", "key 2", "key soft1", "key down", "key action"});
        } else if (choice >= 5 && choice < 8) {
            Append(lines, {"key action"}); // the entry that was stored last is the selected one
            stage.entries.back() = FillFuelForm(lines);
        } else {
            Append(lines, {"key soft1", "key 2"});
            stage.entries.push_back(FillFuelForm(lines));
        }
        stage.answers = lines.size();
        stages.push_back(stage);
        if (isFresh_)
            return;
        stages.back().odometer = 0; // which follows in a transaction of its own
        for (const std::string& entry : stage.entries)
            stages.back().odometer = std::max(stages.back().odometer, std::stol(entry));
        stages.insert(stages.end() - 1, stage);
    }

    std::string Money() { return std::to_string(Below(1000)) + '.' + std::to_string(10 + Below(90)); }

    std::string FillFuelForm(Lines& lines) {
        const std::string number = std::to_string(++number_);
        std::string told;
        for (const std::string& field : {std::to_string(2000 + Below(900'000)), Money(), Money(), Money(),
                 "V" + number + "\u00fc\U0001F600", std::string(Below(400), 'n') + number}) {
            Append(lines, {"key down", "type " + field});
            told += field + '|';
        }
        lines.emplace_back("key soft1");
        return told + FuelOfToday;
    }

    void KillInTheMiddle() {
        Lines batch;
        stored_.answers = 0;
        std::vector<Stage> stages{stored_};
        for (const auto count = 2 + Below(6); stages.size() < count;)
            Add(batch, stages);
        Console->Send(batch);
        const auto answers = static_cast<std::size_t>(Strike(pace_ * stages.size()));
        for (const Stage& stage : stages)
            if (stage.answers > answers)
                underWay_.push_back(stage);
            else
                stored_ = stage;
        // Between all and nothing is where a kill tells most.
        if (underWay_.empty())
            pace_ -= pace_ / 4;
        else if (stored_.answers == 0)
            pace_ += pace_ / 3;
        Tally["transactions answered"] += static_cast<long>(stages.size() - 1 - underWay_.size());
        Tally["transactions under way"] += static_cast<long>(underWay_.size());
    }

    int Strike(unsigned long mostMicroseconds) {
        usleep(static_cast<useconds_t>(Below(mostMicroseconds)));
        const int answers = Console->Kill();
        ++Tally["kills"];
        Tally["journals left"] += std::filesystem::exists(DataFile() + "-journal") ? 1 : 0;
        return answers;
    }

    Stage stored_; ///< what was answered
    std::vector<Stage> underWay_; ///< when the last kill came
    bool isFresh_ = true; ///< the selected entry is not the one that was stored last
    int number_ = 0;
    unsigned long pace_ = 20'000; ///< microseconds for one transaction
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak<KillWhileSaving>(count, arguments);
}
