// Runs a walk: a transcript of odoledger-console, the lines a person would give and what must come back.
//
//   $ COMMAND          given to the console; the lines below it are the answer, without its closing "."
//   ...                in an answer: any lines, also none
//   % play WALK        first the whole of another walk of this folder, in which the runner must be started
//   % env NAME=VALUE   the surroundings of the processes started from here on
//   % write FILE TEXT  makes a file below the storage folder; "\n" in TEXT is a line end
//   % mode FILE OCTAL  % remove FILE  % exists FILE  % missing FILE  % same FILE TEXT
//   % second           another process starts on the same storage: it must give way at once, with exit 1
//   % kill             the process is killed, as by a failing battery
//   % end              the end of input: the process must end with status 3
//   # comment
//
// The first command after the start, an exit, % kill or % end starts a process on the same storage folder.
// walk_runner CONSOLE WALK compares; walk_runner --record CONSOLE WALK prints the walk with the answers as they are.

#include "console_process.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

/// Whether an answer is what a walk wants; "..." stands for any lines.
bool Matches(const Lines& wanted, std::size_t want, const Lines& got, std::size_t have) {
    if (want == wanted.size())
        return have == got.size();
    if (wanted[want] == "...") {
        for (std::size_t next = have; next <= got.size(); ++next) {
            if (Matches(wanted, want + 1, got, next))
                return true;
        }
        return false;
    }
    return have < got.size() && wanted[want] == got[have] && Matches(wanted, want + 1, got, have + 1);
}

std::string FileText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

class Walk {
public:
    Walk(std::string console, bool record)
        : console_(std::move(console))
        , record_(record) {
        std::string pattern = (fs::temp_directory_path() / "walk-XXXXXX").string();
        if (!mkdtemp(pattern.data()))
            std::exit(2);
        folder_ = pattern;
        fs::create_directory(folder_ / "runtime");
        fs::permissions(folder_ / "runtime", fs::perms::owner_all);
        surroundings_ = {{"HANDSET_STORAGE", (folder_ / "storage").string()}, {"HANDSET_LOCALE", "en_US"},
            {"XDG_RUNTIME_DIR", (folder_ / "runtime").string()}, {"TZ", "UTC"},
            {"HANDSET_CLOCK", "2026-03-01T10:00:00Z"}};
    }

    ~Walk() {
        console_.Kill();
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;

    int Run(std::istream& walk) {
        std::string line;
        for (int number = 1; std::getline(walk, line); ++number) {
            if (line.rfind("$ ", 0) == 0) {
                Settle();
                command_ = line.substr(2);
                commandLine_ = number;
                if (!console_.IsRunning())
                    console_.Start(surroundings_);
                got_ = Ask(console_, command_);
            } else if (line.rfind("% ", 0) == 0) {
                Settle();
                Echo(line);
                Direct(line.substr(2), number);
            } else if (line.empty() || line[0] == '#') {
                Settle();
                Echo(line);
            } else {
                wanted_.push_back(line);
            }
        }
        Settle();
        return failures_ == 0 ? 0 : 1;
    }

private:
    /// The answer; a process that gives none is told in its place.
    static Lines Ask(ConsoleProcess& console, const std::string& command) {
        try {
            return console.Ask(command);
        } catch (const ConsoleFault& fault) {
            return {std::string("(") + fault.what() + ")"};
        }
    }

    void Echo(const std::string& line) const {
        if (record_)
            std::cout << line << '\n';
    }

    /// The command before is over: its answer is compared, or told.
    void Settle() {
        if (commandLine_ == 0)
            return;
        if (record_) {
            std::cout << "$ " << command_ << '\n';
            // An answer that is still right stays as it is written, with its "...".
            const bool isRight = Matches(wanted_, 0, got_, 0);
            for (const std::string& line : isRight ? wanted_ : got_)
                std::cout << line << '\n';
        } else if (!Matches(wanted_, 0, got_, 0)) {
            Fail(commandLine_, "$ " + command_);
            for (const std::string& line : wanted_)
                std::cout << "  wanted: " << line << '\n';
            for (const std::string& line : got_)
                std::cout << "  got:    " << line << '\n';
        }
        wanted_.clear();
        got_.clear();
        commandLine_ = 0;
    }

    void Fail(int number, const std::string& what) {
        ++failures_;
        std::cout << "line " << number << ": " << what << '\n';
    }

    void Play(const std::string& name, int number) {
        std::ifstream walk(name);
        const bool wasRecording = std::exchange(record_, false);
        if (!walk || Run(walk) != 0)
            Fail(number, "played " + name);
        record_ = wasRecording;
    }

    void Direct(const std::string& directive, int number) {
        std::istringstream words(directive);
        std::string verb;
        std::string name;
        words >> verb >> name;
        std::string rest;
        std::getline(words >> std::ws, rest);
        for (std::size_t place = 0; (place = rest.find("\\n", place)) != std::string::npos;)
            rest.replace(place, 2, "\n");
        for (char& letter : name)
            letter = letter == '?' ? ' ' : letter; // a blank in a file's name is written as "?"
        const fs::path file = folder_ / "storage" / name;
        if (verb == "env") {
            const std::size_t equals = directive.find('=');
            surroundings_[directive.substr(4, equals - 4)] = directive.substr(equals + 1);
        } else if (verb == "play") {
            Play(name, number);
        } else if (verb == "write") {
            fs::create_directories(file.parent_path());
            std::ofstream(file, std::ios::binary) << rest;
        } else if (verb == "folder") {
            fs::create_directories(file);
        } else if (verb == "mode") {
            chmod(file.c_str(), static_cast<mode_t>(std::strtoul(rest.c_str(), nullptr, 8)));
        } else if (verb == "remove") {
            fs::remove_all(file);
        } else if (verb == "exists" || verb == "missing") {
            if (fs::exists(file) != (verb == "exists"))
                Fail(number, directive);
        } else if (verb == "same") {
            if (FileText(file) != rest)
                Fail(number, directive);
        } else if (verb == "second") {
            ConsoleProcess other(console_.Program());
            other.Start(surroundings_);
            if (const Lines answer = Ask(other, "boot"); answer != Lines{"exit 1 (status 1)"})
                Fail(number, "the second process did not give way: " + (answer.empty() ? "(no answer)" : answer[0]));
        } else if (verb == "kill") {
            console_.Kill();
        } else if (verb == "end") {
            if (const int status = console_.EndInput(); status != 3)
                Fail(number, "end of input gave status " + std::to_string(status));
        } else {
            Fail(number, "no such directive: " + directive);
        }
    }

    ConsoleProcess console_;
    bool record_;
    fs::path folder_;
    ConsoleProcess::Surroundings surroundings_;
    std::string command_;
    int commandLine_ = 0;
    Lines wanted_;
    Lines got_;
    int failures_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    const bool record = count > 1 && std::string(arguments[1]) == "--record";
    const int first = record ? 2 : 1;
    if (count != first + 2) {
        std::cerr << "walk_runner [--record] CONSOLE WALK\n";
        return 2;
    }
    std::ifstream walk(arguments[first + 1]);
    if (!walk) {
        std::cerr << "no such walk: " << arguments[first + 1] << '\n';
        return 2;
    }
    try {
        return Walk(arguments[first], record).Run(walk);
    } catch (const ConsoleFault& fault) {
        std::cout << fault.what() << '\n';
        return 1;
    }
}
