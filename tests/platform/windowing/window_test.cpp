#include "../system/device_fixture.h"
#include "platform/metrics.h"
#include "platform/system/ipc.h"
#include "platform/windowing/open_menu.h"
#include "platform/windowing/soft_key_bar.h"
#include "scripted_host.h"

namespace {

constexpr MenuItemResource Inner[] = {{L"One", 31}, {L"Two", 32}};
constexpr MenuItemResource Popup[] = {{L"First", 21}, {}, {L"Second", 22}, {L"More", 0, Inner}, {L"Last", 23}};
constexpr MenuItemResource Keys[] = {{L"Go", 11}, {L"Menu", 0, Popup}};
constexpr UINT Posted = WM_USER + 1;

using Heard = std::vector<std::pair<UINT, WPARAM>>;
Heard heard;

LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITMENUPOPUP)
        EnableMenuItem(reinterpret_cast<HMENU>(wParam), 21, MF_GRAYED);
    const bool noted = message == WM_COMMAND || message == WM_KEYDOWN || message == WM_KEYUP || message == WM_PAINT
        || message >= WM_USER;
    if (noted)
        heard.emplace_back(message, message == WM_PAINT ? 0 : wParam);
    return noted ? 0 : DefWindowProcW(window, message, wParam, lParam);
}

Heard HeardBesidesPainting() {
    std::erase(heard, std::pair<UINT, WPARAM>(WM_PAINT, 0));
    return heard;
}

wchar_t DigitOf(WORD key) {
    return key >= '0' && key <= '9' ? wchar_t{key} : L'\0';
}

/// Item of the innermost popup; -1: no menu is open.
int FocusedItem() {
    const device::OpenMenu* menu = device::Desktop::The().Menu();
    return menu ? menu->Focused() : -1;
}

class WindowTest : public DeviceTest {
protected:
    void SetUp() override {
        heard.clear();
        const WNDCLASSW windowClass{Procedure, L"WindowUnderTest"};
        RegisterClassW(&windowClass);
        frame = CreateWindowExW(
            0, L"windowundertest", L"Title", WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        ASSERT_NE(device::SoftKeyBar::Make(frame, Keys), nullptr);
    }

    using Step = ScriptedHost::Step;

    /// What a menu that these steps open and close leaves: one command, or none (0).
    void ExpectCommand(const std::vector<Step>& steps, UINT command) {
        heard.clear();
        host.steps.assign(steps.begin(), steps.end());
        host.Pump();
        EXPECT_EQ(device::Desktop::The().Menu(), nullptr);
        EXPECT_EQ(HeardBesidesPainting(), command == 0 ? Heard{} : (Heard{{WM_COMMAND, command}}))
            << "no half of a menu's key reaches the window";
    }
    Step Key(WORD key, unsigned modifiers = 0) {
        return [=, this] { host.Press(key, modifiers, DigitOf(key)); };
    }

    ScriptedHost host;
    HWND frame = nullptr;
};

TEST_F(WindowTest, MenusByArrowsDigitsAndBack) {
    const struct {
        std::vector<WORD> keys;
        UINT command; ///< 0: none
    } cases[] = {{{VK_TSOFT1}, 11}, {{VK_TSOFT2, VK_TACTION}, 22}, // the first item is greyed
        {{VK_TSOFT2, VK_UP, VK_TACTION}, 23}, // wraps past it
        {{VK_TSOFT2, VK_DOWN, VK_RIGHT, VK_DOWN, VK_TACTION}, 32},
        {{VK_TSOFT2, VK_DOWN, VK_RIGHT, VK_LEFT, VK_UP, VK_TACTION}, 22}, {{VK_TSOFT2, '2'}, 22},
        {{VK_TSOFT2, '3', '1'}, 31}, {{VK_TSOFT2, VK_TBACK}, 0}, {{VK_TSOFT2, VK_TSOFT2}, 0},
        {{VK_TSOFT2, '3', VK_TBACK, VK_TBACK}, 0}};
    for (const auto& each : cases) {
        std::vector<Step> steps;
        for (const WORD key : each.keys)
            steps.push_back(Key(key));
        ExpectCommand(steps, each.command);
    }
}

TEST_F(WindowTest, AHeldKeyThatOpenedOrClosedAMenuActsNoMore) {
    const struct {
        std::vector<WORD> pressed; ///< before the one that is held
        WORD held;
        int focused; ///< item of the innermost popup; -1: no menu is open
        UINT command; ///< that came
    } cases[] = {{{}, VK_TSOFT2, 2, 0}, {{VK_TSOFT2}, '3', 0, 0},
        {{VK_TSOFT2}, VK_DOWN, 4, 0}, // in the popup that heard the first
        {{VK_TSOFT2, VK_DOWN}, VK_TACTION, 0, 0}, {{VK_TSOFT2, '3'}, VK_TBACK, 3, 0}, {{VK_TSOFT2}, VK_TBACK, -1, 0},
        {{VK_TSOFT2}, VK_TACTION, -1, 22}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.held);
        const Step hold = [&, this] {
            for (const WORD key : each.pressed)
                host.Press(key, 0, DigitOf(key));
            host.Hold(each.held, 2, DigitOf(each.held));
        };
        const Step look = [&, this] {
            EXPECT_EQ(FocusedItem(), each.focused);
            host.events.push_back({ScriptedHost::Event::Kind::KeyUp, each.held});
            PostMessageW(frame, WM_NULL, 0, 0); // closes it
        };
        heard.clear();
        host.Then(hold).Then(look).Pump();
        std::erase_if(heard, [](const auto& message) { return message.first != WM_COMMAND; });
        EXPECT_EQ(heard, each.command == 0 ? Heard{} : (Heard{{WM_COMMAND, each.command}}));
    }
}

