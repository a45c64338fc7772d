#pragma once

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// What cookies go by of the URL that sets them or that they are sent to (RFC 6265 section 5.1).
struct CookieOrigin {
    std::string host{};       ///< lower case; an IPv6 address in brackets
    bool hasAddress = false;  ///< whether `host` is an IP address, which has no domains above it
    bool isHTTPS = false;
    std::string path = "/";  ///< as the request names it: never empty

    /// Empty when `url` does not parse or has no host, and when its host is neither an address nor a host name, of at
    /// most 253 bytes and with a last label that is no number.
    static std::optional<CookieOrigin> of(std::string_view url);

    /// Whether the host is `domain`, in lower case, or a name below it (section 5.1.3).
    bool domainMatches(std::string_view domain) const;

    /// Whether the path is `cookiePath` or lies below it (section 5.1.4).
    bool pathMatches(std::string_view cookiePath) const;

    /// The path of a cookie that is set without one: the folder of the URL's path (section 5.1.4).
    std::string defaultPath() const;
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
