#pragma once

#include "platform/windowing/host.h"

#include <memory>
#include <string>

namespace device {

/// The device in a window of the desktop: its screen is the window's inside, `zoom` image pixels a device pixel. The
/// zoom follows the window's size until a person fixes it. The keys for the zoom and for the full screen are the host's
/// own. Size and zoom are remembered from one run to the next, beside the registry, unless they
/// are told by HANDSET_SCREEN or HANDSET_ZOOM. One a process.
class WindowHost final : public Host {
public:
    /// Null without a display, and then `error` says why, in one line.
    static std::unique_ptr<WindowHost> Open(std::string& error);
    ~WindowHost() override;
    WindowHost(const WindowHost&) = delete;
    WindowHost& operator=(const WindowHost&) = delete;

    bool NextEvent(InputEvent& event, bool wait) override;
    /// After a Resize event everything has to be painted anew.
    Canvas& Screen() override;
    void Present(const RECT& changed) override;
    /// A short tone where there is a sound device; what it concerns flashes, and the window's mark in the task bar.
    void Beep() override;
    void Wake() override;

    void TitleChanged(const std::wstring& title) override;
    void BringToFront() override;
    void Notify(const std::string& line) override;
    void GoBack() override;
    void WaitCursor(bool shown) override;
    void ShowPointer(PointerShape shape) override;
    void StoreText(Clipboard where, const std::wstring& text) override;
    std::wstring StoredText(Clipboard where) override;

private:
    struct Window;
    explicit WindowHost(std::unique_ptr<Window> window);

    std::unique_ptr<Window> window_;
};

} // namespace device
