#pragma once

#include "quorin/platform/foundation/HTTPCookie.hpp"

#include <chrono>
#include <optional>
#include <string_view>

namespace quorin::foundation {

/// The value of a `Set-Cookie` header taken apart (RFC 6265 section 5.2), before anything is said about who may set it.
/// The texts are loans from the parsed one.
struct SetCookie {
    std::string_view name{};
    std::string_view value{};
    std::string_view domain{};  ///< without its leading dot, in any letter case; empty: the host's own
    std::string_view path{};    ///< empty: the default path of the URL
    std::optional<std::chrono::seconds> maxAge{};  ///< saturated; wins over `expires`
    std::optional<HTTPCookie::Time> expires{};
    bool isSecure = false;
    bool isHTTPOnly = false;
    std::optional<HTTPCookie::SameSite> sameSite{};

    /// Empty when the text is to be ignored: it has no "=" or no name; has a control character, but for tabs around
    /// names and values; or has more than 4096 bytes of name and value. An attribute of more than 1024 bytes counts for
    /// nothing, as do unknown ones and those with an unreadable date or age. Any thread.
    static std::optional<SetCookie> parse(std::string_view text);
};

}  // namespace quorin::foundation
