#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <utility>
#include <vector>

namespace device {

/// The one owner of what handles of one kind stand for. A handle is a number: the place, and how often the place was
/// used before, so that the handle of something that is gone finds nothing. The lowest two bits are 0: some callers use
/// them as flags. Values stay where they are.
template <class Handle, class Value> class HandleTable {
public:
    /// Null when there are too many.
    Handle Add(Value value) {
        std::size_t index = slots_.size();
        if (!free_.empty()) {
            index = free_.back();
            free_.pop_back();
        } else if (index == MaximumSlots) {
            return nullptr;
        } else {
            slots_.emplace_back();
        }
        slots_[index].value.emplace(std::move(value));
        return Encode(index, slots_[index].generation);
    }

    /// Null for a handle that is stale or never was one.
    Value* Find(Handle handle) {
        Slot* slot = FindSlot(handle);
        return slot == nullptr ? nullptr : &*slot->value;
    }

    /// Destroys the value; false for a stale handle.
    bool Remove(Handle handle) {
        Slot* slot = FindSlot(handle);
        if (slot == nullptr)
            return false;
        slot->value.reset();
        slot->generation = (slot->generation + 1) & GenerationMask;
        free_.push_back(IndexOf(handle));
        return true;
    }

    std::vector<Handle> Handles() const {
        std::vector<Handle> handles;
        for (std::size_t index = 0; index < slots_.size(); ++index)
            if (slots_[index].value)
                handles.push_back(Encode(index, slots_[index].generation));
        return handles;
    }

private:
    static constexpr unsigned IndexBits = 16;
    static constexpr std::size_t MaximumSlots = (std::size_t{1} << IndexBits) - 1;
    static constexpr std::uintptr_t GenerationMask = UINTPTR_MAX >> (IndexBits + 3);

    struct Slot {
        std::optional<Value> value;
        std::uintptr_t generation = 0;
    };

    /// The place counts from 1, so that no handle is null.
    static Handle Encode(std::size_t index, std::uintptr_t generation) {
        return reinterpret_cast<Handle>(((generation << IndexBits) | (index + 1)) << 2U);
    }
    static std::size_t IndexOf(Handle handle) {
        return ((reinterpret_cast<std::uintptr_t>(handle) >> 2U) & MaximumSlots) - 1;
    }
    Slot* FindSlot(Handle handle) {
        const std::size_t index = IndexOf(handle);
        if (index >= slots_.size() || !slots_[index].value)
            return nullptr;
        return Encode(index, slots_[index].generation) == handle ? &slots_[index] : nullptr;
    }

    std::deque<Slot> slots_;
    std::vector<std::size_t> free_;
};

} // namespace device
