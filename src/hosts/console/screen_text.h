#pragma once

#include "platform/drawing/recording_canvas.h"

#include <string>
#include <vector>

namespace device {

/// The screen as lines of text: what a person sees, from the texts that were really painted.
std::vector<std::string> ScreenLines(const RecordingCanvas& canvas);

} // namespace device
