#pragma once

#include "records/base_object.h"

/// One item of a pick list. Name is its text.
class CKeyword : public CBaseObject {
public:
    /// The pick list that the keyword belongs to.
    enum Type : std::int32_t {
        KeywordTripCategory = 1,
        KeywordRepair = 2,
        KeywordExpense = 3,
        KeywordFuelVendor = 4,
    };

    CKeyword() = default;

    Type GetType() const { return type_; }
    void SetType(Type type) { Change(type_, type); }

private:
    friend struct RecordAccess;

    Type type_ = {};
};
