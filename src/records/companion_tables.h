#pragma once

#include "platform/types.h"

#include <map>
#include <string>
#include <vector>

/// What was brought into the log at one time.
struct CImportBatch {
    LONGLONG Number = 0; ///< from 1; 0 until it is stored
    std::wstring Time; ///< local, as "2026-03-01 18:05:00"
    std::wstring File;
    std::wstring Format;
    std::wstring Hash; ///< of the file's bytes
    LONGLONG Added = 0;
    LONGLONG AlreadyThere = 0;
    LONGLONG Faulty = 0;
    bool IsUndone = false;
};

/// A record that an import added, or the reading that a vehicle had before.
struct CAddedRecord {
    enum Kind : std::int32_t { Vehicle = 1, Entry, Reminder, Keyword, FormerOdometer };

    Kind What;
    ULONG Ref;
    LONGLONG Digest; ///< of what it was when it was added; or the former reading
};

/// What is known of an entry beside what the record holds.
struct CEntryMarks {
    bool IsPartial = false; ///< the tank was not filled
    bool IsMissed = false; ///< a fill before this one was not written down
    bool HasUnknownOdometer = false; ///< its reading is a guess

    bool IsAny() const { return IsPartial || IsMissed || HasUnknownOdometer; }
};

/// Tables that lie beside the records in the data file of theDataLayer. The program itself leaves them alone; they are
/// made when something is first stored in them. Results are false where that failed, and what cannot be read is
/// LastFailure() of theDataLayer as well as an empty result.
class CCompanionTables {
public:
    static bool Load(std::vector<CImportBatch>* batches);
    /// Gives the batch its number.
    static bool Add(CImportBatch* batch, const std::vector<CAddedRecord>& records);
    static bool Load(LONGLONG batch, std::vector<CAddedRecord>* records);
    static bool MarkUndone(LONGLONG batch);

    /// By the RefIDs of the entries.
    static bool Load(std::map<ULONG, CEntryMarks>* marks);
    static bool Add(const std::map<ULONG, CEntryMarks>& marks);
    static bool RemoveMarks(const std::vector<ULONG>& entries);

private:
    template <typename Work> static bool Perform(Work work);
};
