// Damages a real data file, the template and the registry file in every way that a disk, a bad copy or a stranger can.
// The program must neither crash nor hang: it moves the file aside, byte for byte, or it can be used. Most of the
// damaged data files meet the data layer alone, in a worker process of this same program; every eighth is a whole
// start of the console.

#include "platform/files.h"
#include "records/data_layer.h"
#include "records/entry_filter.h"
#include "soak_run.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

namespace fs = std::filesystem;

constexpr const wchar_t* DevicePath = L"\\My Documents\\My Vehicles.dat";
constexpr const char* WorkerVariable = "SOAK_WORKER";
constexpr std::size_t Page = 4096;
constexpr unsigned WholeStartEvery = 8;

std::string Noise(Random& random, std::size_t size) {
    std::string bytes(size, '\0');
    for (char& byte : bytes)
        byte = static_cast<char>(random.Below(256));
    return bytes;
}

std::string Damaged(std::string bytes, Random& random) {
    const std::size_t unit = bytes.size() >= 2 * Page ? Page : std::max<std::size_t>(1, bytes.size() / 8);
    for (auto more = random.Chance(70) ? 1 : 2 + random.Below(2); more > 0; --more) {
        const auto place = random.Below(bytes.size());
        switch (random.Below(6)) {
        case 0: // the headers of a file and of its pages say most
            for (auto flips = 1 + random.Below(4); flips > 0 && !bytes.empty(); --flips)
                bytes[(place / unit * unit + random.Below(100)) % bytes.size()]
                    ^= static_cast<char>(1U << random.Below(8));
            break;
        case 1:
            for (auto flips = 1 + random.Below(8); flips > 0 && !bytes.empty(); --flips)
                bytes[random.Below(bytes.size())] ^= static_cast<char>(1U << random.Below(8));
            break;
        case 2:
            bytes.resize(random.Chance(50) ? place : place / unit * unit);
            break;
        case 3:
            if (bytes.size() >= 2 * unit) {
                const auto first = random.Below(bytes.size() / unit) * unit;
                const auto second = random.Below(bytes.size() / unit) * unit;
                const std::string kept = bytes.substr(first, unit);
                bytes.replace(first, unit, bytes.substr(second, unit));
                bytes.replace(second, unit, kept);
            }
            break;
        case 4:
            bytes += random.Chance(50) ? Noise(random, random.Below(3 * unit)) : bytes.substr(place);
            break;
        default: {
            const auto length = std::min(bytes.size() - place, 1 + random.Below(2 * unit));
            bytes.replace(place, length, random.Chance(50) ? Noise(random, length) : std::string(length, '\0'));
        }
        }
    }
    return bytes;
}

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

// The worker: the data layer alone

/// All that is there; the number of entries under `mark`.
int LoadEverything(const std::wstring& mark) {
    int marked = 0;
    CObjectListT<CVehicle> vehicles;
    theDataLayer.Load(&vehicles);
    for (int i = 0; i < std::min(vehicles.GetCount(), 20); ++i) {
        CEntryFilter filter;
        filter.SetVehicleID(vehicles.Get(i)->GetRefID());
        CObjectListT<CEntry> entries;
        theDataLayer.Load(&entries, &filter);
        for (int k = 0; k < entries.GetCount(); ++k)
            marked += entries.Get(k)->GetName() == mark ? 1 : 0;
        CObjectListT<CNotification> reminders;
        theDataLayer.Load(&reminders, vehicles.Get(i)->GetRefID());
        LONG highest = 0;
        theDataLayer.GetMaxOdometer(vehicles.Get(i)->GetRefID(), &highest);
        theDataLayer.UpdateCurrentOdometer(vehicles.Get(i), highest);
    }
    for (int type = 1; type <= 4; ++type) {
        CObjectListT<CKeyword> keywords;
        theDataLayer.Load(&keywords, static_cast<CKeyword::Type>(type));
        for (int i = 0; i < keywords.GetCount(); i += 3)
            theDataLayer.Delete(keywords.Get(i));
    }
    return marked;
}

std::string UseDamagedFile(unsigned long seed, const std::string& path, const std::string& original) {
    Random random(seed);
    const std::string bytes = Damaged(original, random);
    fs::remove(path + "-journal");
    WriteBytes(path, bytes);
    const auto status = theDataLayer.Connect(DevicePath);
    if (status == CDataLayer::ConnectInvalid) {
        Require(FileBytes(path) == bytes, "an invalid file was changed");
        return "invalid";
    }
    Require(status == CDataLayer::ConnectOK, "status " + std::to_string(status));
    const std::wstring mark = L"seed " + std::to_wstring(seed);
    LoadEverything(mark);
    CVehicle vehicle;
    CEntry entry;
    entry.SetName(mark.c_str());
    bool stored = theDataLayer.Save(&vehicle, 0) != 0;
    entry.SetVehicleID(vehicle.GetRefID());
    stored = stored && theDataLayer.Save(&entry, 0) != 0;
    entry.SetOdometer(77);
    stored = stored && theDataLayer.Save(&entry, 0) != 0;
    theDataLayer.Disconnect();
    if (!stored)
        return "refused";
    if (theDataLayer.Connect(DevicePath) != CDataLayer::ConnectOK)
        return "worse";
    return LoadEverything(mark) == 1 ? "usable" : "lost";
}

int RunWorker() {
    const std::string path = *HostPathOf(DevicePath);
    const std::string original = FileBytes(path);
    for (std::string line; std::getline(std::cin, line);) {
        try {
            std::cout << UseDamagedFile(std::stoul(line), path, original) << '\n';
        } catch (const std::exception& fault) {
            std::cout << fault.what() << '\n';
        }
        std::cout << '.' << std::endl;
    }
    return 0;
}

