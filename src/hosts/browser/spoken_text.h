#pragma once

#include "platform/drawing/recording_canvas.h"

#include <string>

namespace device {

/// What a person is told who does not see the screen: the window or message in front where it is another one than
/// `former`, then what has the focus, with its label and its state. `former` becomes the one in front.
std::wstring SpokenText(const RecordingCanvas& canvas, HWND* former);

} // namespace device
