#pragma once

#include "records/base_object.h"

/// A vehicle. Name is what it is called; the entries and reminders of a vehicle refer to its RefID.
class CVehicle : public CBaseObject {
public:
    /// Numbers 0, texts empty, the insurance expires today.
    CVehicle();

    const wchar_t* GetLicensePlate() const { return licensePlate_.Get(); }
    void SetLicensePlate(const wchar_t* plate) { Change(licensePlate_, plate); }
    const wchar_t* GetVIN() const { return vin_.Get(); }
    void SetVIN(const wchar_t* vin) { Change(vin_, vin); }
    /// In whole distance units.
    LONG GetCurrentOdometer() const { return currentOdometer_; }
    void SetCurrentOdometer(LONG odometer) { Change(currentOdometer_, odometer); }
    INT GetYear() const { return year_; }
    void SetYear(INT year) { Change(year_, year); }

    const wchar_t* GetInsurancePolicyNumber() const { return insurancePolicyNumber_.Get(); }
    void SetInsurancePolicyNumber(const wchar_t* number) { Change(insurancePolicyNumber_, number); }
    const wchar_t* GetInsuranceAgentName() const { return insuranceAgentName_.Get(); }
    void SetInsuranceAgentName(const wchar_t* name) { Change(insuranceAgentName_, name); }
    const wchar_t* GetInsuranceAgentPhone() const { return insuranceAgentPhone_.Get(); }
    void SetInsuranceAgentPhone(const wchar_t* phone) { Change(insuranceAgentPhone_, phone); }
    const wchar_t* GetInsuranceCoverage() const { return insuranceCoverage_.Get(); }
    void SetInsuranceCoverage(const wchar_t* coverage) { Change(insuranceCoverage_, coverage); }
    /// An OLE date.
    double GetInsuranceExpirationDate() const { return insuranceExpirationDate_; }
    void SetInsuranceExpirationDate(double date) { Change(insuranceExpirationDate_, date); }

    const wchar_t* GetDealerName() const { return dealerName_.Get(); }
    void SetDealerName(const wchar_t* name) { Change(dealerName_, name); }
    const wchar_t* GetDealerPhone() const { return dealerPhone_.Get(); }
    void SetDealerPhone(const wchar_t* phone) { Change(dealerPhone_, phone); }
    const wchar_t* GetDealerAddress() const { return dealerAddress_.Get(); }
    void SetDealerAddress(const wchar_t* address) { Change(dealerAddress_, address); }

private:
    friend struct RecordAccess;

    CStoredText licensePlate_;
    CStoredText vin_;
    CStoredText insurancePolicyNumber_;
    CStoredText insuranceAgentName_;
    CStoredText insuranceAgentPhone_;
    CStoredText insuranceCoverage_;
    CStoredText dealerName_;
    CStoredText dealerPhone_;
    CStoredText dealerAddress_;
    double insuranceExpirationDate_;
    LONG currentOdometer_ = 0;
    INT year_ = 0;
};
