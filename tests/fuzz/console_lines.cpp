#include "fuzz_device.h"
#include "hosts/console/line_reader.h"

#include <algorithm>
#include <sstream>
#include <unistd.h>

namespace {

constexpr std::size_t PipeSize = 60'000;

/// Standard input is a pipe that holds the text and is at its end then.
void Feed(const std::string& text) {
    int ends[2] = {};
    Require(pipe(ends) == 0 && write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()), "a pipe");
    close(ends[1]);
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
}

} // namespace

/// Each line comes as it is, and then the end.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(data, data + std::min(size, PipeSize));
    Feed(text);
    device::LineReader reader;
    std::string line;
    std::istringstream lines(text);
    for (std::string expected; std::getline(lines, expected);) {
        if (!expected.empty() && expected.back() == '\r')
            expected.pop_back();
        Require(reader.Next(line) == device::LineReader::Result::Line && line == expected, "each line comes as it is");
    }
    Require(reader.Next(line) == device::LineReader::Result::End, "and then the end");
    return 0;
}
