#pragma once

#include "messages/show_message.h"
#include "platform/wait_cursor.h"
#include "records/data_layer.h"

// What the data file cannot do is told to the user here, so that no change is lost without a word.

/// Non-zero when the record was stored: 0 also where it had not changed.
template <typename Record> int SaveIfDirty(Record* record) {
    if (!record->IsDirty())
        return 0;
    const int saved = theDataLayer.Save(record, 0);
    if (!saved)
        ShowStoreFailure();
    return saved;
}

/// A record, or a list of entries. Non-zero when it is gone.
template <typename Stored> int DeleteStored(const Stored* stored) {
    int deleted = 0;
    {
        const CWaitCursor wait;
        deleted = theDataLayer.Delete(stored);
    }
    if (!deleted)
        ShowStoreFailure();
    return deleted;
}
