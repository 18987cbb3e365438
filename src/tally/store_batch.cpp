#include "tally/store_batch.h"

#include "platform/utf8.h"
#include "records/entry_filter.h"
#include "records/record_dates.h"
#include "tally/failure.h"
#include "tally/log_batch.h"
#include "tally/transact.h"

#include <cmath>
#include <initializer_list>
#include <sysexits.h>
#include <tuple>

namespace tally {
namespace {

using exchange::Batch;
using exchange::EntryItem;

/// Two entries with the same are taken for one: what a person may have changed since, the texts, is not in it.
using Key = std::tuple<int, LONGLONG, LONGLONG, LONGLONG, LONGLONG>;

Key KeyOf(const CEntry& entry, bool hasUnknownOdometer) {
    constexpr double Cents = 100;
    constexpr double Thousandths = 1000;
    const auto rounded = [](float value, double parts) {
        const double scaled = std::round(double{value} * parts);
        return std::fabs(scaled) < 9e18 ? static_cast<LONGLONG>(scaled) : LONGLONG{0};
    };
    // A reading that was guessed may be guessed in another way the next time.
    const LONGLONG odometer = hasUnknownOdometer ? -1 : LONGLONG{entry.GetOdometer()};
    return {entry.GetType(), static_cast<LONGLONG>(std::floor(LinearFromOleDate(entry.GetDate()))), odometer,
        rounded(entry.GetCustom1(), Thousandths), rounded(entry.GetAmount(), Cents)};
}

Key KeyOf(const CNotification& reminder) {
    const auto day = static_cast<LONGLONG>(std::floor(LinearFromOleDate(reminder.GetDate())));
    return {0, day, reminder.GetOdometer(), 0, 0};
}

std::wstring TextsOf(const CEntry& entry) {
    return std::wstring(entry.GetName()) + L'\0' + entry.GetVendor() + L'\0' + entry.GetNotes();
}

/// What the log has of each, to be counted off.
class Present {
public:
    void Add(const Key& key, const std::wstring& texts) { counts_[key][texts]++; }
    bool TakeSame(const Key& key, const std::wstring& texts) {
        const auto found = counts_.find(key);
        if (found == counts_.end())
            return false;
        const auto same = found->second.find(texts);
        return same != found->second.end() && Take(found, same);
    }
    bool TakeAny(const Key& key) {
        const auto found = counts_.find(key);
        return found != counts_.end() && Take(found, found->second.begin());
    }

private:
    using Counts = std::map<Key, std::map<std::wstring, int>>;

    bool Take(Counts::iterator key, std::map<std::wstring, int>::iterator texts) {
        if (--texts->second == 0)
            key->second.erase(texts);
        if (key->second.empty())
            counts_.erase(key);
        return true;
    }

    Counts counts_;
};

/// FNV-1a, 64 bits.
class Digest {
public:
    void Add(const void* bytes, std::size_t size) {
        constexpr ULONGLONG Prime = 0x100000001B3;
        const auto* byte = static_cast<const unsigned char*>(bytes);
        for (std::size_t i = 0; i < size; ++i)
            value_ = (value_ ^ byte[i]) * Prime;
    }
    template <typename Number> void Add(Number number) { Add(&number, sizeof number); }
    void Add(std::initializer_list<const wchar_t*> texts) {
        for (const wchar_t* text : texts) {
            const std::string bytes = device::ToUtf8(text);
            Add(bytes.c_str(), bytes.size() + 1);
        }
    }
    ULONGLONG Value() const { return value_; }

private:
    ULONGLONG value_ = 0xCBF29CE484222325;
};

class Storing {
public:
    Storing(Batch batch, const std::string& target, const std::function<void(std::size_t, std::size_t)>& progress)
        : batch_(std::move(batch))
        , target_(target)
        , progress_(progress) { }

    Stored Run() {
        RequireLoaded(theDataLayer.Load(&vehicles_));
        marks_ = LoadMarks();
        for (std::size_t place = 0; place < batch_.vehicles.size(); ++place)
            ResolveVehicle(place);
        AddEntries();
        AddReminders();
        AddKeywords();
        for (const auto& [vehicle, hasOdometer] : touched_)
            if (!hasOdometer)
                RaiseOdometer(vehicle);
        if (!newMarks_.empty())
            RequireStored(CCompanionTables::Add(newMarks_));
        result_.added.vehicles = std::move(batch_.vehicles);
        result_.added.distance = batch_.distance;
        result_.added.volume = batch_.volume;
        return std::move(result_);
    }

private:
    /// The log's vehicle that stands for one of the batch; it is made when nothing of that name is left.
    void ResolveVehicle(std::size_t place) {
        exchange::VehicleItem& item = batch_.vehicles[place];
        if (!target_.empty())
            item.record->SetName(device::FromUtf8(target_).c_str());
        else if (!item.isNamed && vehicles_.GetCount() == 1)
            item.record->SetName(vehicles_.Get(0)->GetName());
        else if (!item.isNamed)
            throw Failure(EX_USAGE, "the file does not name its vehicle; name it with --vehicle");
        const std::wstring name = item.record->GetName();
        int before = target_.empty() ? seen_[name]++ : 0;
        for (int i = 0; i < vehicles_.GetCount(); ++i)
            if (vehicles_.Get(i)->GetName() == name && before-- == 0) {
                item.isInLog = true;
                resolved_.push_back(vehicles_.Get(i));
                return;
            }
        Make(&item);
    }

