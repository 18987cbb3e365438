#pragma once

#include "platform/drawing/recording_canvas.h"

#include <string>
#include <vector>

namespace device {

/// A line for each text that stands on the screen, in the order in which they were painted: its place in device pixels
/// (left,top,width,height), what it means, the text in quotes.
std::vector<std::string> FrameLines(const RecordingCanvas& canvas);

} // namespace device
