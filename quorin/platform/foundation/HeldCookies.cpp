#include "quorin/platform/foundation/HeldCookies.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quorin::foundation {
namespace {

bool hasExpired(const HTTPCookie& cookie, HTTPCookie::Time now) { return cookie.expires && *cookie.expires <= now; }

bool maySend(const HTTPCookie& cookie, const CookieOrigin& origin) {
    return (!cookie.isHostOnly || cookie.domain == origin.host) && (!cookie.isSecure || origin.isHTTPS)
           && origin.pathMatches(cookie.path);
}

}  // namespace

void HeldCookies::set(HTTPCookie cookie, Time now) {
    dropExpired(now);
    const auto place = find(cookie);
    if (hasExpired(cookie, now)) {
        if (place) remove(*place);
        return;
    }
    soonestEnd_ = std::min(soonestEnd_, cookie.expires.value_or(Time::max()));
    if (!place) {
        add(std::move(cookie));
        return;
    }
    (*place)->cookie = std::move(cookie);
    touch(*place);
}

std::vector<HTTPCookie> HeldCookies::all(Time now) {
    dropExpired(now);
    std::vector<const Held*> ordered;
    ordered.reserve(held_.size());
    for (const auto& held : held_) ordered.push_back(&held);
    std::ranges::sort(ordered, {}, &Held::created);
    std::vector<HTTPCookie> cookies;
    cookies.reserve(ordered.size());
    for (const auto* held : ordered) cookies.push_back(held->cookie);
    return cookies;
}

std::vector<HTTPCookie> HeldCookies::toSend(const CookieOrigin& origin, Time now) {
    dropExpired(now);
    Group chosen;
    for (std::string_view domain = origin.host;;) {
        if (const auto group = domains_.find(domain); group != domains_.end())
            std::ranges::copy_if(group->second, std::back_inserter(chosen),
                                 [&](Place place) { return maySend(place->cookie, origin); });
        const auto dot = origin.hasAddress ? domain.npos : domain.find('.');
        if (dot == domain.npos) break;
        domain.remove_prefix(dot + 1);
    }
    std::ranges::sort(chosen, [](Place a, Place b) {
        const auto left = a->cookie.path.size();
        const auto right = b->cookie.path.size();
        return left != right ? left > right : a->created < b->created;
    });
    std::vector<HTTPCookie> cookies;
    cookies.reserve(chosen.size());
    for (const auto place : chosen) {
        cookies.push_back(place->cookie);
        touch(place);
    }
    return cookies;
}

std::optional<HeldCookies::Place> HeldCookies::find(const HTTPCookie& cookie) {
    const auto group = domains_.find(cookie.domain);
    if (group == domains_.end()) return std::nullopt;
    const auto found = std::ranges::find_if(group->second, [&](Place place) {
        return place->cookie.name == cookie.name && place->cookie.path == cookie.path;
    });
    return found == group->second.end() ? std::nullopt : std::optional(*found);
}

void HeldCookies::add(HTTPCookie cookie) {
    auto& group = domains_[cookie.domain];
    std::list<Held> fresh;
    fresh.push_back({.cookie = std::move(cookie), .created = ++counter_, .used = counter_});
    group.push_back(fresh.begin());
    held_.splice(held_.end(), fresh);
    if (group.size() > mostOfDomain) remove(*std::ranges::min_element(group, {}, [](Place p) { return p->used; }));
    if (held_.size() > most) remove(held_.begin());
}

void HeldCookies::touch(Place place) {
    place->used = ++counter_;
    held_.splice(held_.end(), held_, place);
}

void HeldCookies::remove(Place place) {
    const auto group = domains_.find(place->cookie.domain);
    std::erase(group->second, place);
    if (group->second.empty()) domains_.erase(group);
    held_.erase(place);
}

void HeldCookies::dropExpired(Time now) {
    if (now < soonestEnd_) return;
    soonestEnd_ = Time::max();
    for (auto place = held_.begin(); place != held_.end();) {
        const auto current = place++;
        if (hasExpired(current->cookie, now))
            remove(current);
        else
            soonestEnd_ = std::min(soonestEnd_, current->cookie.expires.value_or(Time::max()));
    }
}

}  // namespace quorin::foundation
