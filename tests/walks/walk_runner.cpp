// Runs a walk: a transcript of odoledger-console, the lines a person would give and what must come back. A failure
// tells both answers, the wanted one and the one that came.
//
//   $ COMMAND; ...     given one by one; the lines below are the last one's answer, those before must have none
//   ...                in an answer: any lines, also none
//   % play WALK        first the whole of another walk of this folder, in which the runner must be started
//   % env NAME=VALUE   the surroundings of the processes started from here on
//   % write FILE TEXT  makes a file below the storage folder, and the folders on its way
//   % same FILE TEXT   % mode FILE OCTAL  % remove FILE
//   % second           another process starts on the same storage: it must give way at once, with exit 1
//   % end              the end of input: the process must end with status 3
//   # comment
//
// The first command after the start, an exit or % end starts a process on the same storage folder.

#include "soak_run.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;

/// Whether an answer is what a walk wants; "..." stands for any lines.
bool Matches(const Lines& wanted, std::size_t want, const Lines& got, std::size_t have) {
    if (want == wanted.size())
        return have == got.size();
    if (wanted[want] == "...")
        return Matches(wanted, want + 1, got, have) || (have < got.size() && Matches(wanted, want, got, have + 1));
    return have < got.size() && wanted[want] == got[have] && Matches(wanted, want + 1, got, have + 1);
}

class Walk : public Round {
public:
    using Round::Round;

    /// The number of failures so far, each of which is told. A walk that cannot be read is one.
    int Run(const std::string& name) {
        std::ifstream walk(name);
        Expect(walk.is_open(), 0, "no such walk: " + name);
        std::string line;
        for (int number = 1; std::getline(walk, line); ++number) {
            const bool isAnswer = !line.empty() && line[0] != '$' && line[0] != '%' && line[0] != '#';
            if (isAnswer) {
                wanted_.push_back(line);
                continue;
            }
            Compare();
            if (line.rfind("% ", 0) == 0)
                Direct(line.substr(2), number);
            if (line.rfind("$ ", 0) != 0)
                continue;
            command_ = line;
            commandLine_ = number;
            Give(line.substr(2) + "; ");
        }
        Compare();
        return failures_;
    }

private:
    void Give(const std::string& commands) {
        if (!Console->IsRunning())
            Console->Start(Surroundings);
        for (std::size_t start = 0, end = 0; (end = commands.find("; ", start)) != std::string::npos; start = end + 2) {
            Expect(got_.empty(), commandLine_, "answered too early: " + commands);
            got_ = Console->Ask(commands.substr(start, end - start));
        }
    }

    /// The line before is over.
    void Compare() {
        if (!Expect(Matches(wanted_, 0, got_, 0), commandLine_, command_)) {
            for (const std::string& line : wanted_)
                std::cout << "  wanted: " << line << '\n';
            for (const std::string& line : got_)
                std::cout << "  got:    " << line << '\n';
        }
        wanted_.clear();
        got_.clear();
    }

    bool Expect(bool isRight, int number, const std::string& what) {
        if (!isRight) {
            ++failures_;
            std::cout << "line " << number << ": " << what << '\n';
        }
        return isRight;
    }

    void Direct(const std::string& directive, int number) {
        std::istringstream words(directive);
        std::string verb;
        std::string name;
        words >> verb >> name;
        std::string rest;
        std::getline(words >> std::ws, rest);
        for (char& letter : name)
            letter = letter == '?' ? ' ' : letter; // a blank in a file's name is written as "?"
        const fs::path file = Storage / name;
        if (verb == "env") {
            const std::size_t equals = directive.find('=');
            Surroundings[directive.substr(4, equals - 4)] = directive.substr(equals + 1);
        } else if (verb == "play") {
            Run(name);
        } else if (verb == "write") {
            fs::create_directories(file.parent_path());
            std::ofstream(file, std::ios::binary) << rest;
        } else if (verb == "same") {
            Expect(fs::exists(file) && FileBytes(file) == rest, number, directive);
        } else if (verb == "mode") {
            chmod(file.c_str(), static_cast<mode_t>(std::strtoul(rest.c_str(), nullptr, 8)));
        } else if (verb == "remove") {
            fs::remove_all(file);
        } else if (verb == "second") {
            ConsoleProcess other(Console->Program());
            other.Start(Surroundings);
            Expect(other.Ask("boot") == Lines{"exit 1 (status 1)"}, number, directive);
        } else {
            Expect(verb == "end" && Console->EndInput() == 3, number, directive);
        }
    }

    std::string command_;
    int commandLine_ = 0;
    Lines wanted_;
    Lines got_;
    int failures_ = 0;
};

} // namespace

int main(int count, char** arguments) {
    if (count != 3) {
        std::cerr << "walk_runner CONSOLE WALK\n";
        return 2;
    }
    try {
        return Walk(arguments[1], 1).Run(arguments[2]) == 0 ? 0 : 1;
    } catch (const ConsoleFault& fault) {
        std::cout << fault.what() << '\n';
        return 1;
    }
}
