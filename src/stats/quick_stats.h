#pragma once

#include "platform/types.h"

#include <string>

class CEntry;
class CEntryFilter;
template <typename T> class CObjectListT;

/// The figures over the entries that a filter selects. Volumes, distances and money stay in the units in which they
/// were typed; the two economy figures alone are in the chosen unit. Floats are summed in a fixed order, in single
/// precision.
class CQuickStats {
public:
    CQuickStats();

    /// Empties the text of the range and zeroes the figures; the vendor stays.
    void Reset();
    /// Fills the record. 1 also when no entry matches; 0 without a filter, or when the entries could not be loaded.
    int Calculate(CEntryFilter* filter);

    std::wstring GetRangeText() const { return rangeText_; }
    /// Of the fill before the newest, where the newest one's fuel was bought.
    std::wstring GetRecentVendor() const { return recentVendor_; }
    /// Economy over all fills, and of the newest; below 0 where there is no figure.
    float GetAverageEconomy() const { return averageEconomy_; }
    float GetRecentEconomy() const { return recentEconomy_; }
    /// The volume of all fills but the oldest, which was burnt before the first known reading.
    float GetFuelConsumed() const { return fuelConsumed_; }
    /// Per 100 distance units; 0 over less than 100.
    float GetConsumptionRate() const { return consumptionRate_; }
    float GetCostOfOwnership() const { return costOfOwnership_; }
    float GetTotalExpense() const { return totalExpense_; }
    float GetFuelExpense() const { return fuelExpense_; }
    /// From the oldest to the newest entry; below 0 where the readings run backwards.
    LONG GetDistance() const { return distance_; }
    /// Money per unit of volume over all fills; 0 without any volume.
    float AverageFuelCost() const;

private:
    void CalculateFuel(const CObjectListT<CEntry>& fills);
    void CalculateRecentEconomy(const CObjectListT<CEntry>& fills);
    void CalculateExpense(const CObjectListT<CEntry>& entries);

    std::wstring rangeText_;
    std::wstring recentVendor_;
    float averageEconomy_;
    float recentEconomy_;
    float fuelConsumed_;
    float consumptionRate_;
    float fuelPurchased_;
    float costOfOwnership_;
    float totalExpense_;
    float fuelExpense_;
    LONG distance_;
};
