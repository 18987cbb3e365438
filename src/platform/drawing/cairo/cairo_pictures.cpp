#include "platform/drawing/cairo/cairo_pictures.h"

#include <algorithm>
#include <cstring>
#include <map>

namespace device {

namespace {

struct Reader {
    std::span<const unsigned char> rest;
};

cairo_status_t ReadBytes(void* closure, unsigned char* target, unsigned length) {
    auto& reader = *static_cast<Reader*>(closure);
    if (length > reader.rest.size())
        return CAIRO_STATUS_READ_ERROR;
    std::memcpy(target, reader.rest.data(), length);
    reader.rest = reader.rest.subspan(length);
    return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* Decode(const ImageResource& image) {
    Reader reader{image.png};
    cairo_surface_t* surface = cairo_image_surface_create_from_png_stream(ReadBytes, &reader);
    if (cairo_surface_status(surface) == CAIRO_STATUS_SUCCESS)
        return surface;
    cairo_surface_destroy(surface);
    return nullptr;
}

} // namespace

cairo_surface_t* DecodedImage(const ImageResource& image) {
    // Resources are constant data: their address tells them apart, whichever module they come from.
    static auto* const decoded = new std::map<const unsigned char*, cairo_surface_t*>;
    const auto [place, isNew] = decoded->try_emplace(image.png.data(), nullptr);
    if (isNew)
        place->second = Decode(image);
    return place->second;
}

} // namespace device
