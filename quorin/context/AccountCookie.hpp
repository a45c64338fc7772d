#pragma once

#include "quorin/context/CookieKeys.hpp"
#include "quorin/platform/foundation/HTTPCookie.hpp"
#include "quorin/platform/skell/Response.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The account identifier as a cookie of `domain`: for its host alone, with the path of its URL, until the session
/// ends. `domain` is a URL, or a bare host (a leading dot is dropped; an IPv6 address stands in brackets), which means
/// "https://HOST/". What stands behind a ";" in `kova` is left out. Absent where one of both is absent, `domain` is
/// neither, or `kova` has a control character or is beyond what a cookie may hold. Any thread.
std::optional<foundation::HTTPCookie> accountCookie(const std::optional<std::string>& kova,
                                                    const std::optional<std::string>& domain);

/// The account cookie that a response sets, the first if there are several; empty when it sets none. Any
/// thread.
std::optional<foundation::HTTPCookie> accountCookieOf(const skell::Response& response);

}  // namespace quorin

#pragma GCC visibility pop
