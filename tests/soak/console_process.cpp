#include "console_process.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <sys/socket.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr timeval Patience{60, 0};
constexpr int LooksInASecond = 2000;
constexpr std::size_t BytesToldOfAFault = 500;

} // namespace

ConsoleProcess::ConsoleProcess(std::string program)
    : program_(std::move(program)) {
}

void ConsoleProcess::Start(const Surroundings& surroundings) {
    int ends[2];
    // Closed in other children, so that each process sees the end of its own input.
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        throw ConsoleFault("no socket");
    process_ = fork();
    if (process_ == 0) {
        dup2(ends[0], STDIN_FILENO);
        dup2(ends[0], STDOUT_FILENO);
        for (const auto& [name, value] : surroundings)
            setenv(name.c_str(), value.c_str(), 1);
        execl(program_.c_str(), program_.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    close(ends[0]);
    socket_ = ends[1];
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &Patience, sizeof Patience);
    unread_.clear();
    sent_.clear();
}

void ConsoleProcess::Send(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    sent_ += text;
    // A process that ended meanwhile is told by the answer that never comes.
    send(socket_, text.data(), text.size(), MSG_NOSIGNAL);
}

/// False at the end of the process's output, and when it takes too long.
bool ConsoleProcess::ReadLine(std::string& line) {
    std::size_t end = 0;
    while ((end = unread_.find('\n')) == std::string::npos) {
        char bytes[65536];
        const auto count = read(socket_, bytes, sizeof bytes);
        if (count <= 0)
            return false;
        unread_.append(bytes, static_cast<std::size_t>(count));
    }
    line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return true;
}

Lines ConsoleProcess::ReadAnswer() {
    Lines answer;
    std::string line;
    while (ReadLine(line) && line != ".")
        answer.push_back(line);
    if (line != ".")
        Fail("no answer");
    if (!answer.empty() && answer.back().rfind("exit ", 0) == 0)
        answer.back() += " (status " + std::to_string(Wait()) + ")";
    return answer;
}

Lines ConsoleProcess::Ask(const std::string& command) {
    Send({command});
    return ReadAnswer();
}

Lines ConsoleProcess::AskAll(const Lines& commands) {
    Send(commands);
    Lines answer;
    for (std::size_t i = 0; i < commands.size() && IsRunning(); ++i) {
        answer = ReadAnswer();
        if (!answer.empty() && answer[0][0] == '?')
            Fail(commands[i] + " answered " + answer[0]);
    }
    return answer;
}

int ConsoleProcess::EndInput() {
    shutdown(socket_, SHUT_WR);
    return Wait();
}

int ConsoleProcess::Kill() {
    int answers = 0;
    if (IsRunning()) {
        kill(process_, SIGKILL);
        for (std::string line; ReadLine(line);)
            answers += line == "." ? 1 : 0;
        Wait();
    }
    return answers;
}

int ConsoleProcess::Wait() {
    int status = 0;
    for (long looks = Patience.tv_sec * LooksInASecond; waitpid(process_, &status, WNOHANG) == 0; --looks) {
        if (looks == 0)
            Fail("the process does not end");
        usleep(1'000'000 / LooksInASecond);
    }
    process_ = -1;
    close(std::exchange(socket_, -1));
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void ConsoleProcess::Fail(const std::string& what) {
    std::string end = "no process";
    if (IsRunning()) {
        kill(process_, SIGKILL);
        end = "status " + std::to_string(Wait()); // its own, where it had one already
    }
    const std::size_t told = std::min(sent_.size(), BytesToldOfAFault);
    throw ConsoleFault(what + ", " + end + ", sent last:\n" + sent_.substr(sent_.size() - told));
}
