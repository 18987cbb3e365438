// The program is closed from outside while something stands open in it.

#include "frame_device.h"
#include "platform/input.h"

namespace {

constexpr const char* Log = R"(
INSERT INTO vehicles VALUES (1, 2001, 'Car', '', '', '', 900, 2000, '', '', '', '', 0, '', '', '');
INSERT INTO entries VALUES (1, 2002, 2001, 46000, 2, 1000, 1, 1, 1, 'Brakes', '', '');
)";
constexpr const char* Close = "close";
constexpr const char* End = "end";
constexpr const char* Asked = "asked";

class ClosingTest : public FrameDevice {
public:
    ClosingTest()
        : FrameDevice(Log) { }

    /// The form of a new fill, its odometer with the focus.
    ClosingTest& FuelForm() { return Keys(L"DE<2D").IsIn(L"Fuel Entry"); }
    /// D: down, E: Enter, < and >: the soft keys; all else is typed.
    ClosingTest& Keys(const std::wstring& keys) {
        for (const wchar_t key : keys) {
            const WORD pressed = key == L'D' ? VK_DOWN
                : key == L'E'                ? VK_RETURN
                : key == L'<'                ? VK_TSOFT1
                : key == L'>'                ? VK_TSOFT2
                                             : WORD{0};
            pressed != 0 ? Press(pressed) : Type(std::wstring(1, key));
        }
        return *this;
    }
    ClosingTest& IsIn(const wchar_t* title) {
        Host.Then([title] { EXPECT_EQ(TextOf(GetActiveWindow()), title); });
        return *this;
    }
    ClosingTest& Press(WORD key) {
        Host.Then([this, key] { Host.Press(key); });
        return *this;
    }
    ClosingTest& Type(const std::wstring& text) {
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
        EXPECT_EQ(LogFile(HostPath()).Run("SELECT count(*) FROM entries"), "1");
        return isAtEnd;
    }
};

TEST_F(ClosingTest, AFormAsItOpenedIsLeftUnasked) {
    EXPECT_TRUE(FuelForm().Do(Close).HasEnded());
}

TEST_F(ClosingTest, SoIsOneWithItsMenuOpen) {
    EXPECT_TRUE(FuelForm().Press(VK_TSOFT2).Do(Close).HasEnded());
}

TEST_F(ClosingTest, YesLeavesWhatWasTyped) {
    EXPECT_TRUE(FuelForm().Type(L"7").Press(VK_TSOFT2).Do(Close).Do(Asked).Press(VK_TSOFT1).HasEnded());
}

TEST_F(ClosingTest, NoGoesOnWithItAndTheNextCloseAsksAnew) {
    FuelForm().Type(L"7").Do(Close).Do(Asked).Press(VK_TSOFT2).Do(Close).Do(Asked).Press(VK_TSOFT2);
    Host.Then([] { EXPECT_EQ(TextOf(GetFocus()), L"7"); });
    EXPECT_FALSE(HasEnded());
}

TEST_F(ClosingTest, ASecondCloseEndsWithoutAnAnswer) {
    EXPECT_TRUE(FuelForm().Type(L"7").Do(Close).Do(Asked).Do(Close).HasEnded());
}

TEST_F(ClosingTest, NobodyIsAskedAtAnOrderToEnd) {
    EXPECT_TRUE(FuelForm().Type(L"7").Do(End).HasEnded());
}

TEST_F(ClosingTest, AnOrderAnswersTheQuestion) {
    EXPECT_TRUE(FuelForm().Type(L"7").Do(Close).Do(Asked).Do(End).HasEnded());
}

TEST_F(ClosingTest, ATextAboveItsFormIsAskedForToo) {
    EXPECT_TRUE(FuelForm()
                    .Press(VK_UP)
                    .Press(VK_UP)
                    .Press(VK_RETURN)
                    .Type(L"x")
                    .Do(Close)
                    .Do(Asked)
                    .Press(VK_TSOFT1)
                    .HasEnded());
}

struct Place {
    const wchar_t *keys, *title;
};

class ClosingWindows : public ClosingTest, public testing::WithParamInterface<Place> { };

// Nothing was typed in any of them.
TEST_P(ClosingWindows, AreLeftUnasked) {
    EXPECT_TRUE(Keys(GetParam().keys).IsIn(GetParam().title).Do(Close).HasEnded());
}

INSTANTIATE_TEST_SUITE_P(Each, ClosingWindows,
    testing::Values(Place{L"", L"My Vehicles"}, Place{L"DE>", L"Car (2000)"}, Place{L"DED>2", L"Odoledger"},
        Place{L"DE>3", L"Quick Stats"}, Place{L"DE>6", L"Upcoming Reminders"}, Place{L"DE>6<", L"Edit Reminder"},
        Place{L"DE>8", L"Options"}, Place{L"DE>9", L"About"}, Place{L"DE<2>1", L"Fuel Vendors"},
        Place{L"DE<2>1>1", L"Add Category"}, Place{L"DE<5", L"Expense"}));

TEST_F(ClosingTest, ADueReminderIsLeftUnaskedAndStays) {
    LogFile(HostPath()).Run("INSERT INTO reminders VALUES (1, 2003, 2001, 46000, 900, 'Oil', '')");
    EXPECT_TRUE(Keys(L"DE").IsIn(L"Reminder").Do(Close).HasEnded());
    EXPECT_EQ(LogFile(HostPath()).Run("SELECT count(*) FROM reminders"), "1");
}

} // namespace
