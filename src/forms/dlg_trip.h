#pragma once

#include "forms/form_frame.h"

#include <string>

/// One trip. Its two readings and the distance between them follow each other as the focus leaves them; the total can
/// be worked out from the distance and the mileage rate of the settings.
class CDlgTrip : public CFormFrame {
public:
    CDlgTrip();

    double Date = 0.0; ///< OLE date
    std::wstring Description; ///< required
    LONG StartOdometer = 0; ///< not above EndOdometer after Done
    LONG EndOdometer = 0;
    float TotalCost = 0.0F;
    std::wstring Category;
    std::wstring Notes;
    LONG ElapsedDistance = 0; ///< shown, and worked out by the form alone

protected:
    bool ExchangeFields(bool save) override;
    double& DateField() override { return Date; }
    void OnDateShown() override;
    bool AcceptFields() override;
    bool OnCommand(UINT id, UINT code, HWND sender) override;
    CKeyword::Type KeywordType() const override { return CKeyword::KeywordTripCategory; }

private:
    void UpdateEnd();
    void UpdateElapsed();
    void CalcTotalCost();
};
