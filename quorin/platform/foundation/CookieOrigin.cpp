#include "quorin/platform/foundation/CookieOrigin.hpp"

#include "quorin/platform/foundation/URL.hpp"

#include <utility>

namespace quorin::foundation {
namespace {

/// Longer ones are no names of the net (RFC 1035 section 2.3.4): 255 bytes with the lengths of first and last label.
constexpr std::size_t longestHostName = 253;

/// Such a name is an address that is misspelt, or stands below one: "a.127.0.0.1", and "0x7f.1", which goes to
/// 127.0.0.1.
bool endsInNumber(std::string_view host) {
    auto label = host.substr(host.rfind('.') + 1);
    const bool isHexadecimal = label.starts_with("0x");
    if (isHexadecimal) label.remove_prefix(2);
    return label.find_first_not_of(isHexadecimal ? "0123456789abcdef" : "0123456789") == label.npos;
}

}  // namespace

std::optional<CookieOrigin> CookieOrigin::of(std::string_view url) {
    auto parts = URL::parse(url);
    if (!parts || !parts->host) return std::nullopt;
    const bool isName =
        isHostName(*parts->host) && parts->host->size() <= longestHostName && !endsInNumber(*parts->host);
    if (!parts->hasAddress && !isName) return std::nullopt;
    return CookieOrigin{.host = std::move(*parts->host),
                        .hasAddress = parts->hasAddress,
                        .isHTTPS = parts->scheme == "https",
                        .path = parts->path.empty() ? "/" : std::move(parts->path)};
}

bool CookieOrigin::domainMatches(std::string_view domain) const {
    if (host == domain) return true;
    return !hasAddress && host.size() > domain.size() && host.ends_with(domain)
           && host[host.size() - domain.size() - 1] == '.';
}

bool CookieOrigin::pathMatches(std::string_view cookiePath) const {
    if (path == cookiePath) return true;
    return path.starts_with(cookiePath) && (cookiePath.ends_with('/') || path[cookiePath.size()] == '/');
}

std::string CookieOrigin::defaultPath() const {
    const auto last = path.rfind('/');
    return last == 0 || last == path.npos ? "/" : path.substr(0, last);
}

}  // namespace quorin::foundation
