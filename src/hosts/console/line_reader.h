#pragma once

#include <string>

namespace device {

/// Lines of standard input, with a wait that another thread can end.
class LineReader {
public:
    enum class Result { Line, Woken, End };

    LineReader();
    ~LineReader();
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    /// The next line without its end. A last line without an end counts.
    Result Next(std::string& line);
    /// From any thread: the current or the next wait gives Woken.
    void Wake();

private:
    bool TakeLine(std::string& line);

    std::string buffer_;
    bool ended_ = false;
    int wakeRead_ = -1;
    int wakeWrite_ = -1;
};

} // namespace device
