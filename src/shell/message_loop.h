#pragma once

#include "platform/window.h"

#include <vector>

/// Sees each message of the loop before its window does; true when it took it.
class CMessageFilter {
public:
    virtual ~CMessageFilter() = default;
    virtual bool PreTranslateMessage(MSG* message) = 0;
};

/// The program's one message loop.
class CMessageLoop {
public:
    /// The filter is borrowed and stays with the loop to its end.
    void AddMessageFilter(CMessageFilter* filter) { filters_.push_back(filter); }
    /// Until WM_QUIT, whose value it returns.
    int Run();

private:
    std::vector<CMessageFilter*> filters_;
};
