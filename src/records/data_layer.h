#pragma once

#include "platform/types.h"
#include "records/default_string_helper.h"
#include "records/entry.h"
#include "records/keyword.h"
#include "records/notification.h"
#include "records/object_list.h"
#include "records/store_failure.h"
#include "records/vehicle.h"

#include <functional>
#include <memory>
#include <string>

class CDataFile;
class CEntryFilter;
struct sqlite3;

/// The one door to the data file. Results of type int are truth values: 0 says that nothing was changed, or that
/// nothing was loaded. What was saved or deleted with success is on the disk when the call returns.
class CDataLayer {
public:
    enum ConnectStatus {
        ConnectOK = 0,
        ConnectNotFound = 1,
        ConnectReadOnly = 2, ///< no permission bit lets anybody write the file
        ConnectInvalid = 3, ///< another kind of file, another version, damaged, or no file at all
        ConnectFailed = 4, ///< locked by another program, no permission, an error of the disk
    };

    CDataLayer();
    CDataLayer(const CDataLayer&) = delete;
    CDataLayer& operator=(const CDataLayer&) = delete;
    ~CDataLayer();

    /// Opens the data file at a device path; a file that was open is closed first. Never makes or overwrites a file.
    ConnectStatus Connect(const wchar_t* path);
    /// The same for a file anywhere on the host. LastFailure() tells of ConnectFailed whether the file was locked.
    ConnectStatus ConnectHostFile(const std::string& path);
    void Disconnect();
    /// Whether another file bears the name of the open one by now. The next Load of the vehicles opens that one; until
    /// then nothing can be stored.
    bool IsReplaced() const;
    /// Why the last operation gave 0; None where there was just nothing to give.
    StoreFailure LastFailure() const { return failure_; }

    /// Append a new object, owned by the list, for each stored record; none of them is dirty. Vehicles, keywords and
    /// reminders come in the order in which they were first stored; entries oldest first, those of one date by their
    /// odometer and then as they were stored. On failure the list stays as it was. All records that are still held were
    /// read from the file that was open: they have to be loaded anew when the vehicles are.
    int Load(CObjectListT<CVehicle>* vehicles);
    int Load(CObjectListT<CEntry>* entries, const CEntryFilter* filter);
    int Load(CObjectListT<CKeyword>* keywords, CKeyword::Type type);
    int Load(CObjectListT<CNotification>* reminders, ULONG vehicle);

    /// Store a new record (GetID() is 0) and give the object its ID and RefID, or replace the stored record with the
    /// object's ID. The object is clean afterwards; on failure it stays as it was. The flags are always 0.
    int Save(CVehicle* vehicle, int flags);
    int Save(CEntry* entry, int flags);
    int Save(CKeyword* keyword, int flags);
    int Save(CNotification* reminder, int flags);

    /// Remove the record with the object's ID; the object itself stays. 0 also where there is no such record. A vehicle
    /// takes its entries and reminders with it, all or nothing.
    int Delete(const CVehicle* vehicle);
    int Delete(const CEntry* entry);
    int Delete(const CKeyword* keyword);
    int Delete(const CNotification* reminder);
    /// Removes all the entries of the list in one transaction: all of them or, when it fails, none. An entry that is
    /// no longer there is passed over.
    int Delete(const CObjectListT<CEntry>* entries);

    /// Makes all that `work` changes here one transaction: all of it, or where `work` gives false, or anything in it
    /// fails, nothing. Another program's changes wait meanwhile. `work` has to end at the first failure.
    int InOneTransaction(const std::function<bool()>& work);

    /// The highest reading of all entries of the vehicle with this RefID. 0, `odometer` untouched, where it has none.
    int GetMaxOdometer(ULONG vehicle, LONG* odometer);
    /// Sets the current odometer of the object and of the stored vehicle, and nothing else of either.
    int UpdateCurrentOdometer(CVehicle* vehicle, LONG odometer);

    /// The factory that turns texts into the file's form and back; null sets the built-in one again.
    CStringHelperFactory* GetStringHelperFactory();
    void SetStringHelperFactory(std::unique_ptr<CStringHelperFactory> factory);

private:
    friend class CCompanionTables;
    template <typename Operation> int Perform(Operation operation);
    template <typename Operation> int Change(Operation operation);
    int PerformOn(const std::function<bool(sqlite3* connection)>& operation);
    template <typename Record, typename... Keys> int LoadAll(CObjectListT<Record>* records, Keys... keys);
    template <typename Record> int Store(Record* record);
    template <typename Record> int Remove(const Record* record);

    CDefaultStringHelperFactory defaultFactory_;
    std::unique_ptr<CStringHelperFactory> factory_;
    std::string hostPath_; ///< of the file that was to be opened last
    std::unique_ptr<CDataFile> file_; ///< null while not connected
    StoreFailure failure_ = StoreFailure::None;
};

/// The program's data. An inline object: whatever is defined after this header, the settings above all, is constructed
/// later and destroyed earlier.
inline CDataLayer theDataLayer;
