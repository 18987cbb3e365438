#pragma once

#include "platform/window.h"

#include <functional>

/// The program's one message loop.
class CMessageLoop {
public:
    /// Sees each message before its window does; true when it took it.
    using Filter = std::function<bool(MSG* message)>;
    void SetFilter(Filter filter) { filter_ = std::move(filter); }
    /// Until WM_QUIT, whose value it returns.
    int Run();

private:
    Filter filter_;
};
