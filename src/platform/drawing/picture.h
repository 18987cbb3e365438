#pragma once

#include "platform/resources.h"

#include <vector>

namespace device {

struct Picture {
    UINT id = 0;
    std::vector<ImageResource> sizes; ///< in ascending order; the PNG bytes are constant data of a program
};

/// All sizes of a module's picture; empty `sizes` when it has none. A null module: the device's own pictures.
Picture FindPicture(HINSTANCE module, UINT id);

/// The device's own pictures, for message boxes.
inline constexpr UINT ExclamationPicture = 32515;
inline constexpr UINT InformationPicture = 32516;

/// The smallest size with at least `wanted` pixels, else the largest; null when there is none.
const ImageResource* BestSize(const Picture& picture, int wanted);

} // namespace device
