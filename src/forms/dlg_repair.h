#pragma once

#include "forms/paid_entry_form.h"

/// One repair or piece of maintenance. Unlike the other forms it also says in words that a number was bad.
class CDlgRepair : public CPaidEntryForm {
public:
    CDlgRepair();

protected:
    bool ExchangeFields(bool save) override;
    void OnSaveFailed() override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    CKeyword::Type KeywordType() const override { return CKeyword::KeywordRepair; }
};
