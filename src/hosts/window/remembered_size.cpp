#include "hosts/window/remembered_size.h"

#include "platform/registry.h"
#include "platform/system/fresh_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <regex>

namespace device {

namespace {

constexpr LONG LeastSide = 64;
constexpr LONG MostSide = 16384;
/// In percent, so that what is written is what is read.
constexpr std::array<int, 16> ZoomSteps
    = {50, 75, 100, 125, 150, 175, 200, 250, 300, 350, 400, 500, 600, 800, 1200, 1600};
constexpr std::size_t LargestFile = 256;

int Percent(double zoom) {
    return static_cast<int>(std::lround(zoom * 100.0));
}

} // namespace

std::optional<RememberedSize> RememberedSize::Parse(std::string_view text) {
    static const std::regex Form("screen=([0-9]{2,5})x([0-9]{2,5})\nzoom=([0-9]{2,4})\n(?:fixed=([01])\n)?");
    std::cmatch parts;
    if (!std::regex_match(text.data(), text.data() + text.size(), parts, Form))
        return std::nullopt;
    const SIZE screen{std::stoi(parts[1]), std::stoi(parts[2])};
    const int percent = std::stoi(parts[3]);
    const bool isPossible = std::min(screen.cx, screen.cy) >= LeastSide && std::max(screen.cx, screen.cy) <= MostSide
        && percent >= ZoomSteps.front() && percent <= ZoomSteps.back();
    if (!isPossible)
        return std::nullopt;
    return RememberedSize{screen, percent / 100.0, parts[4].matched ? parts[4] == "1" : percent != 100};
}

std::string RememberedSize::ToText() const {
    return "screen=" + std::to_string(screen.cx) + "x" + std::to_string(screen.cy)
        + "\nzoom=" + std::to_string(Percent(zoom)) + "\nfixed=" + (isFixed ? "1" : "0") + "\n";
}

std::optional<RememberedSize> RememberedSize::Load(const std::string& file) {
    FileDescriptor descriptor;
    std::string text;
    if (OpenToRead(file, descriptor) != ERROR_SUCCESS || ReadWhole(descriptor, LargestFile, text) != ERROR_SUCCESS)
        return std::nullopt;
    return Parse(text);
}

bool RememberedSize::Store(const std::string& file) const {
    return ReplaceFile(file, ToText()) == ERROR_SUCCESS;
}

double LargerZoom(double zoom) {
    const auto* step = std::upper_bound(ZoomSteps.begin(), ZoomSteps.end(), Percent(zoom));
    return (step == ZoomSteps.end() ? ZoomSteps.back() : *step) / 100.0;
}

double SmallerZoom(double zoom) {
    const auto* step = std::lower_bound(ZoomSteps.begin(), ZoomSteps.end(), Percent(zoom));
    return (step == ZoomSteps.begin() ? ZoomSteps.front() : *(step - 1)) / 100.0;
}

} // namespace device
