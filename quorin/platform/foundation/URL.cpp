#include "quorin/platform/foundation/URL.hpp"

#include "quorin/platform/foundation/RawValues.hpp"

#include <arpa/inet.h>
#include <uriparser/Uri.h>

#include <algorithm>
#include <array>
#include <memory>
#include <new>

namespace quorin::foundation {
namespace {

using Parts = std::unique_ptr<UriUriA, decltype(&uriFreeUriMembersA)>;

/// Takes `text` apart; what it yields points into it. False, and there is nothing to free, where it is no
/// URI-reference.
bool take(std::string_view text, UriUriA& uri) {
    const int code = uriParseSingleUriExA(&uri, text.data(), text.data() + text.size(), nullptr);
    if (code == URI_ERROR_MALLOC) throw std::bad_alloc();
    return code == URI_SUCCESS;
}

std::optional<std::string> copyOf(const UriTextRangeA& part) {
    return part.first ? std::optional(std::string(part.first, part.afterLast)) : std::nullopt;
}

std::string bracketed(const UriIp6& address) {
    std::array<char, INET6_ADDRSTRLEN> text{};
    inet_ntop(AF_INET6, address.data, text.data(), text.size());
    return "[" + std::string(text.data()) + "]";
}

std::optional<std::string> hostOf(const UriUriA& uri) {
    if (uri.hostData.ip6) return bracketed(*uri.hostData.ip6);
    auto host = copyOf(uri.hostText);
    if (!host) return std::nullopt;
    const bool isFuture = uri.hostData.ipFuture.first != nullptr;
    return rawvalues::lowered(isFuture ? "[" + *host + "]" : *host);
}

/// What stands between authority and query. The parser's own segments do not all point into the text.
std::string pathOf(std::string_view text, const UriUriA& uri) {
    text = text.substr(0, text.find_first_of("?#"));
    if (uri.scheme.first) text.remove_prefix(text.find(':') + 1);
    if (uri.hostText.first) text.remove_prefix(std::min(text.find('/', 2), text.size()));
    return std::string(text);
}

bool isLabel(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= '0' && c <= '9') || (rawvalues::lower(c) >= 'a' && rawvalues::lower(c) <= 'z') || c == '-'
               || c == '_';
    });
}

}  // namespace

std::optional<URL> URL::parse(std::string_view text) {
    UriUriA uri{};
    if (!take(text, uri)) return std::nullopt;
    const Parts parts(&uri, uriFreeUriMembersA);
    auto scheme = copyOf(uri.scheme);
    return URL{.scheme = scheme ? std::optional(rawvalues::lowered(*scheme)) : std::nullopt,
               .host = hostOf(uri),
               .hasAddress = uri.hostData.ip4 || uri.hostData.ip6 || uri.hostData.ipFuture.first,
               .path = pathOf(text, uri),
               .query = copyOf(uri.query)};
}

void append(std::string& url, std::string_view param) {
    UriUriA uri{};
    if (!take(url, uri)) return;
    const Parts parts(&uri, uriFreeUriMembersA);
    url += uri.query.first ? '&' : '?';
    url += param;
}

bool isHostName(std::string_view text) {
    while (!text.empty()) {
        const auto dot = text.find('.');
        if (!isLabel(text.substr(0, dot))) return false;
        if (dot == text.npos) return true;
        text.remove_prefix(dot + 1);
    }
    return false;
}

}  // namespace quorin::foundation
