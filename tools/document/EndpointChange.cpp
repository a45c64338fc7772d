#include "EndpointChange.hpp"

#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/services/WebService.hpp"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace quorin::document {
namespace {

struct Told {
    std::string_view key;
    std::string_view change;
};

constexpr std::array fieldsOfRequest{
    Told{WebService::Keys::method, "the request has another method"},
    Told{WebServiceHeaders::contentType, "the request has a body of another content type"},
    Told{WebServiceHeaders::accept, "the request accepts another content type"},
};

/// The texts between braces, braces included; each once, in byte order.
std::vector<std::string_view> placeholdersOf(std::string_view url) {
    std::vector<std::string_view> found;
    std::optional<std::size_t> open;
    for (std::size_t i = 0; i < url.size(); ++i) {
        if (url[i] == '{') open = i;
        if (url[i] != '}' || !open) continue;
        found.push_back(url.substr(*open, i + 1 - *open));
        open.reset();
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

/// How many bytes of a URL may be in any letter case: scheme and host, where there is neither user info nor a brace.
std::size_t caselessIn(std::string_view url) {
    constexpr std::string_view mark = "://";
    const auto scheme = url.find(mark);
    if (scheme == url.npos) return 0;
    const std::string_view origin = url.substr(0, url.find_first_of("/?#", scheme + mark.size()));
    return origin.find_first_of("@{}") == origin.npos ? origin.size() : 0;
}

bool isSameURL(std::string_view before, std::string_view after) {
    const std::size_t size = caselessIn(before);
    return size == caselessIn(after) && rawvalues::sameFolded(before.substr(0, size), after.substr(0, size))
           && before.substr(size) == after.substr(size);
}

std::string_view changeOfURL(std::string_view before, std::string_view after) {
    if (isSameURL(before, after)) return {};
    if (placeholdersOf(before) != placeholdersOf(after)) return "the URL has other placeholders";
    return "the request goes to another URL";
}

}  // namespace

std::string_view changeOfRequest(std::string_view key, std::string_view before, std::string_view after) {
    if (key == WebService::Keys::url) return changeOfURL(before, after);
    const auto* const found =
        std::find_if(fieldsOfRequest.begin(), fieldsOfRequest.end(), [&](const Told& told) { return told.key == key; });
    return found == fieldsOfRequest.end() ? std::string_view() : found->change;
}

}  // namespace quorin::document
