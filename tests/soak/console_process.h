#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <vector>

using Lines = std::vector<std::string>;

/// A console that does not answer, or that ended without saying so; told with the last lines that it was sent.
struct ConsoleFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// odoledger-console as a child process, spoken to through a socket. No wait is endless: what takes longer than a
/// minute is a ConsoleFault.
class ConsoleProcess {
public:
    using Surroundings = std::map<std::string, std::string>;

    explicit ConsoleProcess(std::string program);
    ~ConsoleProcess() { Kill(); }
    ConsoleProcess(const ConsoleProcess&) = delete;
    ConsoleProcess& operator=(const ConsoleProcess&) = delete;

    void Start(const Surroundings& surroundings);
    /// Whether there is a process that has not been waited for.
    bool IsRunning() const { return process_ > 0; }
    const std::string& Program() const { return program_; }

    /// The lines are not waited for. What has no answer yet must fit into a socket.
    void Send(const Lines& lines);
    /// The oldest answer that was not read, without its closing "."; behind "exit N" stands the status of the process.
    Lines ReadAnswer();
    Lines Ask(const std::string& command);
    /// Sends all the lines at once and reads all their answers; the last one is returned, or the one that told the end.
    /// A line that is not understood is a ConsoleFault.
    Lines AskAll(const Lines& commands);

    /// The status of the process after its input has ended; the negative signal's number where that ended it.
    int EndInput();
    /// Ends the process at once. The number of whole answers that it had given and nobody had read.
    int Kill();

private:
    bool ReadLine(std::string& line);
    int Wait();
    [[noreturn]] void Fail(const std::string& what);

    std::string program_;
    pid_t process_ = -1;
    int socket_ = -1;
    std::string unread_;
    std::string sent_;
};
