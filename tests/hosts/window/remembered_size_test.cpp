#include "hosts/window/remembered_size.h"

#include "../../platform/system/device_fixture.h"

namespace {

using device::RememberedSize;

using RememberedSizeFile = DeviceTest;

TEST_F(RememberedSizeFile, ComesBackAsStored) {
    const std::string file = folder_ / "not yet there" / "registry.window";
    EXPECT_FALSE(RememberedSize::Load(file));
    for (const RememberedSize& size : {RememberedSize{{64, 16384}, 0.5, true}, {{1280, 721}, 1.75, false}}) {
        ASSERT_TRUE(size.Store(file));
        EXPECT_EQ(RememberedSize::Load(file), size) << size.ToText();
    }
    EXPECT_EQ(CountFiles(folder_ / "not yet there"), 1U);
    Write(file, RememberedSize{{320, 480}, 1.0, false}.ToText() + std::string(100000, '\n'));
    EXPECT_FALSE(RememberedSize::Load(file));
}

TEST_F(RememberedSizeFile, FailureToStoreLeavesNothing) {
    const std::string file = folder_ / "registry.window";
    std::filesystem::create_directories(file + "/in the way");
    EXPECT_FALSE((RememberedSize{{320, 480}, 1.0, false}).Store(file));
    EXPECT_FALSE(std::filesystem::exists(file + ".new"));
}

TEST(RememberedSize, FormerTextsTellWhatWasChosen) {
    EXPECT_EQ(RememberedSize::Parse("screen=320x480\nzoom=150\n"), (RememberedSize{{320, 480}, 1.5, true}));
    EXPECT_EQ(RememberedSize::Parse("screen=320x480\nzoom=100\n"), (RememberedSize{{320, 480}, 1.0, false}));
}

TEST(RememberedSize, DamagedTextIsNone) {
    for (const char* text : {"", "screen=320x480", "screen=320x480\nzoom=100", "screen=320x480\nzoom=100\n\n",
             "screen=320x480\nzoom=nan\n", "screen=320x480\nzoom=1601\n", "screen=320x480\nzoom=49\n",
             "screen=320x480\nzoom=100\nfixed=2\n", "screen=320x480\nzoom=100\nfixed=1", "screen=63x480\nzoom=100\n",
             "screen=-320x480\nzoom=100\n", "screen=99999999999x480\nzoom=100\n", "screen= 320x480\nzoom=100\n",
             "screen=320x480\r\nzoom=100\r\n", "\xff\xfe"})
        EXPECT_FALSE(RememberedSize::Parse(text)) << text;
}

TEST(RememberedSize, ZoomGoesInStepsAndStopsAtTheEnds) {
    // 1.1: between the steps, from a file that was changed by hand.
    for (const auto& [zoom, smaller, larger] :
        {std::tuple{0.5, 0.5, 0.75}, {1.0, 0.75, 1.25}, {1.1, 1.0, 1.25}, {16.0, 12.0, 16.0}}) {
        EXPECT_EQ(device::SmallerZoom(zoom), smaller);
        EXPECT_EQ(device::LargerZoom(zoom), larger);
    }
}

} // namespace
