#include "records/notification.h"

#include "records/record_dates.h"

CNotification::CNotification()
    : date_(TodayDate()) {
}
