#include "records/object_list.h"

#include <iterator>
#include <utility>

void CObjectList::Clear() {
    // A destructor that looks at the list again must find it empty.
    const std::vector<CBaseObject*> items = std::exchange(items_, {});
    if (!autoCleanup_)
        return;
    for (CBaseObject* item : items)
        delete item;
}

CBaseObject* CObjectList::DisownItem(int index) {
    if (!Contains(index))
        return nullptr;
    const auto position = std::next(items_.begin(), index);
    CBaseObject* item = *position;
    items_.erase(position);
    return item;
}

void CObjectList::TakeAll(CObjectList& source) {
    items_.insert(items_.end(), source.items_.begin(), source.items_.end());
    source.items_.clear();
}
