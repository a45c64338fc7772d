#include "quorin/platform/foundation/HTTPCookieStorage.hpp"

#include "quorin/platform/foundation/CookieOrigin.hpp"

namespace quorin::foundation {

const std::shared_ptr<HTTPCookieStorage>& HTTPCookieStorage::shared() {
    static const auto& storage = *new std::shared_ptr<HTTPCookieStorage>(std::make_shared<HTTPCookieStorage>());
    return storage;
}

void HTTPCookieStorage::setCookie(HTTPCookie cookie) {
    const auto now = clock_();
    const std::lock_guard lock(mutex_);
    held_.set(std::move(cookie), now);
}

void HTTPCookieStorage::setCookies(std::span<const std::string_view> setCookies, std::string_view url) {
    for (auto& cookie : HTTPCookie::cookiesWithResponseHeaderFields(setCookies, url, clock_()))
        setCookie(std::move(cookie));
}

std::vector<HTTPCookie> HTTPCookieStorage::cookies() const {
    const auto now = clock_();
    const std::lock_guard lock(mutex_);
    return held_.all(now);
}

std::vector<HTTPCookie> HTTPCookieStorage::cookies(std::string_view url) const {
    const auto origin = CookieOrigin::of(url);
    if (!origin) return {};
    const auto now = clock_();
    const std::lock_guard lock(mutex_);
    return held_.toSend(*origin, now);
}

std::string HTTPCookieStorage::cookieHeader(std::string_view url) const {
    std::string header;
    for (const auto& cookie : cookies(url)) {
        if (!header.empty()) header += "; ";
        header.append(cookie.name).append("=").append(cookie.value);
    }
    return header;
}

}  // namespace quorin::foundation
