#include "shell/instance_guard.h"

#include "platform/files.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/resources.h"
#include "platform/window.h"
#include "resources/ids.h"

namespace {

constexpr auto Failure = static_cast<HRESULT>(0x80004005);
constexpr auto InvalidArgument = static_cast<HRESULT>(0x80070057);
constexpr int Passes = 25;
constexpr DWORD PauseMilliseconds = 100;

HWND WithTopmostPopup(HWND window) {
    return reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) | 1U);
}

} // namespace

HRESULT ActivatePreviousInstance(HINSTANCE instance) {
    wchar_t name[MAX_PATH] = {};
    if (LoadStringW(instance, strings::AppName, name, MAX_PATH) == 0)
        return Failure;
    for (int pass = 0; pass < Passes; ++pass) {
        SetLastError(ERROR_SUCCESS);
        const HANDLE mutex = CreateMutexW(nullptr, FALSE, name);
        const auto error = static_cast<LONG>(GetLastError());
        if (!mutex)
            return error == ERROR_INVALID_HANDLE ? InvalidArgument : Failure;
        // Left open for the life of the process: this is what the next instance finds.
        if (error != ERROR_ALREADY_EXISTS)
            return 0;
        CloseHandle(mutex);
        const HWND running = FindWindowW(name, nullptr);
        if (!running)
            Sleep(PauseMilliseconds);
        else if (SetForegroundWindow(WithTopmostPopup(running)))
            return 1;
    }
    return 0;
}

bool IsSyncConnected() {
    SetLastError(ERROR_SUCCESS);
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, DesktopSyncMutex);
    const bool exists = static_cast<LONG>(GetLastError()) == ERROR_ALREADY_EXISTS;
    if (mutex)
        CloseHandle(mutex);
    return exists;
}
