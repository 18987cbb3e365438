#include "platform/windowing/zoom_rule.h"

#include <gtest/gtest.h>

using namespace device;

namespace {

constexpr SIZE Screen{320, 480};

TEST(ZoomRule, FirstWindowLeavesSomethingOfTheDisplay) {
    const std::tuple<const char*, DisplayRoom, double> cases[] = {
        {"a laptop", {{1366, 768}, {}, 1.0}, 1.0},
        {"just high enough for the next step", {{1280, 858}, {}, 1.0}, 1.25},
        {"a pixel less", {{1280, 857}, {}, 1.0}, 1.0},
        {"a frame, which is not known at first, changes nothing", {{1280, 858}, {8, 40}, 1.0}, 1.25},
        {"too narrow for the step of its height", {{500, 2000}, {}, 1.0}, 1.5},
        {"a large one", {{3840, 2160}, {}, 1.0}, 3.0},
        {"the user asked for more", {{1280, 1024}, {}, 1.5}, 1.5},
        {"the user asked for less", {{3840, 2160}, {}, 2.0}, 3.0},
        {"no room for what the user asked for", {{320, 216}, {0, 0}, 4.0}, 320 / 176.0},
        {"nothing is known of it", {{0, 0}, {}, 1.5}, 1.5},
    };
    for (const auto& [what, room, zoom] : cases)
        EXPECT_DOUBLE_EQ(FirstZoom(Screen, room), zoom) << what;
}

TEST(ZoomRule, TextsGrowWithTheWindow) {
    const DisplayRoom room{{1920, 1080}, {0, 30}, 1.0}; // with it the first zoom is 1.5
    const std::tuple<const char*, SIZE, double, SIZE> cases[] = {
        {"as it was first", {480, 720}, 1.5, {320, 480}},
        {"the widest screen of that zoom", {630, 720}, 1.5, {420, 480}},
        {"wider", {1000, 900}, 1000 / 420.0, {420, 378}},
        {"the narrowest screen of that zoom", {360, 720}, 1.5, {240, 480}},
        {"narrower", {300, 600}, 1.25, {240, 480}},
        {"no smaller than the user asked the desktop for", {200, 600}, 1.0, {200, 600}},
        {"the full screen", {1920, 1080}, 4.5, {426, 240}},
        {"too low for larger texts", {1900, 300}, 1.25, {1520, 240}},
        {"a line", {1900, 1}, 1.0, {1900, 1}},
    };
    for (const auto& [what, window, zoom, screen] : cases) {
        const ZoomedScreen now = ZoomFor(window, room, {Screen, {}});
        EXPECT_DOUBLE_EQ(now.zoom, zoom) << what;
        EXPECT_EQ(std::pair(now.screen.cx, now.screen.cy), std::pair(screen.cx, screen.cy)) << what;
    }
}

TEST(ZoomRule, SoftKeysNeverLeaveTheDisplay) {
    const DisplayRoom room{{800, 600}, {10, 60}, 1.0};
    for (const double fixed : {0.5, 2.0, 4.0, 16.0}) {
        const SIZE window = FitRoom(InPixels(Screen, fixed), room);
        EXPECT_LE(window.cx, 790);
        EXPECT_LE(window.cy, 540);
        const ZoomedScreen now = ZoomFor(window, room, {Screen, fixed});
        EXPECT_DOUBLE_EQ(now.zoom, std::min(fixed, 790 / 176.0));
        EXPECT_GE(now.screen.cx, 176) << fixed;
        EXPECT_GE(now.screen.cy, 108) << fixed;
    }
}

} // namespace
