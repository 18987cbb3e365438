#pragma once

#include "forms/paid_entry_form.h"

/// Any other cost of a vehicle.
class CDlgExpense : public CPaidEntryForm {
public:
    CDlgExpense();

protected:
    bool ExchangeFields(bool save) override;
    CKeyword::Type KeywordType() const override { return CKeyword::KeywordExpense; }
};
