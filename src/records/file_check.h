#pragma once

struct sqlite3;

/// What is looked at, and mended, in a data file before anything else happens to it. The file may come from anywhere:
/// nothing that lies in it gets to run. All of these are within the transaction of whoever calls, so that a file that
/// is refused stays as it is. All but the last throw SqliteFailure, with SQLITE_CORRUPT for a file that cannot be used.
namespace filecheck {

/// Triggers, views and indexes that are not ours are taken out: they hold no records. Refused is a file with virtual
/// tables, with generated columns, or with expressions in our own tables beyond those that we put there. Further
/// tables, and further columns of ours with plain values, may stay.
void CheckSchema(sqlite3* connection);

/// Damaged pages refuse the file; damage counts only where the disk gives every byte, and if it is found twice.
/// False where an index disagrees with its table, which is no reason to refuse the file.
bool CheckPages(sqlite3* connection);

/// An ID or RefID that stands twice, or so high that the program would run out of further ones, is given out anew; the
/// sequence is brought above every RefID. Of two vehicles with one RefID the one stored first keeps it and the log.
void MendKeys(sqlite3* connection);

/// An index that disagrees with its table hides records. It holds nothing of its own, so it can be made anew; where
/// that fails, the file is as good as it was.
void MendIndexes(sqlite3* connection);

} // namespace filecheck