TEST_F(WindowTest, MenusByTheMouse) {
    using Kind = ScriptedHost::Event::Kind;
    using Button = ScriptedHost::Event::Button;
    const SIZE screen = device::ScreenSize();
    using Place = std::function<POINT()>;
    const auto rectangle = [](std::size_t index) { return device::Desktop::The().Menu()->ItemPlaces()[index]; };
    const auto item = [&](std::size_t index) -> Place {
        return [=] { return POINT{screen.cx - 20, rectangle(index).top + 2}; };
    };
    const auto at = [](LONG x, LONG y) -> Place { return [=] { return POINT{x, y}; }; };
    const Place key = at(screen.cx - 20, screen.cy - 2);
    const auto click = [this](const Place& place, Button button = Button::Left) -> Step {
        return [=, this] { host.Click(place(), button); };
    };
    const auto mouse
        = [this](Kind kind, const Place& place) -> Step { return [=, this] { host.Mouse(kind, place()); }; };
    const auto expect = [](int focused) -> Step { return [=] { EXPECT_EQ(FocusedItem(), focused); }; };
    const Step doubled = [&] { host.DoubleClick(item(3)()); };
    const Step atThePointer = [&] {
        EXPECT_EQ(rectangle(0).right, screen.cx) << "inside the screen";
        EXPECT_NEAR(rectangle(0).top, 60, 4);
    };
    const Step upwards = [&] { EXPECT_LT(rectangle(4).bottom, screen.cy - 38) << "from the lower end"; };
    const struct {
        const char* what;
        std::vector<Step> steps;
        UINT command; ///< 0: none
    } cases[] = {{"the button that opened it comes up, then chooses", {click(key), click(item(2))}, 22},
        {"pressed on the key, released on an item",
            {mouse(Kind::MouseDown, key), mouse(Kind::MouseMove, item(2)), mouse(Kind::MouseUp, item(2))}, 22},
        {"greyed", {click(key), click(item(0)), Key(VK_TBACK)}, 0},
        {"an inner popup, whose item under the pointer is not chosen with it",
            {click(key), doubled, expect(0), click(item(1))}, 32},
        {"outside", {click(key), click(at(5, 40)), expect(-1)}, 0},
        {"hover",
            {click(key), mouse(Kind::MouseMove, item(4)), mouse(Kind::MouseMove, item(1)), expect(4), Key(VK_TACTION)},
            23},
        {"at the pointer", {click(at(screen.cx - 1, 60), Button::Right), atThePointer, click(item(4))}, 23},
        {"upwards", {click(at(20, screen.cy - 40), Button::Right), upwards, Key(VK_TBACK)}, 0},
        {"the keys of a keyboard", {Key(VK_APPS), Key(VK_APPS), expect(-1), Key(VK_F10, MOD_SHIFT), Key(VK_TACTION)},
            22}};
    for (const auto& each : cases) {
        SCOPED_TRACE(each.what);
        ExpectCommand(each.steps, each.command);
    }
    // A right soft key that is no menu is none for the right button either.
    device::SoftKeyBar::Make(frame, {&Keys[0], 1});
    ExpectCommand({click(at(20, 60), Button::Right), Key(VK_APPS), expect(-1)}, 0);
}

