#include "console_process.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t RecentLines = 24;

void Close(int& descriptor) {
    if (descriptor >= 0)
        close(std::exchange(descriptor, -1));
}

} // namespace

ConsoleProcess::ConsoleProcess(std::string program, std::chrono::seconds patience)
    : program_(std::move(program))
    , patience_(patience) {
    std::signal(SIGPIPE, SIG_IGN);
}

void ConsoleProcess::Start(const Surroundings& surroundings) {
    int input[2];
    int output[2];
    // Closed in other children, so that each process sees the end of its own input.
    if (pipe2(input, O_CLOEXEC) != 0 || pipe2(output, O_CLOEXEC) != 0)
        throw ConsoleFault("no pipe");
    process_ = fork();
    if (process_ == 0) {
        dup2(input[0], STDIN_FILENO);
        dup2(output[1], STDOUT_FILENO);
        for (const auto& [name, value] : surroundings)
            setenv(name.c_str(), value.c_str(), 1);
        execl(program_.c_str(), program_.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(input[0]);
    close(output[1]);
    toProcess_ = input[1];
    fromProcess_ = output[0];
    unread_.clear();
    recent_.clear();
}

void ConsoleProcess::Send(const std::string& lines) {
    if (!IsRunning())
        Fail("there is no process for " + lines);
    std::istringstream split(lines);
    for (std::string line; std::getline(split, line);)
        recent_.push_back(line);
    while (recent_.size() > RecentLines)
        recent_.pop_front();
    // A process that ended meanwhile is told by the answer that never comes.
    [[maybe_unused]] const auto written = write(toProcess_, lines.data(), lines.size());
}

/// False at the end of the process's output.
bool ConsoleProcess::ReadMore(Time limit) {
    pollfd source{fromProcess_, POLLIN, 0};
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(limit - Clock::now()).count();
    if (left <= 0 || poll(&source, 1, static_cast<int>(left)) == 0)
        Fail("no answer in " + std::to_string(patience_.count()) + " seconds");
    char bytes[65536];
    const auto count = read(fromProcess_, bytes, sizeof bytes);
    if (count > 0)
        unread_.append(bytes, static_cast<std::size_t>(count));
    return count > 0;
}

bool ConsoleProcess::TakeLine(std::string& line) {
    const std::size_t end = unread_.find('\n');
    if (end == std::string::npos)
        return false;
    line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return true;
}

Lines ConsoleProcess::ReadAnswer() {
    Lines answer;
    const Time limit = Clock::now() + patience_;
    for (std::string line;;) {
        if (TakeLine(line)) {
            if (line == ".")
                break;
            answer.push_back(std::move(line));
        } else if (!ReadMore(limit)) {
            Fail("the process ended: status " + std::to_string(Wait()));
        }
    }
    if (!answer.empty() && answer.back().rfind("exit ", 0) == 0)
        answer.back() += " (status " + std::to_string(Wait()) + ")";
    return answer;
}

Lines ConsoleProcess::Ask(const std::string& command) {
    Send(command + "\n");
    return ReadAnswer();
}

Lines ConsoleProcess::AskAll(const Lines& commands) {
    std::string lines;
    for (const std::string& command : commands)
        lines += command + "\n";
    Send(lines);
    Lines answer;
    for (std::size_t i = 0; i < commands.size() && IsRunning(); ++i)
        answer = ReadAnswer();
    return answer;
}

int ConsoleProcess::EndInput() {
    Close(toProcess_);
    return Wait();
}

int ConsoleProcess::Kill() {
    int answers = 0;
    if (IsRunning()) {
        kill(process_, SIGKILL);
        while (ReadMore(Clock::now() + patience_)) { }
        for (std::string line; TakeLine(line);)
            answers += line == "." ? 1 : 0;
        Wait();
    }
    return answers;
}

int ConsoleProcess::Wait() {
    Close(toProcess_);
    int status = 0;
    const Time limit = Clock::now() + patience_;
    while (waitpid(process_, &status, WNOHANG) == 0) {
        if (Clock::now() > limit)
            Fail("the process does not end");
        usleep(500);
    }
    process_ = -1;
    Close(fromProcess_);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void ConsoleProcess::Fail(const std::string& what) {
    std::string message = what;
    for (const std::string& line : recent_)
        message += "\n  sent: " + line;
    if (IsRunning()) {
        kill(process_, SIGKILL);
        waitpid(std::exchange(process_, -1), nullptr, 0);
    }
    Close(toProcess_);
    Close(fromProcess_);
    throw ConsoleFault(message);
}
