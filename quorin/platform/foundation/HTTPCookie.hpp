#pragma once

#include <chrono>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// A cookie as a client holds it (RFC 6265 section 5.3). Its value is a secret: print it only where it is asked for.
struct HTTPCookie {
    using Time = std::chrono::sys_seconds;

    /// The requests that other sites cause and that may carry the cookie: all, those that open a page, or none.
    enum class SameSite { none, lax, strict };

    std::string name{};
    std::string value{};   ///< byte for byte as it was set, quotes too
    std::string domain{};  ///< lower case, without a leading dot; an IPv6 address in brackets
    std::string path = "/";
    bool isHostOnly = true;              ///< sent to `domain` alone, and not to hosts below it
    bool isSecure = false;               ///< sent with https alone
    bool isHTTPOnly = false;             ///< data for hosts that show cookies to scripts
    std::optional<SameSite> sameSite{};  ///< data for hosts that make requests on behalf of pages
    std::optional<Time> expires{};       ///< absent: with the session

    bool operator==(const HTTPCookie&) const = default;

    /// The cookies that the `Set-Cookie` values of a response from `url` set, in order, by the rules of RFC 6265
    /// sections 5.2 and 5.3: one that the server may not set for its host, or for a public suffix, is left out. So is
    /// one with a control character, or with more than 4096 bytes of name and value or 1024 of path. Those that expire
    /// at once are among them: they remove what is held. Empty when `url` has no host. Any thread.
    static std::vector<HTTPCookie> cookiesWithResponseHeaderFields(std::span<const std::string_view> setCookies,
                                                                   std::string_view url, Time now = currentTime());

    /// The system's time.
    static Time currentTime();

    /// "None", "Lax" or "Strict".
    static std::string_view nameOf(SameSite sameSite);
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
