#include "../system/device_fixture.h"
#include "platform/metrics.h"
#include "platform/resources.h"
#include "platform/system/ipc.h"
#include "scripted_host.h"

namespace {

constexpr MenuItemResource Inner[] = {{L"One", 31}, {L"Two", 32}};
constexpr MenuItemResource Popup[] = {{L"First", 21}, {}, {L"Second", 22}, {L"More", 0, Inner}, {L"Last", 23}};
constexpr MenuItemResource Keys[] = {{L"Go", 11}, {L"Menu", 0, Popup}};
constexpr MenuResource Bars[] = {{1, Keys}};
constexpr UINT Marked = WM_USER + 1;

std::vector<UINT> commands;
std::vector<std::string> order;
std::function<void(HMENU)> onPopup;

LRESULT Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    constexpr UINT firstRegistered = 0xC000;
    if (message >= firstRegistered)
        commands.push_back(message);
    switch (message) {
    case WM_COMMAND:
        commands.push_back(static_cast<UINT>(wParam));
        return 0;
    case WM_INITMENUPOPUP:
        if (onPopup)
            onPopup(reinterpret_cast<HMENU>(wParam));
        return 0;
    case Marked:
        order.emplace_back("posted");
        return 0;
    case WM_PAINT:
        order.emplace_back("painted");
        return 0;
    case WM_KEYDOWN:
    case WM_KEYUP:
        order.push_back(std::string(message == WM_KEYDOWN ? "down " : "up ") + std::to_string(wParam));
        return 0;
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

class WindowTest : public DeviceTest {
protected:
    void SetUp() override {
        commands.clear();
        order.clear();
        onPopup = nullptr;
        const WNDCLASSW windowClass{Procedure, L"WindowUnderTest"};
        RegisterClassW(&windowClass);
        frame = CreateWindowExW(
            0, L"windowundertest", L"Title", WS_POPUP | WS_VISIBLE, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        static const Module module{{}, Bars, {}, {}, nullptr};
        SHMENUBARINFO bar;
        bar.hwndParent = frame;
        bar.nToolBarId = 1;
        bar.hInstRes = &module;
        ASSERT_TRUE(SHCreateMenuBar(&bar));
    }

    ScriptedHost host;
    HWND frame = nullptr;
};

TEST_F(WindowTest, MenusByArrowsDigitsAndBack) {
    onPopup = [](HMENU menu) { EnableMenuItem(menu, 21, MF_GRAYED); };
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
        commands.clear();
        order.clear();
        for (const WORD key : each.keys) {
            const auto character = key >= '0' && key <= '9' ? static_cast<wchar_t>(key) : wchar_t{0};
            host.Then([this, key, character] { host.Press(key, 0, character); });
        }
        host.Then([] { EXPECT_EQ(device::Desktop::The().Menu(), nullptr); });
        host.Pump();
        EXPECT_EQ(commands, each.command == 0 ? std::vector<UINT>{} : std::vector{each.command});
        EXPECT_EQ(std::count_if(order.begin(), order.end(), [](const auto& what) { return what != "painted"; }), 0)
            << "no half of a menu's key reaches the window";
    }
}

TEST_F(WindowTest, AnotherProcessPostsOnlyWhatIsRegisteredHere) {
    const HWND published
        = CreateWindowExW(0, L"WindowUnderTest", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    const UINT known = RegisterWindowMessageW(L"known");
    for (const wchar_t* name : {L"unknown", L"known", L"unknown"})
        EXPECT_TRUE(device::PostRegistered(L"WindowUnderTest", name));
    host.Pump();
    EXPECT_EQ(commands, std::vector{known});
    EXPECT_EQ(RegisterWindowMessageW(L"next"), known + 1);
    DestroyWindow(published);
}

TEST_F(WindowTest, APostedMessageClosesTheMenuAndIsHeard) {
    host.Key(VK_TSOFT2).Then([this] { PostMessageW(frame, Marked, 0, 0); });
    host.Then([] { EXPECT_EQ(device::Desktop::The().Menu(), nullptr); });
    host.Pump();
    EXPECT_EQ(std::count(order.begin(), order.end(), "posted"), 1);
}

TEST_F(WindowTest, PostedComesBeforeInputAndInputBeforePainting) {
    host.Then([this] {
        order.clear();
        InvalidateRect(frame, nullptr, TRUE);
        host.Press(VK_LEFT);
        PostMessageW(frame, Marked, 0, 0);
    });
    host.Pump();
    order.resize(4);
    EXPECT_EQ(order, (std::vector<std::string>{"posted", "down 37", "up 37", "painted"}));
}

TEST_F(WindowTest, OnlyWhatIsInvalidIsPainted) {
    const HWND child = CreateWindowExW(0, L"WindowUnderTest", L"", WS_CHILD | WS_VISIBLE, 10, 10, 50, 50, frame,
        reinterpret_cast<HMENU>(1), nullptr, nullptr);
    host.Then([&] {
        order.clear();
        InvalidateRect(child, nullptr, TRUE);
        ShowWindow(child, SW_HIDE);
    });
    host.Then([&] {
        EXPECT_EQ(order, (std::vector<std::string>{"painted"})) << "the frame alone";
        host.frames = 0;
        InvalidateRect(child, nullptr, TRUE);
    });
    host.Then([&] { EXPECT_EQ(host.frames, 0) << "a hidden window has nothing to paint"; });
    host.Pump();
}

TEST_F(WindowTest, StaleHandlesFail) {
    const auto make = [this] {
        return CreateWindowExW(
            0, L"Edit", L"", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, frame, reinterpret_cast<HMENU>(1), nullptr, nullptr);
    };
    const HWND child = make();
    SetFocus(child);
    EXPECT_TRUE(DestroyWindow(child));
    EXPECT_FALSE(IsWindow(child));
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
    host.Key(VK_TBACK).Then([this] { host.Resize(1, 1); });
    host.Then([this] {
        RECT client;
        GetClientRect(frame, &client);
        EXPECT_EQ(client.right, 1);
        EXPECT_EQ(client.bottom, 0);
    });
    host.Pump();
    EXPECT_EQ(host.goBacks, 1);
    device::SetScreenSize({320, 480});
}

} // namespace
