#include "shell/message_loop.h"

int CMessageLoop::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0)) {
        if (filter_ && filter_(&message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
