#pragma once

#include "platform/resources.h"

namespace device {

/// The device's own pictures, in several sizes each.
std::span<const ImageResource> DeviceImages();

} // namespace device
