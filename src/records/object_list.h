#pragma once

#include "records/base_object.h"

#include <vector>

/// Records in the order in which they were added. The list owns them unless AllowAutoCleanup(0) was called.
class CObjectList {
public:
    CObjectList() = default;
    CObjectList(const CObjectList&) = delete;
    CObjectList& operator=(const CObjectList&) = delete;
    /// Destroys the items that it owns.
    ~CObjectList() { Clear(); }

    /// Appends the pointer itself.
    void AddItem(CBaseObject* item) { items_.push_back(item); }
    /// The item stays with the list. Null for an index outside the list.
    CBaseObject* GetItem(int index) const {
        return Contains(index) ? items_[static_cast<std::size_t>(index)] : nullptr;
    }
    int GetCount() const { return static_cast<int>(items_.size()); }
    /// Empties the list, and destroys the items that it owns.
    void Clear();
    /// Takes the item out of the list; it is the caller's from then on. Null for an index outside the list.
    CBaseObject* DisownItem(int index);
    /// 0: the list only gathers items that another list owns.
    void AllowAutoCleanup(int allow) { autoCleanup_ = allow; }
    /// Appends all items of `source`, which is empty afterwards.
    void TakeAll(CObjectList& source);

private:
    bool Contains(int index) const { return index >= 0 && index < GetCount(); }

    int autoCleanup_ = 1;
    std::vector<CBaseObject*> items_;
};

/// A list of one kind of record.
template <typename T> class CObjectListT : public CObjectList {
public:
    void Add(T* item) { AddItem(item); }
    T* Get(int index) const { return static_cast<T*>(GetItem(index)); }
    T* Disown(int index) { return static_cast<T*>(DisownItem(index)); }
};
