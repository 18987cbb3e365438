// Takes the power away at the moment of an answer. The storage lies on a file system in an image of its own; when the
// answer comes, the image is copied as the disk has it. What the program finds on the copy must be what it had on its
// screen. A kill cannot show that: the system keeps what a dead process has written, and a disk that lost its power
// does not.
//
// Needs the superuser and loop devices; without them it says so and ends with 77.

#include "soak_run.h"

#include <cstdlib>
#include <fstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr int NotPossible = 77;

bool Succeeds(const std::string& command) {
    return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
}

void Shell(const std::string& command) {
    Require(Succeeds(command), command);
}

/// A file system in a file.
class Image {
public:
    Image(fs::path file, fs::path place)
        : file_(std::move(file))
        , place_(std::move(place)) { }
    Image(const Image&) = delete;
    Image& operator=(const Image&) = delete;
    ~Image() {
        // While a failure is on its way nothing more may be thrown.
        if (isMounted_ && !Succeeds("umount '" + place_.string() + "'"))
            std::cout << place_.string() << " is still mounted\n";
    }
    void Mount() {
        fs::create_directories(place_);
        // The file system's own timer must not write what the program has left unwritten.
        Shell("mount -o loop,noatime,commit=300 '" + file_.string() + "' '" + place_.string() + "'");
        isMounted_ = true;
    }

private:
    fs::path file_;
    fs::path place_;
    bool isMounted_ = false;
};

void MakeFileSystem(const fs::path& file) {
    std::ofstream(file).close();
    fs::resize_file(file, 16 << 20);
    Shell("mkfs.ext4 -q -m 0 '" + file.string() + "'");
}

bool IsPossible() {
    char pattern[] = "/tmp/power-XXXXXX";
    const fs::path folder = mkdtemp(pattern);
    bool isPossible = true;
    try {
        MakeFileSystem(folder / "image");
        Image(folder / "image", folder / "place").Mount();
    } catch (const std::exception& fault) {
        std::cout << "power_cuts: not possible here, since this failed: " << fault.what() << '\n';
        isPossible = false;
    }
    fs::remove_all(folder);
    return isPossible;
}

class PowerCuts : public Round {
public:
    PowerCuts(const std::string& program, unsigned long seed)
        : Round(program, seed)
        , after_(program)
        , image_(Folder / "image", Storage) {
        MakeFileSystem(Folder / "image");
        image_.Mount();
    }
    PowerCuts(const PowerCuts&) = delete;
    PowerCuts& operator=(const PowerCuts&) = delete;
    ~PowerCuts() { Console->Kill(); }

