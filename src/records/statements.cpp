#include "records/statements.h"

#include <algorithm>
#include <iterator>

// The keys are 32 bits wide, which SQLite would not see to. RefIDs come from one sequence and start far from the IDs,
// so that the one taken for the other finds nothing. The index delivers a vehicle's entries in order: every index of
// SQLite ends in the row's id.
const char* const DataFileSchema = R"(
CREATE TABLE sequence (
  next_ref INTEGER NOT NULL CHECK (next_ref BETWEEN 1001 AND 4294967296)
) STRICT;
CREATE TABLE vehicles (
  id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 2147483647),
  ref INTEGER NOT NULL,
  name TEXT NOT NULL,
  notes TEXT NOT NULL,
  license_plate TEXT NOT NULL,
  vin TEXT NOT NULL,
  odometer INTEGER NOT NULL,
  year INTEGER NOT NULL,
  insurance_policy TEXT NOT NULL,
  insurance_agent TEXT NOT NULL,
  insurance_phone TEXT NOT NULL,
  insurance_coverage TEXT NOT NULL,
  insurance_expires REAL NOT NULL,
  dealer_name TEXT NOT NULL,
  dealer_phone TEXT NOT NULL,
  dealer_address TEXT NOT NULL
) STRICT;
CREATE TABLE entries (
  id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 2147483647),
  ref INTEGER NOT NULL,
  vehicle INTEGER NOT NULL,
  date REAL NOT NULL,
  type INTEGER NOT NULL,
  odometer INTEGER NOT NULL,
  amount REAL NOT NULL,
  custom1 REAL NOT NULL,
  custom2 REAL NOT NULL,
  name TEXT NOT NULL,
  notes TEXT NOT NULL,
  vendor TEXT NOT NULL
) STRICT;
CREATE INDEX entries_in_order ON entries (vehicle, date, odometer);
CREATE TABLE keywords (
  id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 2147483647),
  ref INTEGER NOT NULL,
  type INTEGER NOT NULL,
  name TEXT NOT NULL,
  notes TEXT NOT NULL
) STRICT;
CREATE TABLE reminders (
  id INTEGER PRIMARY KEY CHECK (id BETWEEN 1 AND 2147483647),
  ref INTEGER NOT NULL,
  vehicle INTEGER NOT NULL,
  date REAL NOT NULL,
  odometer INTEGER NOT NULL,
  name TEXT NOT NULL,
  notes TEXT NOT NULL
) STRICT;
INSERT INTO sequence (next_ref) VALUES (1001);
)";

// An update names the RefID too where the object has one: an ID may be given out again after its record was deleted,
// and an object that outlived its record must not overwrite the next one. A fresh object with a borrowed ID has none.
#define ODOLEDGER_WHERE_KEYS " WHERE id = ? AND ref = ifnull(nullif(?, 0), ref)"
#define ODOLEDGER_DELETE(table) "DELETE FROM " table ODOLEDGER_WHERE_KEYS " RETURNING ref"

namespace {

struct Row {
    Sql statement;
    const char* text;
};

constexpr Row Statements[] = {
    {Sql::Begin, "BEGIN IMMEDIATE"},
    {Sql::Commit, "COMMIT"},
    {Sql::Rollback, "ROLLBACK"},
    {Sql::TakeRef, "UPDATE sequence SET next_ref = next_ref + 1"},
    {Sql::TakenRef, "SELECT next_ref - 1 FROM sequence"},
    {Sql::LoadVehicles,
        "SELECT id, ref, name, notes, license_plate, vin, odometer, year, insurance_policy, insurance_agent,"
        " insurance_phone, insurance_coverage, insurance_expires, dealer_name, dealer_phone, dealer_address"
        " FROM vehicles ORDER BY id"},
    {Sql::InsertVehicle,
        "INSERT INTO vehicles (ref, name, notes, license_plate, vin, odometer, year, insurance_policy,"
        " insurance_agent, insurance_phone, insurance_coverage, insurance_expires, dealer_name, dealer_phone,"
        " dealer_address) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"},
    {Sql::UpdateVehicle,
        "UPDATE vehicles SET name = ?, notes = ?, license_plate = ?, vin = ?, odometer = ?, year = ?,"
        " insurance_policy = ?, insurance_agent = ?, insurance_phone = ?, insurance_coverage = ?,"
        " insurance_expires = ?, dealer_name = ?, dealer_phone = ?, dealer_address = ?" ODOLEDGER_WHERE_KEYS
        " RETURNING ref"},
    {Sql::DeleteVehicle, ODOLEDGER_DELETE("vehicles")},
    {Sql::LoadEntries,
        "SELECT id, ref, name, notes, vehicle, date, type, odometer, amount, custom1, custom2, vendor"
        " FROM entries WHERE vehicle = ?1 AND (?2 = 0 OR type = ?2) AND date BETWEEN ?3 AND ?4"
        " ORDER BY date, odometer, id"},
    {Sql::InsertEntry,
        "INSERT INTO entries (ref, name, notes, vehicle, date, type, odometer, amount, custom1, custom2, vendor)"
        " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"},
    {Sql::UpdateEntry,
        "UPDATE entries SET name = ?, notes = ?, vehicle = ?, date = ?, type = ?, odometer = ?, amount = ?,"
        " custom1 = ?, custom2 = ?, vendor = ?" ODOLEDGER_WHERE_KEYS " RETURNING ref"},
    {Sql::DeleteEntry, ODOLEDGER_DELETE("entries")},
    {Sql::LoadKeywords, "SELECT id, ref, name, notes, type FROM keywords WHERE type = ? ORDER BY id"},
    {Sql::InsertKeyword, "INSERT INTO keywords (ref, name, notes, type) VALUES (?, ?, ?, ?)"},
    {Sql::UpdateKeyword, "UPDATE keywords SET name = ?, notes = ?, type = ?" ODOLEDGER_WHERE_KEYS " RETURNING ref"},
    {Sql::DeleteKeyword, ODOLEDGER_DELETE("keywords")},
    {Sql::LoadReminders,
        "SELECT id, ref, name, notes, vehicle, date, odometer FROM reminders WHERE vehicle = ? ORDER BY id"},
    {Sql::InsertReminder,
        "INSERT INTO reminders (ref, name, notes, vehicle, date, odometer) VALUES (?, ?, ?, ?, ?, ?)"},
    {Sql::UpdateReminder,
        "UPDATE reminders SET name = ?, notes = ?, vehicle = ?, date = ?, odometer = ?" ODOLEDGER_WHERE_KEYS
        " RETURNING ref"},
    {Sql::DeleteReminder, ODOLEDGER_DELETE("reminders")},
    {Sql::DeleteEntriesOfVehicle, "DELETE FROM entries WHERE vehicle = ?"},
    {Sql::DeleteRemindersOfVehicle, "DELETE FROM reminders WHERE vehicle = ?"},
    {Sql::MaxOdometer, "SELECT max(odometer) FROM entries WHERE vehicle = ?"},
    {Sql::SetOdometer, "UPDATE vehicles SET odometer = ?" ODOLEDGER_WHERE_KEYS " RETURNING ref"},
};

} // namespace

const char* SqlText(Sql statement) {
    const auto* const row = std::find_if(
        std::begin(Statements), std::end(Statements), [=](const Row& each) { return each.statement == statement; });
    return row == std::end(Statements) ? "" : row->text;
}