    void Make(exchange::VehicleItem* item) {
        CVehicle* vehicle = item->record.get();
        RequireStored(theDataLayer.Save(vehicle, 0));
        result_.records.push_back({CAddedRecord::Vehicle, vehicle->GetRefID(), DigestOf(*vehicle)});
        if (item->hasOdometer)
            touched_[vehicle] = true;
        resolved_.push_back(vehicle);
    }

    void Touch(CVehicle* vehicle) {
        if (touched_.emplace(vehicle, false).second)
            result_.records.push_back(
                {CAddedRecord::FormerOdometer, vehicle->GetRefID(), vehicle->GetCurrentOdometer()});
    }

    bool IsUnknown(const CEntry& entry) const {
        const auto found = marks_.find(entry.GetRefID());
        return found != marks_.end() && found->second.HasUnknownOdometer;
    }

    /// What the log has of a vehicle; entries of the batch that lack a reading take one of it.
    Present EntriesOf(const CVehicle& vehicle, std::size_t place) {
        Present present;
        std::vector<exchange::Reading> readings;
        CEntryFilter filter;
        filter.SetVehicleID(vehicle.GetRefID());
        CObjectListT<CEntry> entries;
        RequireLoaded(theDataLayer.Load(&entries, &filter));
        for (int i = 0; i < entries.GetCount(); ++i) {
            const CEntry& entry = *entries.Get(i);
            present.Add(KeyOf(entry, IsUnknown(entry)), TextsOf(entry));
            if (!IsUnknown(entry))
                readings.push_back({entry.GetDate(), entry.GetOdometer()});
        }
        exchange::FillOdometers(&batch_, place, std::move(readings));
        return present;
    }

    void AddEntries() {
        std::map<CVehicle*, Present> present;
        for (std::size_t place = 0; place < resolved_.size(); ++place)
            present[resolved_[place]] = EntriesOf(*resolved_[place], place);
        // First those that are there to the letter, so that of the others the right ones are left.
        for (const bool isExact : {true, false})
            for (EntryItem& item : batch_.entries)
                if (item.record && IsThere(item, isExact, &present[resolved_[item.vehicle]])) {
                    item.record.reset();
                    ++result_.alreadyThere;
                }
        constexpr std::size_t Often = 5000;
        for (std::size_t place = 0; place < batch_.entries.size(); ++place) {
            if (batch_.entries[place].record)
                Add(std::move(batch_.entries[place]));
            if (place % Often == 0)
                progress_(place, batch_.entries.size());
        }
    }

    static bool IsThere(const EntryItem& item, bool isExact, Present* present) {
        const Key key = KeyOf(*item.record, item.hasUnknownOdometer);
        return isExact ? present->TakeSame(key, TextsOf(*item.record)) : present->TakeAny(key);
    }

    void Add(EntryItem item) {
        CVehicle* vehicle = resolved_[item.vehicle];
        CEntry* entry = item.record.get();
        entry->SetVehicleID(vehicle->GetRefID());
        RequireStored(theDataLayer.Save(entry, 0));
        Touch(vehicle);
        result_.records.push_back({CAddedRecord::Entry, entry->GetRefID(), DigestOf(*entry)});
        const CEntryMarks marks{item.isPartial, item.isMissed, item.hasUnknownOdometer};
        if (marks.IsAny())
            newMarks_[entry->GetRefID()] = marks;
        result_.added.entries.push_back(std::move(item));
    }

