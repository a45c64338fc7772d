#include "quorin/context/AccountCookie.hpp"

#include "quorin/platform/foundation/URL.hpp"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>

namespace quorin {
namespace {

using foundation::HTTPCookie;

bool hasControl(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 || byte == 0x7F;
    });
}

/// The URL that a domain stands for; text that is no host gives one that does not parse, or has no host.
std::string urlOf(std::string_view domain) {
    const auto url = foundation::URL::parse(domain);
    if (url && url->scheme) return std::string(domain);
    const std::string_view host = domain.substr(domain.starts_with('.') ? 1 : 0);
    const bool isBracketed = host.starts_with('[') && host.ends_with(']');
    return isBracketed || foundation::isHostName(host) ? "https://" + std::string(host) + "/" : std::string();
}

/// The first account cookie among those that are set by a response from `url`.
std::optional<HTTPCookie> firstOf(std::span<const std::string_view> setCookies, std::string_view url) {
    auto cookies = HTTPCookie::cookiesWithResponseHeaderFields(setCookies, url);
    const auto found = std::find_if(cookies.begin(), cookies.end(),
                                    [](const HTTPCookie& cookie) { return cookie.name == CookieKeys::kova; });
    return found == cookies.end() ? std::nullopt : std::optional(std::move(*found));
}

}  // namespace

std::optional<HTTPCookie> accountCookie(const std::optional<std::string>& kova,
                                        const std::optional<std::string>& domain) {
    if (!kova || !domain || hasControl(*kova)) return std::nullopt;
    const std::string field = std::string(CookieKeys::kova) + "=" + kova->substr(0, kova->find(';'));
    const std::array<std::string_view, 1> setCookies{field};
    return firstOf(setCookies, urlOf(*domain));
}

std::optional<HTTPCookie> accountCookieOf(const skell::Response& response) {
    return firstOf(response.allHeaders("Set-Cookie"), response.url());
}

}  // namespace quorin
