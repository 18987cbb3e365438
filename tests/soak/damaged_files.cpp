// Damages a real data file, the template and the registry file in every way that a disk, a bad copy or a stranger can.
// The program must neither crash nor hang: it moves the file aside, byte for byte, or it can be used. Most of the
// damaged data files meet the data layer alone, in a process of its own; every eighth is a whole start of the console.

#include "platform/files.h"
#include "platform/system/environment.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "soak_run.h"

#include <algorithm>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* DevicePath = L"\\My Documents\\My Vehicles.dat";
constexpr std::size_t Page = 4096;
constexpr unsigned WholeStartEvery = 8;
constexpr unsigned Patience = 60; ///< seconds for the data layer
constexpr int MostMessages = 12;

/// Two vehicles with entries of all kinds, reminders and keywords, over some forty pages.
constexpr const char* MakeLog = R"(BEGIN;
INSERT INTO vehicles SELECT column1, column1, 'Car', '', '', '', 1, 2, '', '', '', '', 0, '', '', '' FROM (VALUES (1), (2));
CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 400) SELECT i FROM n;
INSERT INTO entries SELECT i, i + 10, 1 + i % 2, 45000 + i % 60, 1 + i % 4, 1000 + i, i, i, i + 1, 'name ' || i,
  hex(zeroblob(i % 7 * 20)), 'vendor' FROM n;
INSERT INTO reminders SELECT i, i + 500, 1 + i % 2, 60000, 900000, 'name ' || i, 'notes' FROM n WHERE i < 16;
INSERT INTO keywords SELECT i + 900, i + 600, 1 + i % 4, 'name ' || i, 'notes' FROM n WHERE i < 16;
UPDATE sequence SET next_ref = 2000;
COMMIT)";

/// How a process ends that uses a damaged file.
enum Outcome { MakesWay = 10, Usable, RefusesChanges };
const std::map<int, const char*> outcomes{
    {MakesWay, "make way"}, {Usable, "are usable"}, {RefusesChanges, "refuse changes"}};

void WriteBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

constexpr const wchar_t* Mark = L"stored in spite of the damage";

/// All that can be there; the number of entries under the mark.
int LoadEverything() {
    int marked = 0;
    CObjectListT<CVehicle> vehicles;
    theDataLayer.Load(&vehicles);
    for (const ULONG number : {1, 2, 3, 4}) {
        CObjectListT<CKeyword> keywords;
        theDataLayer.Load(&keywords, static_cast<CKeyword::Type>(number));
        CObjectListT<CNotification> reminders;
        theDataLayer.Load(&reminders, number);
        LONG highest = 0;
        theDataLayer.GetMaxOdometer(number, &highest);
        CEntryFilter filter;
        filter.SetVehicleID(number);
        CObjectListT<CEntry> entries;
        theDataLayer.Load(&entries, &filter);
        for (int i = 0; i < entries.GetCount(); ++i)
            marked += std::wstring(entries.Get(i)->GetName()) == Mark ? 1 : 0;
    }
    return marked;
}

Outcome UseDamagedFile(const std::string& path, const std::string& bytes) {
    const auto status = theDataLayer.Connect(DevicePath);
    if (status == CDataLayer::ConnectInvalid) {
        Require(FileBytes(path) == bytes, "an invalid file was changed");
        return MakesWay;
    }
    Require(status == CDataLayer::ConnectOK, "status " + std::to_string(status));
    LoadEverything();
    CEntry entry;
    entry.SetName(Mark);
    entry.SetVehicleID(1);
    if (!theDataLayer.Save(&entry, 0))
        return RefusesChanges;
    theDataLayer.Disconnect();
    Require(theDataLayer.Connect(DevicePath) == CDataLayer::ConnectOK, "the file got worse");
    Require(LoadEverything() == 1, "what was stored is lost");
    return Usable;
}

class DamagedFiles : public Round {
public:
    DamagedFiles(const std::string& program, unsigned long seed)
        : Round(program, seed)
        , startsWhole_(seed % WholeStartEvery == 0) { }

    long Run() {
        if (log_.empty())
            DamagedFiles(Console->Program(), 0).PrepareOriginals();
        if (!startsWhole_) {
            MeetTheDataLayer();
            return 1;
        }
        constexpr void (DamagedFiles::*starts[])() = {&DamagedFiles::DamageTemplate, &DamagedFiles::DamageRegistry,
            &DamagedFiles::DamageLog, &DamagedFiles::DamageLog};
        (this->*Pick(starts))();
        ++Tally["whole starts"];
        return 1;
    }

private:
    void PrepareOriginals() {
        template_ = FileBytes(fs::path(Console->Program()).replace_filename("Default.ENU"));
        WriteBytes(DataFile(), template_);
        Log().Run(MakeLog);
        log_ = FileBytes(DataFile());
        Walk();
        registry_ = FileBytes(Storage / "registry");
    }

