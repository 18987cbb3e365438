// The program is closed from outside while something stands open in it.

#include "frame_device.h"
#include "platform/input.h"

namespace {

constexpr const char* Log = R"(
INSERT INTO vehicles VALUES (1, 2001, 'Car', '', '', '', 900, 2000, '', '', '', '', 0, '', '', '');
)";
constexpr const char* Close = "close";
constexpr const char* End = "end";
constexpr const char* Asked = "asked";

class ClosingTest : public FrameDevice {
public:
    ClosingTest()
        : FrameDevice(Log) {
        // The form of a new fill, its odometer with the focus.
        Press(VK_DOWN).Press(VK_RETURN).Press(VK_TSOFT1).Type(L"2").Press(VK_DOWN);
        Host.Then([] { EXPECT_EQ(TextOf(GetActiveWindow()), L"Fuel Entry"); });
    }
    ClosingTest& Press(WORD key) {
        Host.Then([this, key] { Host.Press(key); });
        return *this;
    }
    ClosingTest& Type(const wchar_t* text) {
        Host.Then([this, text] { Host.Type(text); });
        return *this;
    }
    ClosingTest& Do(const char* what) {
        Host.Then([this, what] {
            if (what == Asked) {
                const std::wstring text = TextOf(GetWindow(GetActiveWindow(), GW_CHILD));
                EXPECT_EQ(text, L"Close without storing what was typed?");
                return;
            }
            using Kind = ScriptedHost::Event::Kind;
            Host.events.push_back({.kind = what == Close ? Kind::Close : Kind::End});
        });
        return *this;
    }
    /// Whether the program has ended, with nothing left to do, and nothing stored.
    bool HasEnded() {
        const bool isAtEnd = (Host.Pump(), !IsWindow(Frame.GetHandle()));
        EXPECT_EQ(Host.steps.size(), isAtEnd ? 1U : 0U);
        EXPECT_EQ(LogFile(HostPath()).Run("SELECT count(*) FROM entries"), "0");
        return isAtEnd;
    }
};

TEST_F(ClosingTest, AFormAsItOpenedIsLeftUnasked) {
    EXPECT_TRUE(Do(Close).HasEnded());
}

TEST_F(ClosingTest, SoIsOneWithItsMenuOpen) {
    EXPECT_TRUE(Press(VK_TSOFT2).Do(Close).HasEnded());
}

TEST_F(ClosingTest, YesLeavesWhatWasTyped) {
    EXPECT_TRUE(Type(L"7").Press(VK_TSOFT2).Do(Close).Do(Asked).Press(VK_TSOFT1).HasEnded());
}

TEST_F(ClosingTest, NoGoesOnWithItAndTheNextCloseAsksAnew) {
    Type(L"7").Do(Close).Do(Asked).Press(VK_TSOFT2).Do(Close).Do(Asked).Press(VK_TSOFT2);
    Host.Then([] { EXPECT_EQ(TextOf(GetFocus()), L"7"); });
    EXPECT_FALSE(HasEnded());
}

TEST_F(ClosingTest, ASecondCloseEndsWithoutAnAnswer) {
    EXPECT_TRUE(Type(L"7").Do(Close).Do(Asked).Do(Close).HasEnded());
}

TEST_F(ClosingTest, NobodyIsAskedAtAnOrderToEnd) {
    EXPECT_TRUE(Type(L"7").Do(End).HasEnded());
}

TEST_F(ClosingTest, AnOrderAnswersTheQuestion) {
    EXPECT_TRUE(Type(L"7").Do(Close).Do(Asked).Do(End).HasEnded());
}

TEST_F(ClosingTest, ATextAboveItsFormIsAskedForToo) {
    EXPECT_TRUE(Press(VK_UP).Press(VK_UP).Press(VK_RETURN).Type(L"x").Do(Close).Do(Asked).Press(VK_TSOFT1).HasEnded());
}

} // namespace
