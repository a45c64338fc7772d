#pragma once

#include "quorin/platform/json/Position.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Why a request yielded no response, or a response not what was asked of it.
///
/// No member ever holds the user info, the query or the fragment of a URL, nor a header value.
struct SkellError {
    enum class Kind : std::uint8_t {
        invalidURL,      ///< not a URL, or one of a scheme other than http and https
        invalidRequest,  ///< a header, body or option that cannot be sent; nothing was sent
        resolve,         ///< the host name, or the proxy's, is unknown
        connect,         ///< the host or the proxy takes no connection
        tls,             ///< no secure connection, or a certificate that is not trusted
        timeout,         ///< the time for connecting or for the whole request has passed
        cancelled,       ///< the process is exiting
        tooLarge,        ///< the decoded body is larger than the transport takes
        redirects,       ///< too many, to another scheme, or from https to http
        status,          ///< JSON was asked for and the status is outside 200-299
        network,         ///< cut short, reset, or not HTTP
        decoding,        ///< a broken content encoding, or a body that is not the JSON asked for
    };

    Kind kind = Kind::network;
    std::optional<int> status{};               ///< of the response, where `kind` is `status`
    std::string url{};                         ///< what failed, redacted; after redirects the hop that failed
    std::string message{};                     ///< for a person: what happened, where, what to do
    std::optional<json::Position> position{};  ///< in the body, where that is no JSON

    static constexpr std::string_view errorName = "SkellError";

    /// The text of a kind, spelt as its enumerator.
    static std::string_view name(Kind kind) { return names[static_cast<std::size_t>(kind)]; }

    /// The kind's name and the message.
    std::string description() const;

    bool operator==(const SkellError&) const = default;

    static constexpr std::array<std::string_view, 12> names{"invalidURL", "invalidRequest", "resolve",   "connect",
                                                            "tls",        "timeout",        "cancelled", "tooLarge",
                                                            "redirects",  "status",         "network",   "decoding"};
};

namespace skell {

/// `url` without user info, query and fragment, for messages and logs. Text that is no URL is cut down until nothing of
/// these can be left in it; bytes that do not print become "?".
std::string redacted(std::string_view url);

/// A failure of `kind` at `url`. The message is `what`, the redacted URL and the advice that goes with the kind.
SkellError failure(SkellError::Kind kind, std::string_view url, std::string_view what);

}  // namespace skell
}  // namespace quorin

#pragma GCC visibility pop
