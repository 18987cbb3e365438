#pragma once

#include "platform/window.h"

/// Shows the wait cursor and puts the former one back at the end.
class CWaitCursor {
public:
    CWaitCursor()
        : former_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) { }
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    ~CWaitCursor() { SetCursor(former_); }

private:
    HCURSOR former_;
};
