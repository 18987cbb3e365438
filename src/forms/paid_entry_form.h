#pragma once

#include "forms/form_frame.h"

#include <string>

/// What the repair and the expense form share: their fields, their controls, and the one rule that a description is
/// needed. They differ in labels, in the order of their passes, and in how they take a bad number and Cancel.
class CPaidEntryForm : public CFormFrame {
public:
    double Date = 0.0; ///< OLE date
    LONG Odometer = 0;
    float Amount = 0.0F;
    std::wstring Vendor;
    std::wstring Description; ///< required
    std::wstring Notes;

protected:
    explicit CPaidEntryForm(const DLGTEMPLATE& dialogTemplate);

    double& DateField() override { return Date; }
    bool AcceptFields() override;
};
