#pragma once

#include "records/data_layer.h"

#include <memory>
#include <string>
#include <vector>

namespace tally {

/// The host path of the data file that a command works on: the one given, else that of the program's settings, else the
/// program's own place for it.
std::string PathOfLog(const std::string& given);

/// The data file of a command, connected until this goes. The constructor throws a Failure where it cannot be opened.
class OpenLog {
public:
    explicit OpenLog(const std::string& path);
    OpenLog(const OpenLog&) = delete;
    OpenLog& operator=(const OpenLog&) = delete;
    ~OpenLog() { theDataLayer.Disconnect(); }

    /// As they were first stored.
    const CObjectListT<CVehicle>& Vehicles() const { return vehicles_; }
    /// The one of this name, or without a name all. A name that there is not, or twice, is a Failure.
    std::vector<const CVehicle*> Chosen(const std::string& name) const;
    /// Likewise, but without a name the only one there is.
    const CVehicle& TheOne(const std::string& name) const;

private:
    CObjectListT<CVehicle> vehicles_;
};

/// All records of a list, which gives them up.
template <typename Record> std::vector<std::unique_ptr<Record>> TakeRecords(CObjectListT<Record>* list) {
    std::vector<std::unique_ptr<Record>> records;
    records.reserve(static_cast<std::size_t>(list->GetCount()));
    list->AllowAutoCleanup(0);
    for (int i = 0; i < list->GetCount(); ++i)
        records.emplace_back(list->Get(i));
    return records;
}

/// Throws a Failure with the reason where `succeeded` is 0.
void RequireLoaded(int succeeded);

} // namespace tally
