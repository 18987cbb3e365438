#include "fuzz_device.h"
#include "hosts/console/console_host.h"
#include "hosts/console/line_reader.h"
#include "platform/input.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <sstream>
#include <unistd.h>

namespace {

constexpr std::size_t PipeSize = 60'000;
constexpr const char* LastLine = "keydown ctrl+shift+pageup";

/// Standard input is a pipe that holds the text and is at its end then.
void Feed(const std::string& text) {
    int ends[2] = {};
    Require(pipe(ends) == 0 && write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size()), "a pipe");
    close(ends[1]);
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
}

std::vector<std::string> LinesOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line); lines.push_back(line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
    }
    return lines;
}

void CheckReader(const std::string& text) {
    Feed(text);
    device::LineReader reader;
    std::string line;
    for (const std::string& expected : LinesOf(text))
        Require(reader.Next(line) == device::LineReader::Result::Line && line == expected, "each line comes as it is");
    Require(reader.Next(line) == device::LineReader::Result::End, "and then the end");
}

/// What the console says to the text, up to the last line.
std::string AnswersTo(const std::string& text) {
    Feed("boot\n" + text + '\n' + LastLine + '\n');
    char* told = nullptr;
    std::size_t size = 0;
    std::FILE* const former = stdout;
    stdout = open_memstream(&told, &size);
    {
        device::ConsoleHost host({L"Odoledger", L"Software\\Odoledger", L"reload", L"close"});
        Require(host.WaitForBoot(), "the device starts");
        device::Desktop::The().SwitchOn(host);
        device::InputEvent event;
        do {
            host.NextEvent(event, true);
        } while (event.key != VK_PRIOR || event.modifiers != (MOD_CONTROL | MOD_SHIFT));
        device::Desktop::The().SwitchOff();
    }
    std::fclose(stdout);
    stdout = former;
    std::string answers(told, size);
    std::free(told);
    return answers;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static FuzzDevice device;
    const std::string text(data, data + size);
    if (size > PipeSize)
        return 0;
    CheckReader(text);
    // Neither a picture in a host file, nor a key pressed for minutes, nor the mark of the end is for this run.
    for (const char* each : {"shot", "pageup", "00000"}) {
        if (text.find(each) != std::string::npos)
            return 0;
    }
    const std::vector<std::string> lines = LinesOf(text);
    const std::vector<std::string> answers = LinesOf(AnswersTo(text));
    const auto commands = 1
        + std::count_if(lines.begin(), lines.end(), [](const auto& line) { return !line.empty() && line[0] != '#'; });
    Require(std::count(answers.begin(), answers.end(), ".") == commands, "each command has one answer, boot too");
    return 0;
}
