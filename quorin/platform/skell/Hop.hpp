#pragma once

#include "quorin/platform/foundation/HTTPCookieStorage.hpp"
#include "quorin/platform/skell/HTTPMethod.hpp"
#include "quorin/platform/skell/Response.hpp"
#include "quorin/platform/skell/SkellError.hpp"

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quorin::skell {

/// One message to one server: the request itself, or what a redirect made of it.
struct Hop {
    HTTPMethod method = HTTPMethod::GET;
    std::string url{};
    std::map<std::string, std::string, std::less<>> headers{};
    std::shared_ptr<const std::string> body{};

    /// True when `headers` has `name` in any ASCII letter case.
    bool has(std::string_view name) const;

    /// Adds what the storage holds for `url`; a Cookie header of the caller's own stands as it is.
    void addCookies(foundation::HTTPCookieStorage& storage);
};

/// True of methods whose meaning asks for content: they announce an empty one (RFC 9110 section 8.6).
bool announcesBody(HTTPMethod method);

/// What of a header's name may be told: nothing behind the first character that no name has (RFC 9110 section 5.6.2),
/// because a whole header line, with its secrets, may have been taken for the name.
std::string_view tellable(std::string_view name);

/// Why `hop` cannot be sent, or empty when it can.
std::optional<SkellError> refusal(const Hop& hop);

/// True when a response is to be followed: 301, 302, 303, 307 or 308 with a Location (RFC 9110 section 15.4).
bool isRedirect(const Response& response);

/// Turns `hop` into the one that the redirect `response` asks for, or says why it may not be followed.
std::optional<SkellError> follow(const Response& response, Hop& hop);

}  // namespace quorin::skell
