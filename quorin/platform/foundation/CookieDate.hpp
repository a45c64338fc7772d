#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace quorin::foundation {

/// The moment that a cookie's `Expires` names, read as leniently as RFC 6265 section 5.1.1 has it: in UTC, to the
/// second. One that the clock cannot hold is the clock's first or last. Empty when a part is missing or out of its
/// range, when there is no such day, and before the year 1601. Any thread.
std::optional<std::chrono::system_clock::time_point> cookieDate(std::string_view text);

}  // namespace quorin::foundation
