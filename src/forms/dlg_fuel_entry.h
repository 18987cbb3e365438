#pragma once

#include "forms/form_frame.h"

#include <string>

/// One fill of fuel. It works out one of quantity, price and total from the other two, and offers the price of the last
/// fill to a new one.
class CDlgFuelEntry : public CFormFrame {
public:
    CDlgFuelEntry();

    double Date = 0.0; ///< OLE date
    LONG Odometer = 0;
    float Volume = 0.0F; ///< in the current volume unit
    float UnitPrice = 0.0F;
    float TotalCost = 0.0F;
    std::wstring Vendor;
    std::wstring Notes;
    /// Set by the caller. An entry that is not new keeps its own price.
    bool IsNew = false;

protected:
    bool ExchangeFields(bool save) override;
    double& DateField() override { return Date; }
    void OnOpening() override;
    void OnDateShown() override;
    bool AcceptFields() override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    CKeyword::Type KeywordType() const override { return CKeyword::KeywordFuelVendor; }

private:
    void Calculate();
    /// Works the one field out; returns its control.
    UINT ComputeMissing();
};
