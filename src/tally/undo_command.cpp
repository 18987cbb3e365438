#include "exchange/plain_text.h"
#include "platform/utf8.h"
#include "tally/commands.h"
#include "tally/failure.h"
#include "tally/log_batch.h"
#include "tally/log_entries.h"
#include "tally/store_batch.h"
#include "tally/transact.h"

#include <algorithm>
#include <sysexits.h>

namespace tally {
namespace {

/// Takes out what an import added, as far as it is still what it was.
class Undoing {
public:
    /// Within a transaction.
    void Run(const CImportBatch& batch) {
        std::vector<CAddedRecord> records;
        RequireLoaded(CCompanionTables::Load(batch.Number, &records));
        LoadLog();
        for (const CAddedRecord& record : records)
            TakeOut(record);
        // What belonged to them has gone by now.
        for (const CAddedRecord& record : records)
            if (record.What == CAddedRecord::Vehicle)
                TakeOutVehicle(record);
        for (const CAddedRecord& record : records)
            if (record.What == CAddedRecord::FormerOdometer)
                SetOdometer(record);
        RequireStored(CCompanionTables::RemoveMarks(goneEntries_));
        RequireStored(CCompanionTables::MarkUndone(batch.Number));
    }

    int TakenOut() const { return takenOut_; }
    int Gone() const { return gone_; }
    const std::vector<std::string>& Staying() const { return staying_; }

private:
    template <typename Record> using ByRef = std::map<ULONG, std::unique_ptr<Record>>;

    template <typename Record> static void Keep(CObjectListT<Record>* list, ByRef<Record>* records) {
        for (auto& record : TakeRecords(list)) {
            const ULONG ref = record->GetRefID();
            (*records)[ref] = std::move(record);
        }
    }

    void LoadLog() {
        CObjectListT<CVehicle> vehicles;
        RequireLoaded(theDataLayer.Load(&vehicles));
        Keep(&vehicles, &vehicles_);
        for (const auto& [ref, vehicle] : vehicles_) {
            CEntryFilter filter;
            filter.SetVehicleID(ref);
            CObjectListT<CEntry> entries;
            RequireLoaded(theDataLayer.Load(&entries, &filter));
            Keep(&entries, &entries_);
            CObjectListT<CNotification> reminders;
            RequireLoaded(theDataLayer.Load(&reminders, ref));
            Keep(&reminders, &reminders_);
        }
        for (const CKeyword::Type type : {CKeyword::KeywordTripCategory, CKeyword::KeywordRepair,
                 CKeyword::KeywordExpense, CKeyword::KeywordFuelVendor}) {
            CObjectListT<CKeyword> keywords;
            RequireLoaded(theDataLayer.Load(&keywords, type));
            Keep(&keywords, &keywords_);
        }
    }

    void TakeOut(const CAddedRecord& record) {
        if (record.What == CAddedRecord::Entry && TakeOutOf(&entries_, record))
            goneEntries_.push_back(record.Ref);
        else if (record.What == CAddedRecord::Reminder)
            TakeOutOf(&reminders_, record);
        else if (record.What == CAddedRecord::Keyword)
            TakeOutOf(&keywords_, record);
    }

    /// False where it stays.
    template <typename Record> bool TakeOutOf(ByRef<Record>* records, const CAddedRecord& record) {
        const auto found = records->find(record.Ref);
        if (found == records->end()) {
            ++gone_;
            return true;
        }
        if (DigestOf(*found->second) != record.Digest) {
            staying_.push_back(WordsOf(*found->second) + ": it was changed since");
            return false;
        }
        RequireStored(theDataLayer.Delete(found->second.get()));
        records->erase(found);
        ++takenOut_;
        return true;
    }

    void TakeOutVehicle(const CAddedRecord& record) {
        const auto found = vehicles_.find(record.Ref);
        const auto isOfIt = [&](const auto& each) { return each.second->GetVehicleID() == record.Ref; };
        const bool isInUse = std::any_of(entries_.begin(), entries_.end(), isOfIt)
            || std::any_of(reminders_.begin(), reminders_.end(), isOfIt);
        if (found != vehicles_.end() && isInUse)
            staying_.push_back(WordsOf(*found->second) + ": it has records that stay");
        else
            TakeOutOf(&vehicles_, record);
    }

    void SetOdometer(const CAddedRecord& record) {
        const auto found = vehicles_.find(record.Ref);
        if (found == vehicles_.end())
            return;
        const bool hasEntries = std::any_of(entries_.begin(), entries_.end(),
            [&](const auto& each) { return each.second->GetVehicleID() == record.Ref; });
        if (hasEntries)
            RaiseOdometer(found->second.get());
        else
            RequireStored(theDataLayer.UpdateCurrentOdometer(found->second.get(), static_cast<LONG>(record.Digest)));
    }

    static std::string WordsOf(const CEntry& entry) {
        return std::string(KindName(entry.GetType())) + ' ' + exchange::PlainDate(entry.GetDate()) + " at "
            + std::to_string(entry.GetOdometer());
    }
    static std::string WordsOf(const CNotification& reminder) {
        return "reminder \"" + device::ToUtf8(reminder.GetName()) + '"';
    }
    static std::string WordsOf(const CKeyword& keyword) {
        return "keyword \"" + device::ToUtf8(keyword.GetName()) + '"';
    }
    static std::string WordsOf(const CVehicle& vehicle) {
        return "vehicle \"" + device::ToUtf8(vehicle.GetName()) + '"';
    }

    ByRef<CVehicle> vehicles_;
    ByRef<CEntry> entries_;
    ByRef<CNotification> reminders_;
    ByRef<CKeyword> keywords_;
    std::vector<ULONG> goneEntries_;
    std::vector<std::string> staying_;
    int takenOut_ = 0;
    int gone_ = 0;
};

/// The one of this number, else the newest that was not undone. Null, and the reason told, where there is none.
const CImportBatch* Find(const std::vector<CImportBatch>& batches, const Request& request, Surroundings& surroundings) {
    const auto found = std::find_if(batches.rbegin(), batches.rend(),
        [&](const CImportBatch& batch) { return request.number ? batch.Number == *request.number : !batch.IsUndone; });
    if (found == batches.rend())
        surroundings.err << "odoledger-tally: there is no such import to undo" << std::endl;
    else if (found->IsUndone)
        surroundings.err << "odoledger-tally: import " << found->Number << " was undone before" << std::endl;
    else
        return &*found;
    return nullptr;
}

} // namespace

int Undo(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    std::vector<CImportBatch> batches;
    const CImportBatch* batch = nullptr;
    Undoing undoing;
    Transact([&] {
        RequireLoaded(CCompanionTables::Load(&batches));
        batch = Find(batches, request, surroundings);
        if (batch)
            undoing.Run(*batch);
        return batch != nullptr;
    });
    if (!batch)
        return NothingToDo;
    surroundings.err << "import " << batch->Number << " (" << device::ToUtf8(batch->File) << "): " << undoing.TakenOut()
                     << " records taken out, " << undoing.Staying().size() << " stay, " << undoing.Gone()
                     << " were gone\n";
    for (const std::string& words : undoing.Staying())
        surroundings.err << "stays: " << words << '\n';
    surroundings.err << std::flush;
    surroundings.tellProgram();
    return EX_OK;
}

} // namespace tally
