#include "platform/windowing/zoom_rule.h"

#include "platform/metrics.h"

#include <algorithm>
#include <cmath>

namespace device {

namespace {

constexpr double MostZoom = 16.0;
constexpr int NarrowScreen = 240;
constexpr int WideScreen = 420;
/// A lower screen shows too little of a form for larger text to be of use.
constexpr int LowScreen = 240;
constexpr double PartOfHeight = 0.7;

double Ratio(LONG pixels, LONG devicePixels) {
    return static_cast<double>(pixels) / static_cast<double>(devicePixels);
}

/// 1, 1.25, 1.5, 2 and on in halves.
double NextStep(double zoom) {
    return zoom + (zoom < 1.5 ? 0.25 : 0.5);
}

bool IsKnown(const DisplayRoom& room) {
    return room.usable.cx > 0 && room.usable.cy > 0;
}

SIZE Inside(const DisplayRoom& room) {
    return {std::max(1, room.usable.cx - room.frame.cx), std::max(1, room.usable.cy - room.frame.cy)};
}

/// The zoom that follows the window.
double FreeZoom(SIZE window, const DisplayRoom& room, SIZE firstScreen) {
    const double byWidth = std::clamp(
        FirstZoom(firstScreen, room), Ratio(window.cx, Scaled(WideScreen)), Ratio(window.cx, Scaled(NarrowScreen)));
    return std::max(std::min(byWidth, Ratio(window.cy, Scaled(LowScreen))), room.zoom);
}

} // namespace

SIZE LeastScreen() {
    return {Scaled(176), TitleHeight() + Scaled(60) + SoftKeyBarHeight()};
}

SIZE InPixels(SIZE screen, double zoom) {
    const auto pixels = [zoom](LONG length) { return static_cast<LONG>(std::lround(length * zoom)); };
    return {pixels(screen.cx), pixels(screen.cy)};
}

SIZE FitRoom(SIZE window, const DisplayRoom& room) {
    if (!IsKnown(room))
        return window;
    const SIZE inside = Inside(room);
    return {std::min(window.cx, inside.cx), std::min(window.cy, inside.cy)};
}

bool Fits(SIZE window, const DisplayRoom& room) {
    const SIZE fitting = FitRoom(window, room);
    return fitting.cx == window.cx && fitting.cy == window.cy;
}

double LargestZoom(const DisplayRoom& room) {
    if (!IsKnown(room))
        return MostZoom;
    const SIZE least = LeastScreen();
    const SIZE inside = Inside(room);
    return std::min({Ratio(inside.cx, least.cx), Ratio(inside.cy, least.cy), MostZoom});
}

double FirstZoom(SIZE screen, const DisplayRoom& room) {
    double zoom = 1.0;
    const auto fits = [&](double step) {
        const SIZE window = InPixels(screen, step);
        return window.cx <= room.usable.cx && window.cy <= room.usable.cy * PartOfHeight;
    };
    while (fits(NextStep(zoom)))
        zoom = NextStep(zoom);
    return std::min(std::max(zoom, room.zoom), LargestZoom(room));
}

ZoomedScreen ZoomFor(SIZE window, const DisplayRoom& room, const ZoomWish& wish) {
    const double wanted = wish.fixed ? *wish.fixed : FreeZoom(window, room, wish.screen);
    const double zoom = std::min(wanted, LargestZoom(room));
    const auto inDevice = [zoom](LONG pixels) { return std::max(1, static_cast<int>(pixels / zoom + 0.001)); };
    return {zoom, {inDevice(window.cx), inDevice(window.cy)}};
}

} // namespace device
