#include "records/entry.h"

#include "records/record_dates.h"

CEntry::CEntry()
    : date_(TodayDate()) {
}
