#include "quorin/platform/foundation/HTTPCookie.hpp"

#include "quorin/platform/foundation/CookieOrigin.hpp"
#include "quorin/platform/foundation/RawValues.hpp"
#include "quorin/platform/foundation/SetCookie.hpp"

#include <libpsl.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace quorin::foundation {
namespace {

using Time = HTTPCookie::Time;
using std::chrono::seconds;

/// That of an attribute is no longer either; the default path is as long as the URL.
constexpr std::size_t longestPath = 1024;

/// By the list within the library, and for names that it does not know by its default rule: a single label is public.
bool isPublicSuffix(const std::string& domain) { return psl_is_public_suffix(psl_builtin(), domain.c_str()) != 0; }

/// Section 5.2.2. Ages that lead beyond all time end with it; where there is none, all time is over.
Time after(Time now, seconds age) {
    if (age <= seconds::zero()) return Time();
    const auto passed = std::max(now.time_since_epoch(), seconds::zero());
    return age > seconds::max() - passed ? Time::max() : now + age;
}

/// Section 5.3, steps 4 to 6. Whether the host may set a cookie for the domain; a public suffix may for itself alone.
bool place(HTTPCookie& cookie, const std::string& domain, const CookieOrigin& origin) {
    if (!domain.empty() && !origin.domainMatches(domain)) return false;
    const bool isOwn = domain.empty() || domain == origin.host;
    const bool isAlone = domain.empty() || (!origin.hasAddress && isPublicSuffix(domain));
    if (isAlone && !isOwn) return false;
    cookie.isHostOnly = isAlone;
    cookie.domain = isOwn ? origin.host : domain;
    return true;
}

/// Section 5.3, or empty when the host may not set it.
std::optional<HTTPCookie> cookieFrom(const SetCookie& set, const CookieOrigin& origin, Time now) {
    HTTPCookie cookie{.name = std::string(set.name),
                      .value = std::string(set.value),
                      .path = set.path.empty() ? origin.defaultPath() : std::string(set.path),
                      .isSecure = set.isSecure,
                      .isHTTPOnly = set.isHTTPOnly,
                      .sameSite = set.sameSite,
                      .expires = set.maxAge ? after(now, *set.maxAge) : set.expires};
    if (cookie.path.size() > longestPath || !place(cookie, rawvalues::lowered(set.domain), origin)) return std::nullopt;
    return cookie;
}

}  // namespace

std::string_view HTTPCookie::nameOf(SameSite sameSite) {
    static constexpr std::array<std::string_view, 3> names{"None", "Lax", "Strict"};
    return names[static_cast<std::size_t>(sameSite)];
}

HTTPCookie::Time HTTPCookie::currentTime() { return std::chrono::floor<seconds>(std::chrono::system_clock::now()); }

std::vector<HTTPCookie> HTTPCookie::cookiesWithResponseHeaderFields(std::span<const std::string_view> setCookies,
                                                                    std::string_view url, Time now) {
    const auto origin = CookieOrigin::of(url);
    if (!origin) return {};
    std::vector<HTTPCookie> cookies;
    for (const auto text : setCookies) {
        const auto set = SetCookie::parse(text);
        auto cookie = set ? cookieFrom(*set, *origin, now) : std::nullopt;
        if (cookie) cookies.push_back(std::move(*cookie));
    }
    return cookies;
}

}  // namespace quorin::foundation
