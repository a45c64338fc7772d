#include "Endpoints.hpp"

#include "quorin/platform/foundation/URL.hpp"

#include "Kinds.hpp"

#include <optional>
#include <string>

namespace quorin::document {
namespace {

/// The URL with a letter in the place of each placeholder; empty where a brace
/// has no other.
std::optional<std::string> filled(std::string_view url) {
    std::string text;
    while (!url.empty()) {
        const auto open = url.find_first_of("{}");
        text += url.substr(0, open);
        if (open == url.npos) break;
        const auto close = url.find_first_of("{}", open + 1);
        if (url[open] != '{' || close == url.npos || url[close] != '}') return std::nullopt;
        text += 'x';
        url.remove_prefix(close + 1);
    }
    return text;
}

}  // namespace

URLFault faultOf(std::string_view url) {
    const auto text = filled(url);
    if (!text) return {&kind::openPlaceholder, "pairs of braces", "a brace alone", "the placeholder is never filled"};
    const auto parsed = foundation::URL::parse(*text);
    if (!parsed) return {&kind::unreadableURL, "URL", "other text", "no request can be made"};
    if (url.starts_with('{')) return {};  // what is filled in begins it
    const bool isWeb = parsed->scheme == "http" || parsed->scheme == "https";
    if (!isWeb || parsed->host.value_or("").empty())
        return {&kind::unreadableURL, "http or https URL", "another one", "no request can be made"};
    if (parsed->scheme == "http") return {&kind::plainHTTP, "https", "http", "anybody on the way reads and changes it"};
    return {};
}

}  // namespace quorin::document