TEST_F(WindowTest, AnotherProcessPostsOnlyWhatIsRegisteredHereAndThatClosesAMenu) {
    CreateWindowExW(0, L"WindowUnderTest", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    const UINT known = RegisterWindowMessageW(L"known");
    host.Then([this] { host.Press(VK_TSOFT2); });
    for (const wchar_t* name : {L"unknown", L"known"}) {
        host.Then([name] {
            EXPECT_NE(device::Desktop::The().Menu(), nullptr);
            EXPECT_TRUE(device::PostRegistered(L"WindowUnderTest", name));
        });
    }
    host.Then([] { EXPECT_EQ(device::Desktop::The().Menu(), nullptr); });
    heard.clear();
    host.Pump();
    EXPECT_EQ(HeardBesidesPainting(), (Heard{{known, 0}}));
    EXPECT_EQ(RegisterWindowMessageW(L"next"), known + 1);
}

TEST_F(WindowTest, PostedComesBeforeInputAndInputBeforePainting) {
    host.Then([this] {
        heard.clear();
        InvalidateRect(frame, nullptr, TRUE);
        host.Press(VK_LEFT);
        PostMessageW(frame, Posted, 0, 0);
    });
    host.Pump();
    EXPECT_EQ(heard, (Heard{{Posted, 0}, {WM_KEYDOWN, VK_LEFT}, {WM_KEYUP, VK_LEFT}, {WM_PAINT, 0}}));
}

TEST_F(WindowTest, StaleHandlesFail) {
    const auto make = [this] { return CreateWindowExW(0, L"Edit", L"", WS_CHILD, 0, 0, 9, 9, frame, {}, {}, {}); };
    const HWND child = make();
    SetFocus(child);
    EXPECT_TRUE(DestroyWindow(child));
    EXPECT_EQ(GetFocus(), nullptr);
    for (const HWND stale : {child, HWND{}, reinterpret_cast<HWND>(std::uintptr_t{0x12345})}) {
        EXPECT_FALSE(PostMessageW(stale, WM_NULL, 0, 0));
        EXPECT_EQ(SendMessageW(stale, WM_GETTEXTLENGTH, 0, 0), 0);
        EXPECT_FALSE(DestroyWindow(stale));
        EXPECT_FALSE(SetWindowTextW(stale, L"x"));
    }
    EXPECT_NE(make(), child) << "a place is taken again under another handle";
}

TEST_F(WindowTest, BackAtTheFrameGoesBackAndResizeReachesIt) {
    host.Then([this] {
        host.Press(VK_TBACK);
        host.Resize(1, 1);
    });
    host.Pump();
    RECT client;
    GetClientRect(frame, &client);
    EXPECT_TRUE(client.right == 1 && client.bottom == 0);
    EXPECT_EQ(host.goBacks, 1);
    device::SetScreenSize({320, 480});
}

} // namespace
