#pragma once

#include "platform/windowing/host.h"
#include "platform/windowing/window_record.h"

#include <string>
#include <vector>

namespace device {

/// The fields of a dialog that show, in their order.
std::vector<ShownField> ShownFields(const Window& dialog);
/// The label of a control, which stands before it in its dialog, without the colon.
std::wstring LabelOf(const Window& control);

} // namespace device
