#include "Endpoints.hpp"

#include "quorin/platform/skell/Address.hpp"
#include "quorin/platform/skell/Curl.hpp"

#include "Kinds.hpp"

#include <optional>
#include <string>

namespace quorin::document {
namespace {

/// The URL with a digit in the place of each placeholder, which may be a port; empty where a brace has no other.
std::optional<std::string> filled(std::string_view url) {
    std::string text;
    while (!url.empty()) {
        const auto open = url.find_first_of("{}");
        text += url.substr(0, open);
        if (open == url.npos) break;
        const auto close = url.find_first_of("{}", open + 1);
        if (url[open] != '{' || close == url.npos || url[close] != '}') return std::nullopt;
        text += '1';
        url.remove_prefix(close + 1);
    }
    return text;
}

/// What is filled in may stand where it decides what URL that is.
bool isOpenAtItsBeginning(std::string_view url) { return url.substr(0, url.find("://")).find('{') != url.npos; }

}  // namespace

URLFault faultOf(std::string_view url) {
    const auto text = filled(url);
    if (!text) return {&kind::openPlaceholder, "pairs of braces", "a brace alone", "the placeholder is never filled"};
    if (isOpenAtItsBeginning(url)) return {};
    if (!skell::openCurl()) return {};  // it judges URLs, and makes the requests
    const auto address = skell::Address::of(*text);
    if (!address || !address->isHTTP())
        return {&kind::unreadableURL, "http or https URL", "another text", "no request can be made"};
    if (address->scheme == "http")
        return {&kind::plainHTTP, "https", "http", "anybody on the way reads and changes it"};
    return {};
}

}  // namespace quorin::document
