#include "quorin/platform/skell/Address.hpp"

#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/skell/Curl.hpp"

#include <algorithm>
#include <memory>

namespace quorin::skell {
namespace {

using Parts = std::unique_ptr<CURLU, decltype(&curl_url_cleanup)>;

bool isHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

/// Whether RFC 3986 lets the character at `i` stand in a URI, a percent sign only before two digits.
bool mayStand(std::string_view text, std::size_t i) {
    if (text[i] == '%') return i + 2 < text.size() && isHex(text[i + 1]) && isHex(text[i + 2]);
    return text[i] > ' ' && text[i] <= '~' && std::string_view("\"<>\\^`{|}").find(text[i]) == text.npos;
}

bool hasOnlyURLCharacters(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!mayStand(text, i)) return false;
    }
    return true;
}

/// Servers send characters in a Location that may not stand there; every browser escapes them.
std::string escaped(std::string_view location) {
    static constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (std::size_t i = 0; i < location.size(); ++i) {
        if (mayStand(location, i)) {
            text += location[i];
        } else {
            const auto byte = static_cast<unsigned char>(location[i]);
            text.append({'%', digits[byte >> 4], digits[byte & 15]});
        }
    }
    return text;
}

std::string part(CURLU* parts, CURLUPart which, unsigned flags = 0) {
    char* text = nullptr;
    if (curl().url_get(parts, which, &text, flags) != CURLUE_OK) return {};
    std::string copy(text);
    curl().free(text);
    return copy;
}

Address taken(CURLU* parts, std::string url) {
    return {.url = std::move(url),
            .scheme = rawvalues::lowered(part(parts, CURLUPART_SCHEME)),
            .host = rawvalues::lowered(part(parts, CURLUPART_HOST)),
            .port = part(parts, CURLUPART_PORT, CURLU_DEFAULT_PORT)};
}

}  // namespace

std::optional<Address> Address::of(std::string_view url) {
    const std::string text(url);
    const Parts parts(curl().url(), curl().url_cleanup);
    const auto mark = url.find("://");
    // libcurl takes the path of "http:///x" for a host.
    if (!parts || !hasOnlyURLCharacters(url) || mark == url.npos || url.substr(mark + 3).starts_with('/')) return {};
    if (curl().url_set(parts.get(), CURLUPART_URL, text.c_str(), CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK) return {};
    return taken(parts.get(), text);
}

std::optional<Address> Address::resolve(std::string_view location) const {
    const Parts parts(curl().url(), curl().url_cleanup);
    if (!parts || curl().url_set(parts.get(), CURLUPART_URL, url.c_str(), CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK) {
        return {};
    }
    const std::string reference = escaped(location);
    if (curl().url_set(parts.get(), CURLUPART_URL, reference.c_str(), CURLU_NON_SUPPORT_SCHEME) != CURLUE_OK) return {};
    return taken(parts.get(), part(parts.get(), CURLUPART_URL));
}

}  // namespace quorin::skell
