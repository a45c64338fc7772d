#pragma once

#include <chrono>
#include <string>

namespace quorin::foundation {

/// The offset of local time from UTC at that moment: sign, two digits of hours, two of minutes, such as "-0500" or
/// "+0545". "+0000" where the zone is unknown. The zone is read anew at each call (TZ, else the system's), so a zone
/// changed while the process runs counts. Odd seconds of historical zones are cut off. No other thread may change the
/// environment meanwhile.
std::string utcOffset(std::chrono::system_clock::time_point moment);

/// That moment in UTC, in whole seconds, as RFC 3339 writes it: "2026-11-22T09:12:03Z".
std::string utcTime(std::chrono::system_clock::time_point moment);

}  // namespace quorin::foundation
