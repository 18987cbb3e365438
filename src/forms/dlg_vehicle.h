#pragma once

#include "forms/form_frame.h"

#include <string>

/// All of a vehicle: identity, insurance and dealer.
class CDlgVehicle : public CFormFrame {
public:
    CDlgVehicle();

    std::wstring Name; ///< required
    std::wstring LicensePlate;
    std::wstring VIN;
    LONG CurrentOdometer = 0;
    int Year = 0;
    std::wstring PolicyNumber;
    std::wstring AgentName;
    std::wstring AgentPhone;
    std::wstring Coverage;
    double ExpirationDate = 0.0; ///< OLE date
    std::wstring DealerName;
    std::wstring DealerPhone;
    std::wstring DealerAddress;
    std::wstring Notes;

protected:
    bool ExchangeFields(bool save) override;
    double& DateField() override { return ExpirationDate; }
    bool AcceptFields() override;
};
