#pragma once

#include "platform/types.h"
#include "records/stored_text.h"

/// The root of the stored records: a working copy of one record. A change reaches the data file through
/// CDataLayer::Save alone. A record has one owner and is handed around by pointer.
class CBaseObject {
public:
    CBaseObject(const CBaseObject&) = delete;
    CBaseObject& operator=(const CBaseObject&) = delete;
    virtual ~CBaseObject();

    /// Null without memory, so that a command can end quietly.
    static void* operator new(std::size_t size) noexcept;
    static void operator delete(void* object) noexcept;

    /// The record's number within its kind; 0 until it was stored. CDataLayer::Save assigns it.
    LONG GetID() const { return id_; }
    void SetID(LONG id) { Change(id_, id); }
    /// The key that other records and the settings keep. 0 stands for no record; valid after Save or Load.
    ULONG GetRefID() const { return refId_; }

    /// Texts are never null, and valid until they are set again.
    const wchar_t* GetName() const { return name_.Get(); }
    void SetName(const wchar_t* name) { Change(name_, name); }
    const wchar_t* GetNotes() const { return notes_.Get(); }
    void SetNotes(const wchar_t* notes) { Change(notes_, notes); }

    /// Non-zero while the object holds what the data file does not: from its construction, and from a change of any
    /// value, until the next Save.
    int IsDirty() const { return dirty_ ? 1 : 0; }

protected:
    CBaseObject() = default;

    void Change(CStoredText& field, const wchar_t* text) {
        if (field.Set(text))
            dirty_ = true;
    }
    template <typename Value> void Change(Value& field, Value value) {
        if (field == value)
            return;
        field = value;
        dirty_ = true;
    }

private:
    friend struct RecordAccess;

    LONG id_ = 0;
    ULONG refId_ = 0;
    CStoredText name_;
    CStoredText notes_;
    bool dirty_ = true;
};
