#include "platform/system/ipc.h"

// There are no other processes: another page with the same log is refused before its program starts.

namespace device {

class PublishedWindow::Listener { };

PublishedWindow::PublishedWindow() = default;

PublishedWindow::~PublishedWindow() = default;

std::unique_ptr<PublishedWindow> PublishedWindow::Publish(
    const std::wstring& /*windowClass*/, const std::function<void()>& /*wake*/) {
    return nullptr;
}

std::optional<WindowRequest> PublishedWindow::Take() {
    return std::nullopt;
}

bool WindowExists(const std::wstring& /*windowClass*/) {
    return false;
}

bool BringToFront(const std::wstring& /*windowClass*/) {
    return false;
}

bool PostRegistered(const std::wstring& /*windowClass*/, const std::wstring& /*messageName*/) {
    return false;
}

} // namespace device
