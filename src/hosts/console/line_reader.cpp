#include "hosts/console/line_reader.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace device {

LineReader::LineReader() {
    // Where there is none to be had, what other processes ask waits for the next line.
    std::array<int, 2> ends{-1, -1};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) == 0) {
        wakeRead_ = ends[0];
        wakeWrite_ = ends[1];
    }
}

LineReader::~LineReader() {
    close(wakeRead_);
    close(wakeWrite_);
}

void LineReader::Wake() {
    const char byte = 1;
    // A full pipe is as good: the wait ends all the same.
    [[maybe_unused]] const auto written = write(wakeWrite_, &byte, 1);
}

bool LineReader::TakeLine(std::string& line) {
    const std::size_t end = buffer_.find('\n');
    if (end == std::string::npos) {
        if (!ended_ || buffer_.empty())
            return false;
        line = std::move(buffer_);
        buffer_.clear();
    } else {
        line = buffer_.substr(0, end);
        buffer_.erase(0, end + 1);
    }
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return true;
}

LineReader::Result LineReader::Next(std::string& line) {
    for (;;) {
        if (TakeLine(line))
            return Result::Line;
        if (ended_)
            return Result::End;
        std::array<pollfd, 2> sources{{{STDIN_FILENO, POLLIN, 0}, {wakeRead_, POLLIN, 0}}};
        if (poll(sources.data(), sources.size(), -1) < 0 && errno != EINTR)
            return Result::End;
        std::array<char, 4096> bytes{};
        if ((sources[1].revents & POLLIN) != 0) {
            while (read(wakeRead_, bytes.data(), bytes.size()) > 0) { }
            return Result::Woken;
        }
        if (sources[0].revents == 0)
            continue;
        const auto count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count > 0)
            buffer_.append(bytes.data(), static_cast<std::size_t>(count));
        else if (count == 0 || (errno != EINTR && errno != EAGAIN))
            ended_ = true;
    }
}

} // namespace device
