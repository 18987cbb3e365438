#include "platform/drawing/picture.h"

#include "platform/drawing/artwork/device_images.h"

#include <algorithm>

namespace device {

Picture FindPicture(HINSTANCE module, UINT id) {
    Picture picture{id, {}};
    for (const ImageResource& image : module == nullptr ? DeviceImages() : module->images)
        if (image.id == id && !image.png.empty())
            picture.sizes.push_back(image);
    std::stable_sort(picture.sizes.begin(), picture.sizes.end(),
        [](const ImageResource& a, const ImageResource& b) { return a.size < b.size; });
    return picture;
}

const ImageResource* BestSize(const Picture& picture, int wanted) {
    if (picture.sizes.empty())
        return nullptr;
    const auto enough = std::find_if(picture.sizes.begin(), picture.sizes.end(),
        [wanted](const ImageResource& image) { return image.size >= wanted; });
    return enough == picture.sizes.end() ? &picture.sizes.back() : &*enough;
}

} // namespace device
