#pragma once

#include "records/store_failure.h"

#include <string>

/// SQLite uses, or deletes, a journal by its name alone. So before it sees the file, whatever lies beside it under such
/// a name and does not belong to this very state of the file gets a name of its own: NAME-journal.bad,
/// NAME-journal.bad2, ... Nothing is deleted.
///
/// `path` is that of the file itself, not of a link to it. None also where nothing lies beside it. A journal of a
/// transaction that another program has under way is waited for, two seconds at most.
StoreFailure PutStrangeJournalsAside(const std::string& path);
