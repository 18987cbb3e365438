#pragma once

#include "platform/types.h"

#include <string>

class CQuickStats;

/// The rows of the Quick Stats screen, from the top.
inline constexpr int QuickStatsRowCount = 10;

/// The string of a row's label.
UINT QuickStatsLabelId(int row);
/// A row's value in the units of this moment. "N/A" without a record, and for an economy that there is no figure for.
std::wstring QuickStatsValueText(int row, const CQuickStats* stats);
