#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace quorin::foundation {

/// The moment that a cookie's `Expires` names, read as leniently as RFC 6265 section 5.1.1 has it: in UTC. Empty
/// when a part is missing or out of its range, when there is no such day, and before the year 1601. Any thread.
std::optional<std::chrono::sys_seconds> cookieDate(std::string_view text);

}  // namespace quorin::foundation
