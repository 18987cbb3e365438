#include "exchange/batch.h"
#include "platform/time.h"
#include "platform/utf8.h"
#include "tally/commands.h"
#include "tally/open_log.h"
#include "tally/table.h"
#include "units/number_text.h"
#include "units/record_text.h"
#include "units/units.h"

#include <cstdio>
#include <sysexits.h>

namespace tally {
namespace {

constexpr std::size_t LongestLine = 75; // bytes without the line end (RFC 5545, 3.1)

/// A text value (RFC 5545, 3.3.11). Control characters are none of its characters.
std::string Value(const std::wstring& text) {
    std::string value;
    for (const char each : device::ToUtf8(text)) {
        if (each == '\\' || each == ';' || each == ',')
            value += '\\';
        if (each == '\n')
            value += "\\n";
        else if (static_cast<unsigned char>(each) >= ' ' && each != '\x7F')
            value += each;
    }
    return value;
}

/// The line, folded between characters.
std::string Line(const std::string& text) {
    std::string folded;
    std::size_t length = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t next = at + 1;
        while (next < text.size() && (static_cast<unsigned char>(text[next]) & 0xC0U) == 0x80U)
            ++next;
        if (length + next - at > LongestLine) {
            folded += "\r\n ";
            length = 1;
        }
        folded.append(text, at, next - at);
        length += next - at;
        at = next;
    }
    return folded + "\r\n";
}

std::string DayText(double date) {
    SYSTEMTIME time{};
    VariantTimeToSystemTime(date, &time);
    char text[32];
    std::snprintf(text, sizeof text, "%04d%02d%02d", int{time.wYear}, int{time.wMonth}, int{time.wDay});
    return text;
}

std::string Stamp() {
    SYSTEMTIME now;
    GetSystemTime(&now);
    char text[64];
    std::snprintf(text, sizeof text, "%04d%02d%02dT%02d%02d%02dZ", int{now.wYear}, int{now.wMonth}, int{now.wDay},
        int{now.wHour}, int{now.wMinute}, int{now.wSecond});
    return text;
}

std::string Event(const CVehicle& vehicle, const CNotification& reminder) {
    const std::wstring summary = VehicleTitleText(&vehicle) + L": " + reminder.GetName();
    std::string event = "BEGIN:VEVENT\r\n";
    // By keys that are never given out again in this log.
    event += Line("UID:reminder-" + std::to_string(reminder.GetRefID()) + "-of-" + std::to_string(vehicle.GetRefID())
        + "@odoledger.invalid");
    event += Line("DTSTAMP:" + Stamp());
    event += Line("DTSTART;VALUE=DATE:" + DayText(reminder.GetDate()));
    event += Line("SUMMARY:" + Value(summary));
    if (reminder.GetOdometer() < exchange::NoOdometer)
        event += Line("DESCRIPTION:"
            + Value(L"Or at " + NumberText(static_cast<float>(reminder.GetOdometer()), false, false) + L' '
                + DistanceUnitName(false, true)));
    event += "TRANSP:TRANSPARENT\r\n";
    return event + "END:VEVENT\r\n";
}

} // namespace

int Calendar(const Request& request, Surroundings& surroundings) {
    const OpenLog log(PathOfLog(request.file));
    std::string events;
    for (const CVehicle* vehicle : log.Chosen(request.vehicle)) {
        CObjectListT<CNotification> reminders;
        RequireLoaded(theDataLayer.Load(&reminders, vehicle->GetRefID()));
        for (int i = 0; i < reminders.GetCount(); ++i)
            if (reminders.Get(i)->GetDate() < exchange::NoDate)
                events += Event(*vehicle, *reminders.Get(i));
    }
    if (events.empty()) { // which no calendar may be
        surroundings.err << "odoledger-tally: no reminder has a date" << std::endl;
        return NothingToDo;
    }
    Deliver(
        "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Odoledger//odoledger-tally//EN\r\n" + events + "END:VCALENDAR\r\n",
        request, surroundings);
    return EX_OK;
}

} // namespace tally
