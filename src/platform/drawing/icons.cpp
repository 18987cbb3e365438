#include "platform/drawing/icons.h"

#include "platform/drawing/context_state.h"
#include "platform/drawing/picture.h"
#include "platform/drawing/rectangles.h"
#include "platform/system/handle_table.h"

#include <utility>
#include <vector>

namespace device {

namespace {

constexpr int MaximumImageEdge = 1024;

struct ImageList {
    SIZE size;
    std::vector<Picture> pictures;
};

// Neither table is ever destroyed: static objects of a program may hold icons to the end.
HandleTable<HICON, Picture>& Icons() {
    static auto* const icons = new HandleTable<HICON, Picture>;
    return *icons;
}

HandleTable<HIMAGELIST, ImageList>& ImageLists() {
    static auto* const lists = new HandleTable<HIMAGELIST, ImageList>;
    return *lists;
}

} // namespace

SIZE ImageListSize(HIMAGELIST list) {
    const ImageList* found = ImageLists().Find(list);
    return found != nullptr ? found->size : SIZE{};
}

} // namespace device

using namespace device;

HICON LoadIconW(HINSTANCE module, UINT id) {
    Picture picture = FindPicture(module, id);
    return picture.sizes.empty() ? nullptr : Icons().Add(std::move(picture));
}

BOOL DestroyIcon(HICON icon) {
    return Icons().Remove(icon) ? TRUE : FALSE;
}

BOOL DrawIconEx(
    HDC context, int x, int y, HICON icon, int width, int height, UINT /*step*/, HBRUSH /*brush*/, UINT flags) {
    const Context* found = FindContext(context);
    const Picture* picture = Icons().Find(icon);
    if (found == nullptr || picture == nullptr || width < 1 || height < 1 || (flags & DI_NORMAL) == 0)
        return FALSE;
    const ContextPainter painter(*found);
    if (painter.Shows())
        painter->DrawPicture(Moved({x, y, x + width, y + height}, found->origin), *picture);
    return TRUE;
}

HIMAGELIST ImageList_Create(int width, int height, UINT /*flags*/, int /*initial*/, int /*grow*/) { // NOLINT
    if (width < 1 || height < 1 || width > MaximumImageEdge || height > MaximumImageEdge)
        return nullptr;
    return ImageLists().Add(ImageList{{width, height}, {}});
}

BOOL ImageList_Destroy(HIMAGELIST list) { // NOLINT
    return ImageLists().Remove(list) ? TRUE : FALSE;
}

int ImageList_ReplaceIcon(HIMAGELIST list, int index, HICON icon) { // NOLINT
    ImageList* found = ImageLists().Find(list);
    const Picture* picture = Icons().Find(icon);
    if (found == nullptr || picture == nullptr || index != -1)
        return -1;
    found->pictures.push_back(*picture);
    return static_cast<int>(found->pictures.size()) - 1;
}

BOOL ImageList_RemoveAll(HIMAGELIST list) { // NOLINT
    ImageList* found = ImageLists().Find(list);
    if (found == nullptr)
        return FALSE;
    found->pictures.clear();
    return TRUE;
}

HICON ImageList_GetIcon(HIMAGELIST list, int index, UINT /*flags*/) { // NOLINT
    const ImageList* found = ImageLists().Find(list);
    const bool isThere = found != nullptr && index >= 0 && index < static_cast<int>(found->pictures.size());
    return isThere ? Icons().Add(found->pictures[static_cast<std::size_t>(index)]) : nullptr;
}
