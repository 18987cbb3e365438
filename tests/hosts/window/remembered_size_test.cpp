#include "hosts/window/remembered_size.h"

#include "../../platform/system/device_fixture.h"

namespace {

using device::RememberedSize;

using RememberedSizeFile = DeviceTest;

TEST_F(RememberedSizeFile, ComesBackAsStored) {
    const std::string file = folder_ / "not yet there" / "registry.window";
    EXPECT_FALSE(RememberedSize::Load(file));
    const RememberedSize sizes[] = {{{320, 480}, 1.0}, {{64, 16384}, 0.5}, {{1280, 721}, 1.75}, {{400, 600}, 4.0}};
    for (const RememberedSize& size : sizes) {
        ASSERT_TRUE(size.Store(file));
        EXPECT_EQ(RememberedSize::Load(file), size) << size.ToText();
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_ / "not yet there"), {}), 1);
}

TEST_F(RememberedSizeFile, FailureToStoreLeavesNothing) {
    const std::string file = folder_ / "registry.window";
    std::filesystem::create_directories(file + "/in the way");
    EXPECT_FALSE((RememberedSize{{320, 480}, 1.0}).Store(file));
    EXPECT_FALSE(RememberedSize::Load(file));
    EXPECT_FALSE(std::filesystem::exists(file + ".new"));
}

TEST_F(RememberedSizeFile, HugeFileIsPassedOver) {
    const std::string file = folder_ / "registry.window";
    Write(file, RememberedSize{{320, 480}, 1.0}.ToText() + std::string(100000, '\n'));
    EXPECT_FALSE(RememberedSize::Load(file));
}

TEST(RememberedSize, DamagedTextIsNone) {
    for (const char* text : {"", "screen=", "screen=320x480", "screen=320x480\nzoom=100",
             "screen=320x480\nzoom=100\n\n", "screen=320x480\nzoom=nan\n", "screen=320x480\nzoom=1e9\n",
             "screen=320x480\nzoom=401\n", "screen=320x480\nzoom=49\n", "screen=63x480\nzoom=100\n",
             "screen=320x16385\nzoom=100\n", "screen=-320x480\nzoom=100\n", "screen=99999999999x480\nzoom=100\n",
             "screen= 320x480\nzoom=100\n", "screen=320x480\r\nzoom=100\r\n", "\xff\xfe"})
        EXPECT_FALSE(RememberedSize::Parse(text)) << text;
}

TEST(RememberedSize, ZoomGoesInStepsAndStopsAtTheEnds) {
    double zoom = 0.5;
    int steps = 0;
    for (; device::LargerZoom(zoom) > zoom; ++steps) {
        const double larger = device::LargerZoom(zoom);
        EXPECT_EQ(device::SmallerZoom(larger), zoom);
        zoom = larger;
    }
    EXPECT_EQ(zoom, 4.0);
    EXPECT_EQ(steps, 10);
    EXPECT_EQ(device::SmallerZoom(0.5), 0.5);
    // A value between the steps, from a file that was changed by hand.
    EXPECT_EQ(device::LargerZoom(1.1), 1.25);
    EXPECT_EQ(device::SmallerZoom(1.1), 1.0);
}

} // namespace