    std::string Noise(std::size_t size) {
        std::string bytes(size, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(Below(256));
        return bytes;
    }

    std::string Damaged(std::string bytes) {
        const std::size_t unit = bytes.size() >= 2 * Page ? Page : std::max<std::size_t>(1, bytes.size() / 8);
        for (auto more = Chance(70) ? 1 : 2 + Below(2); more > 0 && !bytes.empty(); --more) {
            const auto kind = Below(6);
            const auto size = bytes.size();
            const auto place = Below(size);
            const auto start = place / unit * unit;
            if (kind <= 1) { // the headers of a file and of its pages say most
                for (auto flips = 1 + Below(8); flips > 0; --flips)
                    bytes[kind == 0 ? (start + Below(100)) % size : Below(size)] ^= static_cast<char>(1U << Below(8));
            } else if (kind == 2) {
                bytes.resize(Chance(50) ? place : start);
            } else if (kind == 3) {
                const auto other = Below(size / unit) * unit;
                if (other != start && start + unit <= size)
                    std::swap_ranges(&bytes[start], &bytes[start] + unit, &bytes[other]);
            } else if (kind == 4) {
                bytes += Chance(50) ? Noise(Below(3 * unit)) : bytes.substr(place);
            } else {
                const auto length = std::min(size - place, 1 + Below(2 * unit));
                bytes.replace(place, length, Chance(50) ? Noise(length) : std::string(length, '\0'));
            }
        }
        return bytes;
    }

    void MeetTheDataLayer() {
        const std::string bytes = Damaged(log_);
        WriteBytes(DataFile(), bytes);
        device::ReplaceEnvironment(Surroundings);
        const pid_t process = fork();
        if (process == 0) {
            alarm(Patience);
            try {
                _exit(UseDamagedFile(DataFile(), bytes));
            } catch (const std::exception& fault) {
                std::cerr << fault.what() << '\n';
            }
            _exit(1);
        }
        int status = 0;
        waitpid(process, &status, 0);
        const auto outcome = WIFEXITED(status) ? outcomes.find(WEXITSTATUS(status)) : outcomes.end();
        Require(outcome != outcomes.end(), "the data layer ends with status " + std::to_string(status));
        ++Tally[outcome->second];
    }

    void DamageLog() {
        const std::string bytes = Damaged(log_);
        WriteBytes(DataFile(), bytes);
        WriteBytes(Storage / "registry", registry_);
        if (Walk())
            Require(FileBytes(DataFile() + ".bad") == bytes, "the damaged log was not kept as it was");
    }

    void DamageTemplate() {
        // A program file of its own, for the damaged template that is to lie beside it.
        const fs::path program = Folder / "odoledger-console";
        fs::copy_file(Console->Program(), program);
        WriteBytes(Folder / "Default.ENU", Damaged(template_));
        Console = std::make_unique<ConsoleProcess>(program);
        Walk();
    }

    void DamageRegistry() {
        const std::string bytes = Damaged(registry_);
        const fs::path kept = Storage / "registry.bad";
        WriteBytes(DataFile(), log_);
        WriteBytes(Storage / "registry", bytes);
        Walk();
        Require(!fs::exists(kept) || FileBytes(kept) == bytes, "the damaged registry was not kept as it was");
        RequireSame("the integrity check", "ok", Log().Run("PRAGMA integrity_check"));
        RequireSame("entries", "400", Log().Run("SELECT count(*) FROM entries WHERE name LIKE 'name %'"));
    }

    /// Starts the program and walks through it; true when it said that the log was no log.
    bool Walk() {
        const bool isInvalid = Open(MostMessages, "exit 0 (status 0)").text.find("is not a valid") != std::string::npos;
        if (!Console->IsRunning())
            return isInvalid;
        const Lines walks[] = {{"key soft2", "key 3", "key down 9"}, {"key soft1", "key 2", "key soft2", "key 1"},
            {"key soft1", "key 3", "key soft2", "key 1"}, {"key soft1", "key 4", "key soft2", "key 1"},
            {"key soft2", "key 6", "key down 3"}, {"key soft2", "key 8", "key soft1"}, {"key down 9", "key action"},
            {"key soft2", "key 4", "key 5", "key soft2", "key 4", "key 1"}, FuelEntry(5000), {}};
        for (const Lines& walk : walks) {
            GoHome();
            Console->AskAll(walk);
            Console->Ask("screen");
        }
        PostClose();
        return isInvalid;
    }

    const bool startsWhole_;
    inline static std::string template_;
    inline static std::string log_;
    inline static std::string registry_;
};

} // namespace

int main(int count, char** arguments) {
    return RunSoak<DamagedFiles>(count, arguments);
}
