#include "hosts/window/remembered_size.h"

#include "platform/registry.h"
#include "platform/system/fresh_file.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

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

/// Takes `before` and a number of `least` to `most` off the front of `text`.
bool Take(std::string_view& text, std::string_view before, LONG least, LONG most, LONG& number) {
    if (text.substr(0, before.size()) != before)
        return false;
    text.remove_prefix(before.size());
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || number < least || number > most)
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

} // namespace

std::optional<RememberedSize> RememberedSize::Parse(std::string_view text) {
    RememberedSize size;
    LONG percent = 0;
    const bool isOurs = Take(text, "screen=", LeastSide, MostSide, size.screen.cx)
        && Take(text, "x", LeastSide, MostSide, size.screen.cy)
        && Take(text, "\nzoom=", ZoomSteps.front(), ZoomSteps.back(), percent);
    LONG isFixed = percent != 100 ? 1 : 0;
    if (text != "\n" && !Take(text, "\nfixed=", 0, 1, isFixed))
        return std::nullopt;
    if (!isOurs || text != "\n")
        return std::nullopt;
    size.zoom = percent / 100.0;
    size.isFixed = isFixed != 0;
    return size;
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
