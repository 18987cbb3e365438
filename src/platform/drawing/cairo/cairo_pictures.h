#pragma once

#include "platform/drawing/picture.h"

#include <cairo.h>

namespace device {

/// The decoded image of a PNG, kept for good; null when it cannot be read. Borrowed.
cairo_surface_t* DecodedImage(const ImageResource& image);

} // namespace device
