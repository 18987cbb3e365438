#pragma once

class CEntry;
class CVehicle;
template <typename T> class CObjectListT;

// A record through its form and into the data file. The forms work on copies and never see a record.

/// Non-zero when the record was stored: 0 after Cancel, when nothing changed, and when the save failed (which the user
/// is told).
int EditVehicle(CVehicle* vehicle);
int EditEntry(CEntry* entry);

/// Both ask first. Non-zero when the vehicle is gone, and when the user said yes to the entries.
int DeleteVehicle(CVehicle* vehicle);
int DeleteEntries(const CObjectListT<CEntry>& entries);
