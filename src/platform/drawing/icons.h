#pragma once

#include "platform/drawing.h"
#include "platform/drawing/picture.h"

namespace device {

/// The picture behind an icon; null for a stale handle. Valid until the icon is destroyed.
const Picture* IconPicture(HICON icon);
/// Null for a stale handle or an index beyond the list. Valid until the list changes.
const Picture* ImageListPicture(HIMAGELIST list, int index);
/// The size of the list's images; 0 by 0 for a stale handle.
SIZE ImageListSize(HIMAGELIST list);

} // namespace device
