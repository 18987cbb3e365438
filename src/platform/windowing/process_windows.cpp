// Windows across processes: found by class, brought to the front, and sent registered messages.

#include "platform/windowing/process_windows.h"

#include "platform/system/ipc.h"
#include "platform/window.h"
#include "platform/windowing/desktop.h"

#include <algorithm>
#include <map>
#include <string>
#include <vector>

using device::Desktop;
using device::FindWindowRecord;
using device::Window;

namespace device {

namespace {

struct Published {
    HWND window;
    std::unique_ptr<PublishedWindow> link;
};

std::vector<Published>& AllPublished() {
    static auto& published = *new std::vector<Published>;
    return published;
}

/// Classes of other processes' windows; a remote handle is an index into them.
std::vector<std::wstring>& RemoteClasses() {
    static auto& classes = *new std::vector<std::wstring>;
    return classes;
}

constexpr std::uintptr_t RemoteBit = 2;

HWND RemoteHandle(const std::wstring& windowClass) {
    auto& classes = RemoteClasses();
    auto found = std::find(classes.begin(), classes.end(), windowClass);
    if (found == classes.end())
        found = classes.insert(classes.end(), windowClass);
    const auto index = static_cast<std::uintptr_t>(found - classes.begin()) + 1;
    return reinterpret_cast<HWND>((index << 2U) | RemoteBit);
}

const std::wstring* RemoteClass(HWND window) {
    const auto value = reinterpret_cast<std::uintptr_t>(window);
    const std::uintptr_t index = value >> 2U;
    const bool remote = (value & 3U) == RemoteBit && index >= 1 && index <= RemoteClasses().size();
    return remote ? &RemoteClasses()[index - 1] : nullptr;
}

constexpr UINT FirstRegistered = 0xC000;

std::vector<std::wstring>& RegisteredNames() {
    static auto& names = *new std::vector<std::wstring>;
    return names;
}

/// 0 for a name that this program never registered: it would know nothing to do with it, and others are not to fill
/// its table.
UINT RegisteredMessage(const std::wstring& name) {
    const auto& names = RegisteredNames();
    const auto found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? 0 : FirstRegistered + static_cast<UINT>(found - names.begin());
}

} // namespace

void PublishWindow(HWND window) {
    const Window* record = FindWindowRecord(window);
    if (!record)
        return;
    auto link = PublishedWindow::Publish(record->windowClass->name, [] { Desktop::The().Wake(); });
    if (link)
        AllPublished().push_back({window, std::move(link)});
}

void WithdrawWindow(HWND window) {
    std::erase_if(AllPublished(), [window](const Published& each) { return each.window == window; });
}

void WithdrawAllWindows() {
    AllPublished().clear();
}

void Desktop::CollectInbox() {
    for (std::size_t index = 0; index < AllPublished().size(); ++index) {
        const HWND window = AllPublished()[index].window;
        while (const auto request = AllPublished()[index].link->Take()) {
            if (request->kind == WindowRequest::Kind::BringToFront) {
                ++fronts;
                host_->BringToFront();
            } else if (const UINT message = RegisteredMessage(request->messageName)) {
                Post({window, message, 0, 0});
            }
        }
    }
}

} // namespace device

UINT RegisterWindowMessageW(const wchar_t* name) {
    if (!name)
        return 0;
    if (const UINT known = device::RegisteredMessage(name))
        return known;
    device::RegisteredNames().emplace_back(name);
    return device::RegisteredMessage(name);
}

HWND FindWindowW(const wchar_t* className, const wchar_t* /*title*/) {
    if (!className)
        return nullptr;
    const device::WindowClass* windowClass = device::FindWindowClass(className);
    for (const Window* window : Desktop::The().TopLevels())
        if (windowClass && window->windowClass == windowClass)
            return window->handle;
    return device::WindowExists(className) ? device::RemoteHandle(className) : nullptr;
}

BOOL SetForegroundWindow(HWND handle) {
    // The lowest bit asks for the window's topmost owned popup as well, which always comes along here.
    const auto value = reinterpret_cast<std::uintptr_t>(handle) & ~std::uintptr_t{1};
    const auto window = reinterpret_cast<HWND>(value);
    if (const std::wstring* remote = device::RemoteClass(window))
        return device::BringToFront(*remote) ? TRUE : FALSE;
    if (!FindWindowRecord(window))
        return FALSE;
    if (!FindWindowRecord(window)->Has(WS_DISABLED))
        Desktop::The().Activate(window);
    Desktop::The().TheHost()->BringToFront();
    return TRUE;
}

BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (const std::wstring* remote = device::RemoteClass(window)) {
        const auto& names = device::RegisteredNames();
        const std::size_t index = message - device::FirstRegistered;
        const bool known = message >= device::FirstRegistered && index < names.size();
        return known && device::PostRegistered(*remote, names[index]) ? TRUE : FALSE;
    }
    if (!FindWindowRecord(window))
        return FALSE;
    Desktop::The().Post({window, message, wParam, lParam});
    return TRUE;
}
