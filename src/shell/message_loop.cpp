#include "shell/message_loop.h"

#include <algorithm>

int CMessageLoop::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0)) {
        const bool taken = std::any_of(filters_.begin(), filters_.end(),
            [&message](CMessageFilter* filter) { return filter->PreTranslateMessage(&message); });
        if (taken)
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
