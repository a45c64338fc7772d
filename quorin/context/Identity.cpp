#include "quorin/context/Identity.hpp"

#include "quorin/context/ConfigurationManagerUtils.hpp"
#include "quorin/context/HeaderKeys.hpp"
#include "quorin/context/PersistenceKeys.hpp"
#include "quorin/platform/rx/DistinctUntilChanged.hpp"
#include "quorin/platform/rx/Share.hpp"

#include <functional>
#include <memory>
#include <string_view>
#include <type_traits>
#include <utility>

namespace quorin {
namespace {

void store(MorrStandard& store, std::string_view key, const std::string& value) { store.put(value, key); }

void store(MorrStandard& store, std::string_view key, const std::optional<std::string>& value) {
    if (value)
        store.put(*value, key);
    else
        store.remove(key);
}

/// Keeps the store in step with a stream for as long as the stream lives, beginning with its current value. That value
/// is not written back where it is the one just read: another process may have changed it since. `then` is told of each
/// value when it is stored.
template <class T>
void persistUnder(std::string_view key, const rx::Observable<T>& stream, const std::shared_ptr<MorrStandard>& into,
                  const Identity::OptionalText& restored,
                  const std::function<void(const std::type_identity_t<T>&)>& then = {}) {
    rx::distinctUntilChanged(stream, std::equal_to<T>())
        .subscribe({.next = [key, into, restored, then, isFirst = true](const T& value) mutable {
            const bool isRestored = std::exchange(isFirst, false) && restored == value;
            if (!isRestored) store(*into, key, value);
            if (then) then(value);
        }});
}

}  // namespace

Identity::Identity(const Platform& platform) : Identity(platform, StoredIdentity::completedIn(platform)) {}

Identity::Identity(const Platform& platform, const StoredIdentity& stored)
    : platform_(platform),
      parentProfileID_(stored.parentProfileID.value_or(std::string())),
      childProfileID_(stored.childProfileID.value_or(std::string())),
      profileJWT_(stored.profileJWT),
      kova_(stored.kova),
      configDomain_(stored.domain),
      userAgent_(ConfigurationManagerUtils::generateUserAgent({}, platform)),
      vexoMVPD_(stored.vexoMVPD),
      kovaObserver_(rx::share(kova_.asObservable())),
      parentProfileIDObserver_(rx::share(parentProfileID_.asObservable())),
      childProfileIDObserver_(rx::share(childProfileID_.asObservable())),
      profileJWTObserver_(rx::share(profileJWT_.asObservable())) {
    persist(stored);
}

/// The subscriptions last as long as the cells. They keep the observers connected, which is why a host that subscribes
/// later gets no current value.
void Identity::persist(const StoredIdentity& stored) {
    const auto& store = platform_.store;
    followAccount(stored.kova);
    persistUnder(PersistenceKeys::parentProfileID, parentProfileIDObserver_, store, stored.parentProfileID);
    persistUnder(PersistenceKeys::childProfileID, childProfileIDObserver_, store, stored.childProfileID);
    persistUnder(PersistenceKeys::profileJWT, profileJWTObserver_, store, stored.profileJWT);
    persistUnder(PersistenceKeys::domain, configDomain_.asObservable(), store, stored.domain);
    persistUnder(PersistenceKeys::vexoMVPD, vexoMVPD_.asObservable(), store, stored.vexoMVPD);
}

/// Whenever the account changes, and once with the account that was restored, its cookie follows.
void Identity::followAccount(const OptionalText& stored) {
    persistUnder(PersistenceKeys::kova, kovaObserver_, platform_.store, stored,
                 [this](const OptionalText& kova) { sync(createCookie(kova)); });
}

std::optional<foundation::HTTPCookie> Identity::createCookie(const OptionalText& kova) const {
    return accountCookie(kova, configDomain());
}

void Identity::sync(const std::optional<foundation::HTTPCookie>& kovaCookie) {
    if (!kovaCookie || kovaCookie->value.empty()) return;
    configDomain_.assign(kovaCookie->domain);
    if (platform_.transport.cookies) platform_.transport.cookies->setCookie(*kovaCookie);
}

void Identity::setUserAgent(const std::string& existing) {
    userAgent_.assign(ConfigurationManagerUtils::generateUserAgent(existing, platform_));
}

std::optional<AnonymousBind> Identity::profileBind(bool parent) const {
    auto token = profileJWT();
    if (!token) return std::nullopt;
    return AnonymousBind{.profileID = parent ? parentProfileID() : childProfileID(), .profileJWT = *std::move(token)};
}

void Identity::generateNewParentProfileID() {
    setParentProfileID(ConfigurationManagerUtils::generateParentProfileID(platform_));
}

StringMap Identity::headers() const {
    StringMap headers;
    headers.emplace(HeaderKeys::userAgent, userAgent());
    if (auto provider = vexoMVPD()) headers.emplace(HeaderKeys::vexoMVPD, *std::move(provider));
    if (auto account = kova()) headers.emplace(HeaderKeys::kova, *std::move(account));
    return headers;
}

}  // namespace quorin
