#pragma once

#include "exchange/batch.h"
#include "records/companion_tables.h"
#include "tally/open_log.h"

#include <functional>

namespace tally {

/// What storing a batch came to.
struct Stored {
    exchange::Batch added; ///< the records, and the vehicles that they went to
    std::vector<CAddedRecord> records;
    LONGLONG alreadyThere = 0;
};

/// Stores what the log does not have yet, within the transaction of the caller. Records of a vehicle count: where the
/// batch has three that look the same and the log has two, one is added. The vehicles of the batch are those of the log
/// by their names, in order where several have one name, or are made; with `target` the only one becomes that. Now and
/// then `progress` is told how many entries are stored, of how many.
Stored StoreBatch(exchange::Batch batch, const std::string& target,
    const std::function<void(std::size_t done, std::size_t all)>& progress);

/// By which is seen whether somebody has changed a record since.
LONGLONG DigestOf(const CVehicle& vehicle);
LONGLONG DigestOf(const CEntry& entry);
LONGLONG DigestOf(const CNotification& reminder);
LONGLONG DigestOf(const CKeyword& keyword);
/// Of a file's bytes.
ULONGLONG HashOf(const std::string& bytes);

/// The vehicle's current reading becomes the highest of its entries; without any it stays.
void RaiseOdometer(CVehicle* vehicle);

} // namespace tally
