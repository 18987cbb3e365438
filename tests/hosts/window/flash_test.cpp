#include "hosts/window/flash.h"

#include <gtest/gtest.h>

namespace {

TEST(Flash, ComesTwiceAndIsOver) {
    device::Flash flash;
    EXPECT_EQ(flash.UntilChange(50), device::Flash::Over);
    flash.Begin(1000);
    for (const auto& [now, isOn, more] : {std::tuple{1000, true, 100}, {1099, true, 1}, {1100, false, 100},
             {1250, true, 50}, {1300, false, device::Flash::Over}, {1400, false, device::Flash::Over}}) {
        EXPECT_EQ(flash.IsOn(static_cast<std::uint64_t>(now)), isOn) << now;
        EXPECT_EQ(flash.UntilChange(static_cast<std::uint64_t>(now)), more) << now;
    }
    flash.Begin(2000);
    flash.End();
    EXPECT_FALSE(flash.IsOn(2000));
}

} // namespace
