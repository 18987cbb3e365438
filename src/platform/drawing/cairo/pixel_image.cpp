#include "platform/drawing/cairo/pixel_image.h"

#include "platform/drawing/cairo/cairo_pictures.h"

#include <algorithm>
#include <cstring>

namespace device {

namespace {

std::uint32_t WithoutAlphaInColors(std::uint32_t pixel) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0)
        return 0;
    std::uint32_t plain = alpha << 24;
    for (const int shift : {16, 8, 0})
        plain |= std::min(0xFFU, (((pixel >> shift) & 0xFF) * 0xFF + alpha / 2) / alpha) << shift;
    return plain;
}

} // namespace

std::optional<PixelImage> DecodePixels(const ImageResource& image) {
    cairo_surface_t* surface = DecodedImage(image);
    if (surface == nullptr)
        return std::nullopt;
    const cairo_format_t format = cairo_image_surface_get_format(surface);
    if (format != CAIRO_FORMAT_ARGB32 && format != CAIRO_FORMAT_RGB24)
        return std::nullopt;
    PixelImage pixels{cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface), {}};
    const unsigned char* row = cairo_image_surface_get_data(surface);
    for (int y = 0; y < pixels.height; ++y, row += cairo_image_surface_get_stride(surface)) {
        for (int x = 0; x < pixels.width; ++x) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, row + static_cast<std::size_t>(x) * sizeof pixel, sizeof pixel);
            pixels.argb.push_back(format == CAIRO_FORMAT_ARGB32 ? WithoutAlphaInColors(pixel) : pixel | 0xFF000000U);
        }
    }
    return pixels;
}

} // namespace device