// Whole starts

class Damage {
public:
    void Do(const std::string& console, unsigned long seed) {
        if (template_.empty())
            Prepare(console);
        if (seed % WholeStartEvery != 0) {
            const Lines answer = worker_->Ask(std::to_string(seed));
            Require(answer.size() == 1 && results_.count(answer[0]) != 0, answer.empty() ? "no answer" : answer[0]);
            ++results_[answer[0]];
            return;
        }
        Random random(seed);
        ++starts_;
        switch (random.Below(4)) {
        case 0:
            DamageTemplate(random);
            break;
        case 1:
            DamageRegistry(random);
            break;
        default:
            DamageLog(random);
        }
    }

    std::string Summary() {
        std::string text = "damaged files (" + std::to_string(starts_) + " of them under the whole program:";
        for (const auto& [name, count] : results_)
            text += ' ' + name + ' ' + std::to_string(count);
        return text + ")";
    }

private:
    void Prepare(const std::string& console) {
        template_ = FileBytes(fs::path(console).replace_filename("Default.ENU"));
        WriteBytes(workshop_.DataFile(), template_);
        LogFile(workshop_.DataFile()).Column(MakeLog);
        log_ = FileBytes(workshop_.DataFile());
        workshop_.Surroundings[WorkerVariable] = "1";
        worker_ = std::make_unique<ConsoleProcess>("/proc/self/exe");
        worker_->Start(workshop_.Surroundings);
        program_ = console;
        Handset own;
        WriteBytes(own.DataFile(), log_);
        ConsoleProcess process(console);
        process.Start(own.Surroundings);
        process.AskAll({"boot", "key action", "key down", "key action", "key soft2", "key 8", "key soft1"});
        PostClose(process);
        registry_ = FileBytes(own.Registry());
        // A program file of its own, for the damaged templates that are to lie beside it.
        private_ = workshop_.Folder / "program";
        fs::create_directory(private_);
        std::error_code error;
        fs::create_hard_link(console, private_ / "odoledger-console", error);
        if (error)
            fs::copy_file(console, private_ / "odoledger-console");
    }

    void DamageLog(Random& random) {
        Handset handset;
        const std::string bytes = Damaged(log_, random);
        WriteBytes(handset.DataFile(), bytes);
        WriteBytes(handset.Registry(), registry_);
        if (Walk(handset, program_))
            Require(FileBytes(handset.DataFile() + ".bad") == bytes, "the damaged log was not kept as it was");
    }

    void DamageTemplate(Random& random) {
        Handset handset;
        WriteBytes(private_ / "Default.ENU", Damaged(template_, random));
        Walk(handset, private_ / "odoledger-console");
    }

    void DamageRegistry(Random& random) {
        Handset handset;
        const std::string bytes = Damaged(registry_, random);
        WriteBytes(handset.DataFile(), log_);
        WriteBytes(handset.Registry(), bytes);
        Walk(handset, program_);
        const fs::path kept = handset.Registry().string() + ".bad";
        Require(!fs::exists(kept) || FileBytes(kept) == bytes, "the damaged registry was not kept as it was");
        LogFile log(handset.DataFile());
        log.RequireIntegrity();
        Require(
            std::stoi(log.Text("SELECT count(*) FROM entries WHERE name LIKE 'name %'")) == 400, "entries are gone");
    }

    /// Starts the program and walks through it; true when it said that the log was no log.
    bool Walk(const Handset& handset, const std::string& program) {
        ConsoleProcess console(program);
        console.Start(handset.Surroundings);
        console.Ask("boot");
        bool invalid = false;
        View view = Look(console);
        for (int messages = 0; !view.IsHome() && console.IsRunning(); ++messages) {
            Require(messages < 12, "the messages have no end: " + view.text);
            invalid |= view.text.find("is not a valid") != std::string::npos;
            const Lines answer = console.Ask(view.right.empty() ? "key action" : "key soft2");
            if (!console.IsRunning()) {
                Require(answer.back() == "exit 0 (status 0)", answer.back());
                return invalid;
            }
            view = Look(console);
        }
        if (!view.isLog)
            console.AskAll({"key soft1", "key 1", "type Car", "key soft1", "key action"});
        GoHome(console);
        const Lines keys[] = {{"key soft2", "key 3", "key down 9"}, {"key soft1", "key 2", "key soft2", "key 1"},
            {"key soft1", "key 3", "key soft2", "key 1"}, {"key soft1", "key 4", "key soft2", "key 1"},
            {"key soft2", "key 6", "key down 3"}, {"key soft2", "key 8"}, {"key down 9", "key action"},
            {"key soft2", "key 4", "key 5", "key soft2", "key 4", "key 1"}};
        for (const Lines& walk : keys) {
            console.AskAll(walk);
            console.Ask("screen");
            GoHome(console);
        }
        console.AskAll({"key soft1", "key 2", "key down", "type 5000", "key down", "type 10", "key soft1"});
        GoHome(console);
        PostClose(console);
        return invalid;
    }

    Handset workshop_;
    std::unique_ptr<ConsoleProcess> worker_;
    std::string program_;
    fs::path private_;
    std::string template_;
    std::string log_;
    std::string registry_;
    long starts_ = 0;
    std::map<std::string, long> results_{{"invalid", 0}, {"usable", 0}, {"refused", 0}};
};

} // namespace

int main(int count, char** arguments) {
    if (std::getenv(WorkerVariable))
        return RunWorker();
    Damage damage;
    return RunSoak(count, arguments,
        {"damaged_files", 2000,
            [&](const std::string& console, unsigned long seed) {
                damage.Do(console, seed);
                return 1L;
            },
            [&] { return damage.Summary(); }});
}
