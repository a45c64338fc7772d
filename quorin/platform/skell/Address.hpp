#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorin::skell {

/// A URL that a request can go to, or that a redirect names, taken apart.
struct Address {
    std::string url{};
    std::string scheme{};  ///< lower case
    std::string host{};    ///< lower case
    std::string port{};    ///< the scheme's own where the URL names none

    /// The parts of an absolute URL (RFC 3986) with a host, or empty.
    static std::optional<Address> of(std::string_view url);

    /// Where a `Location` leads from here: a reference (RFC 3986 section 5) in which what may not
    /// stand there is percent-escaped first. Empty when it leads nowhere.
    std::optional<Address> resolve(std::string_view location) const;

    bool isHTTP() const { return scheme == "http" || scheme == "https"; }

    /// The origin of RFC 6454: scheme, host and port.
    bool sameOrigin(const Address& other) const {
        return scheme == other.scheme && host == other.host && port == other.port;
    }
};

}  // namespace quorin::skell