    void AddReminders() {
        std::map<CVehicle*, Present> present;
        for (CVehicle* vehicle : resolved_) {
            CObjectListT<CNotification> reminders;
            if (present.count(vehicle) == 0)
                RequireLoaded(theDataLayer.Load(&reminders, vehicle->GetRefID()));
            for (int i = 0; i < reminders.GetCount(); ++i)
                present[vehicle].Add(KeyOf(*reminders.Get(i)), reminders.Get(i)->GetName());
        }
        for (exchange::ReminderItem& item : batch_.reminders) {
            CVehicle* vehicle = resolved_[item.vehicle];
            CNotification* reminder = item.record.get();
            if (present[vehicle].TakeSame(KeyOf(*reminder), reminder->GetName())) {
                ++result_.alreadyThere;
                continue;
            }
            reminder->SetVehicleID(vehicle->GetRefID());
            RequireStored(theDataLayer.Save(reminder, 0));
            result_.records.push_back({CAddedRecord::Reminder, reminder->GetRefID(), DigestOf(*reminder)});
            result_.added.reminders.push_back(std::move(item));
        }
    }

    void AddKeywords() {
        std::map<CKeyword::Type, Present> present;
        for (auto& keyword : batch_.keywords) {
            const CKeyword::Type type = keyword->GetType();
            if (present.count(type) == 0) {
                CObjectListT<CKeyword> keywords;
                RequireLoaded(theDataLayer.Load(&keywords, type));
                for (int i = 0; i < keywords.GetCount(); ++i)
                    present[type].Add({}, keywords.Get(i)->GetName());
            }
            if (present[type].TakeSame({}, keyword->GetName())) {
                ++result_.alreadyThere;
                continue;
            }
            RequireStored(theDataLayer.Save(keyword.get(), 0));
            result_.records.push_back({CAddedRecord::Keyword, keyword->GetRefID(), DigestOf(*keyword)});
            result_.added.keywords.push_back(std::move(keyword));
        }
    }

    Batch batch_;
    std::string target_;
    const std::function<void(std::size_t, std::size_t)>& progress_;
    CObjectListT<CVehicle> vehicles_;
    std::vector<CVehicle*> resolved_; ///< by place in the batch
    std::map<std::wstring, int> seen_; ///< vehicles of the batch so far, by name
    std::map<CVehicle*, bool> touched_; ///< whether their own reading is told
    std::map<ULONG, CEntryMarks> marks_;
    std::map<ULONG, CEntryMarks> newMarks_;
    Stored result_;
};

} // namespace

Stored StoreBatch(
    Batch batch, const std::string& target, const std::function<void(std::size_t done, std::size_t all)>& progress) {
    return Storing(std::move(batch), target, progress).Run();
}

LONGLONG DigestOf(const CVehicle& vehicle) {
    // Without the current reading: the program raises it with every entry.
    Digest digest;
    digest.Add({vehicle.GetName(), vehicle.GetNotes(), vehicle.GetLicensePlate(), vehicle.GetVIN(),
        vehicle.GetInsurancePolicyNumber(), vehicle.GetInsuranceAgentName(), vehicle.GetInsuranceAgentPhone(),
        vehicle.GetInsuranceCoverage(), vehicle.GetDealerName(), vehicle.GetDealerPhone(), vehicle.GetDealerAddress()});
    digest.Add(vehicle.GetYear());
    digest.Add(vehicle.GetInsuranceExpirationDate());
    return static_cast<LONGLONG>(digest.Value());
}

LONGLONG DigestOf(const CEntry& entry) {
    Digest digest;
    digest.Add({entry.GetName(), entry.GetVendor(), entry.GetNotes()});
    digest.Add(entry.GetDate());
    digest.Add(entry.GetType());
    digest.Add(entry.GetOdometer());
    // The file keeps no sign of a zero, and neither does a sum with it.
    for (const float number : {entry.GetAmount(), entry.GetCustom1(), entry.GetCustom2()})
        digest.Add(number + 0.0F);
    return static_cast<LONGLONG>(digest.Value());
}

LONGLONG DigestOf(const CNotification& reminder) {
    Digest digest;
    digest.Add({reminder.GetName(), reminder.GetNotes()});
    digest.Add(reminder.GetDate());
    digest.Add(reminder.GetOdometer());
    return static_cast<LONGLONG>(digest.Value());
}

LONGLONG DigestOf(const CKeyword& keyword) {
    Digest digest;
    digest.Add({keyword.GetName(), keyword.GetNotes()});
    digest.Add(keyword.GetType());
    return static_cast<LONGLONG>(digest.Value());
}

ULONGLONG HashOf(const std::string& bytes) {
    Digest digest;
    digest.Add(bytes.data(), bytes.size());
    return digest.Value();
}

void RaiseOdometer(CVehicle* vehicle) {
    LONG highest = 0;
    if (!theDataLayer.GetMaxOdometer(vehicle->GetRefID(), &highest)) {
        RequireLoaded(theDataLayer.LastFailure() == StoreFailure::None);
        return;
    }
    if (highest != vehicle->GetCurrentOdometer())
        RequireStored(theDataLayer.UpdateCurrentOdometer(vehicle, highest));
}

} // namespace tally
