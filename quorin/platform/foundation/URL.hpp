#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace quorin::foundation {

/// A URI-reference (RFC 3986 section 4.1) taken apart. A part that is not there is absent; an empty one is empty text.
struct URL {
    std::optional<std::string> scheme{};  ///< lower case
    std::optional<std::string> host{};    ///< lower case; an IPv6 address in brackets and in its shortest form
    bool hasAddress = false;              ///< whether `host` is an IP address, and not a name
    std::string path{};
    std::optional<std::string> query{};

    /// The parts of `text`, or empty when it is no URI-reference: blanks, braces, text beyond ASCII and a percent sign
    /// without two digits do not parse; the empty text does.
    static std::optional<URL> parse(std::string_view text);
};

/// Makes `param`, as it stands, part of the query of `url`: behind "&" where there is a query, an empty one included,
/// and behind "?" otherwise. It goes to the end of the text, so behind a fragment too. Text that is no URI-reference
/// stays.
void append(std::string& url, std::string_view param);

/// True for an ASCII host name as URLs and cookies have it: labels of letters, digits, "-" and "_" between single dots.
bool isHostName(std::string_view text);

}  // namespace quorin::foundation