    /// A vehicle's whole life, with a cut behind each thing that is stored.
    long Run() {
        Begin("first start");
        Do("", {"key action"});
        Do("new vehicle", {"key soft1", "key 1", "type " + Word(), "key soft1"});
        Do("edited vehicle", {"key soft2", "key 1", "type " + Word(), "key soft1"});
        Do("", {"key action"});
        Do("new fill", FuelEntry(Reading()));
        Do("new repair", Paid("key 3"));
        Do("new trip", {"key soft1", "key 4", "key down", "type " + Word(), "key soft1"});
        Do("new expense", Paid("key 5"));
        Do("edited entry", {"key action", "key down", "type " + Reading(), "key soft1"});
        Do("deleted entry", {"key soft2", "key 2", "key soft1"});
        Do("deleted entries", {"key ctrl+a", "key soft2", "key 2", "key soft1"});
        Do("new reminder", {"key soft1", "key 6", "type " + Word(), "key down", "type 9999999", "key soft1"});
        Do("", {"key soft1"});
        Do("edited reminder", {"key soft2", "key 6", "key down", "key action", "type " + Word(), "key soft1"});
        Do("deleted reminder", {"key soft2", "key 2", "key soft1"});
        GoHome();
        Do("new keyword",
            {"key soft1", "key 2", "key down 5", "key action", "key soft2", "key 1", "type " + Word(), "key soft1"});
        Do("renamed keyword", {"key soft2", "key 2", "type " + Word(), "key soft1"});
        Do("deleted keyword", {"key soft2", "key 3"});
        GoHome();
        Do("options", {"key soft2", "key 8", "key right", "key soft1"}, false);
        Do("deleted vehicle", {"key back", "key soft2", "key 2", "key soft1"});
        PostClose();
        Cut("orderly end");
        std::ofstream(DataFile()) << Word();
        std::ofstream(DataFile() + "-journal") << Word();
        Shell("sync -f '" + DataFile() + "'");
        Console->Start(Surroundings);
        Console->Ask("boot");
        Do("invalid file", {"key action"}, false);
        return cuts_;
    }

private:
    std::string Word() { return "W" + std::to_string(Below(1'000'000)); }
    std::string Reading() { return std::to_string(1000 + Below(900'000)); }
    Lines FuelEntry(const std::string& odometer) { return Round::FuelEntry(std::stol(odometer)); }
    Lines Paid(const std::string& item) {
        return {"key soft1", item, "key down", "type " + Reading(), "key down", "type " + Word(), "key down 2",
            "type " + std::to_string(1 + Below(500)), "key soft1"};
    }

    void Begin(const std::string& name) {
        Console->Start(Surroundings);
        Console->Ask("boot");
        Cut(name);
    }

    /// Without a name it stores nothing.
    void Do(const std::string& name, const Lines& lines, bool changesLog = true) {
        const std::string before = changesLog && !name.empty() ? TellLog() : "";
        Console->AskAll(lines);
        if (name.empty())
            return;
        Cut(name);
        Require(!changesLog || TellLog() != before, name + " has changed nothing");
    }

    void Cut(const std::string& name) {
        fs::copy_file(Folder / "image", Folder / "cut", fs::copy_options::overwrite_existing);
        ++cuts_;
        try {
            Compare();
        } catch (const std::exception& fault) {
            throw std::runtime_error(name + ": " + fault.what());
        }
    }

    void Compare() {
        const fs::path place = Folder / "after";
        Image image(Folder / "cut", place);
        image.Mount();
        const fs::path file = place / fs::relative(DataFile(), Storage);
        Tally["journals left"] += fs::exists(file.string() + "-journal") ? 1 : 0;
        RequireSame("the files", TellFiles(Storage), TellFiles(place));
        ConsoleProcess::Surroundings surroundings = Surroundings;
        surroundings["HANDSET_STORAGE"] = place;
        after_.Start(surroundings);
        after_.Ask("boot");
        after_.Kill();
        RequireSame("the log", TellLog(), LogFile(file).Run(Everything));
        RequireSame("the files once it was opened", TellFiles(Storage), TellFiles(place));
    }

    /// Names and contents, but for what SQLite keeps and the copy of the day, which comes a moment after the start.
    static std::string TellFiles(const fs::path& place) {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(place)) {
            const std::string name = fs::relative(entry.path(), place);
            const bool isLog = entry.path().filename() == "My Vehicles.dat";
            const bool isBeside = name.rfind("copies/", 0) == 0 || entry.path().filename() == "My Vehicles.dat-journal";
            if (!entry.is_regular_file() || isBeside)
                continue;
            files[name] = isLog ? "" : FileBytes(entry.path());
        }
        std::string told;
        for (const auto& [name, contents] : files)
            told += name + ": " + contents + '\n';
        return told;
    }
    std::string TellLog() const { return Log().Run(Everything); }

    static constexpr const char* Everything
        = "PRAGMA integrity_check; SELECT * FROM vehicles; SELECT * FROM entries; SELECT * FROM keywords;"
          "SELECT * FROM reminders; SELECT * FROM sequence";

    ConsoleProcess after_;
    Image image_;
    long cuts_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    return IsPossible() ? RunSoak<PowerCuts>(count, arguments) : NotPossible;
}
