#pragma once

#include <string_view>

namespace device {

/// The device's own face.
inline constexpr char DeviceFace[] = "DejaVu Sans";

/// Makes the process's list of fonts the folder of the device's own face and nothing else, which is read in a tenth of
/// a millisecond; the system's whole list, with all its rules, takes a dozen. False, and nothing happened, where that
/// folder is not known or the environment names a list of its own.
bool UseDeviceFaceAlone();
/// Reads the system's whole list.
void UseAllFaces();

/// Whether the device's own face has every character of `text` and no other face would be preferred for one of them.
bool IsInDeviceFace(std::wstring_view text);

} // namespace device
