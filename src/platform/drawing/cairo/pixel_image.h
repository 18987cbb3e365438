#pragma once

#include "platform/resources.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace device {

/// A picture as plain numbers, for whoever shows it without a canvas.
struct PixelImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> argb; ///< row by row, 0xAARRGGBB, colours not multiplied by alpha
};

/// Nothing when the PNG cannot be read.
std::optional<PixelImage> DecodePixels(const ImageResource& image);

} // namespace device
