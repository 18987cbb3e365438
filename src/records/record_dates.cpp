#include "records/record_dates.h"

#include "platform/time.h"

#include <cmath>

double TodayDate() {
    SYSTEMTIME now;
    GetLocalTime(&now);
    now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
    double today = 0;
    SystemTimeToVariantTime(&now, &today);
    return today;
}

double LinearFromOleDate(double date) {
    const double day = std::trunc(date);
    return date < 0 ? day + (day - date) : date;
}

double OleFromLinearDate(double linear) {
    const double day = std::floor(linear);
    return day < 0 ? day - (linear - day) : linear;
}

bool LinearFromSystemTime(const SYSTEMTIME& time, double* linear) {
    double date = 0;
    if (!SystemTimeToVariantTime(&time, &date))
        return false;
    *linear = LinearFromOleDate(date);
    return true;
}
