#pragma once

#include "platform/types.h"

class CEntryFilter;

// A log to measure with, in a storage folder of the benchmark's own.

inline constexpr const wchar_t* LogPath = L"\\My Documents\\My Vehicles.dat";
inline constexpr ULONG LogVehicle = 1001;

/// A storage folder beside the program, not one that may lie in memory: a save is measured with its syncs. Gone with
/// the object.
class BenchStorage {
public:
    BenchStorage();
    BenchStorage(const BenchStorage&) = delete;
    BenchStorage& operator=(const BenchStorage&) = delete;
    ~BenchStorage();

    const char* Folder() const { return folder_; }

private:
    char folder_[4096] = {};
};

/// A vehicle's log of `count` entries in the order of their dates, as it grows in use; the data layer is connected to
/// it.
void MakeLog(int count);
CEntryFilter Everything();
