#pragma once

#include "quorin/platform/foundation/CookieOrigin.hpp"
#include "quorin/platform/foundation/HTTPCookie.hpp"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin::foundation {

/// What a storage holds: finds cookies by their domain, and knows which were used longest ago and which give way (RFC
/// 6265 section 5.3). Every call first drops what has expired by its `now`. One thread at a time.
class HeldCookies {
public:
    using Time = HTTPCookie::Time;

    static constexpr std::size_t mostOfDomain = 50;
    static constexpr std::size_t most = 3000;

    HeldCookies() = default;
    HeldCookies(const HeldCookies&) = delete;
    HeldCookies& operator=(const HeldCookies&) = delete;

    /// Adds a cookie in the place of the one with its name, domain and path; one that has expired only removes that.
    void set(HTTPCookie cookie, Time now);

    /// In the order in which they were first set.
    std::vector<HTTPCookie> all(Time now);

    /// Longer paths first, then those first set (section 5.4). They count as used.
    std::vector<HTTPCookie> toSend(const CookieOrigin& origin, Time now);

private:
    struct Held {
        HTTPCookie cookie{};
        std::uint64_t created = 0;
        std::uint64_t used = 0;
    };
    using Place = std::list<Held>::iterator;
    using Group = std::vector<Place>;

    std::optional<Place> find(const HTTPCookie& cookie);
    void add(HTTPCookie cookie);
    void touch(Place place);
    void remove(Place place);
    void dropExpired(Time now);

    std::list<Held> held_{};  // used longest ago first
    std::map<std::string, Group, std::less<>> domains_{};
    std::uint64_t counter_ = 0;      // of creations and uses: one order, whatever the clock does
    Time soonestEnd_ = Time::max();  // nothing expires before it; it may be earlier than needed
};

}  // namespace quorin::foundation

#pragma GCC visibility pop
