#pragma once

#include "quorin/platform/foundation/HTTPCookie.hpp"
#include "quorin/platform/foundation/HeldCookies.hpp"

#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// Cookies in memory, as a client keeps them between requests (RFC 6265 sections 5.3 and 5.4): at most 50 of a domain
/// and 3,000 in all, of which those that were used longest ago give way. To be set and to be sent is to be used. Any
/// thread.
class HTTPCookieStorage {
public:
    /// The time by which cookies expire. Called on the thread that calls the storage, and never under its lock.
    using Clock = std::function<HTTPCookie::Time()>;

    /// Empty. `clock` must not be an empty function.
    explicit HTTPCookieStorage(Clock clock = HTTPCookie::currentTime) : clock_(std::move(clock)) {}

    /// The one of the process, which requests use unless they are told otherwise. Never destroyed.
    static const std::shared_ptr<HTTPCookieStorage>& shared();

    /// Adds a cookie in the place of the one with its name, domain and path. One that has expired only removes that.
    void setCookie(HTTPCookie cookie);

    /// Keeps what the `Set-Cookie` values of a response from `url` set.
    void setCookies(std::span<const std::string_view> setCookies, std::string_view url);

    /// All that have not expired, in the order in which they were first set.
    std::vector<HTTPCookie> cookies() const;

    /// Those to send to `url`: longer paths first, then those set first. Empty when `url` has no host.
    std::vector<HTTPCookie> cookies(std::string_view url) const;

    /// The value of the `Cookie` header for `url`, or empty text when there is nothing to send.
    std::string cookieHeader(std::string_view url) const;

private:
    Clock clock_;
    mutable std::mutex mutex_{};
    mutable HeldCookies held_{};  // guarded by mutex_
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
