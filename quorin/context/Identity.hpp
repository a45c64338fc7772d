#pragma once

#include "quorin/context/AccountCookie.hpp"
#include "quorin/context/AnonymousBind.hpp"
#include "quorin/context/Platform.hpp"
#include "quorin/platform/rx/Observable.hpp"
#include "quorin/platform/rx/Variable.hpp"
#include "quorin/table/Document.hpp"

#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

struct StoredIdentity;

/// The identity and session values that every request needs, each in an observable cell. The persistent ones are
/// restored from the store in one read, the profiles made where it has none, and put back at every change, before the
/// assignment returns (but for the one case that `rx::Variable::assign` names). Any thread.
class Identity {
public:
    using OptionalText = std::optional<std::string>;

    /// `platform` has to outlive it.
    explicit Identity(const Platform& platform);

    OptionalText kova() const { return kova_.value(); }
    void setKova(OptionalText value) { kova_.assign(std::move(value)); }

    std::string parentProfileID() const { return parentProfileID_.value(); }
    void setParentProfileID(std::string value) { parentProfileID_.assign(std::move(value)); }

    std::string childProfileID() const { return childProfileID_.value(); }
    void setChildProfileID(std::string value) { childProfileID_.assign(std::move(value)); }

    OptionalText profileJWT() const { return profileJWT_.value(); }
    void setProfileJWT(OptionalText value) { profileJWT_.assign(std::move(value)); }

    OptionalText vexoMVPD() const { return vexoMVPD_.value(); }
    void setVEXOMVPD(OptionalText value) { vexoMVPD_.assign(std::move(value)); }

    OptionalText configDomain() const { return configDomain_.value(); }
    void setConfigDomain(OptionalText value) { configDomain_.assign(std::move(value)); }

    std::string userAgent() const { return userAgent_.value(); }
    /// Keeps what `generateUserAgent` makes of `existing`.
    void setUserAgent(const std::string& existing);

    /// Every assignment made after the subscription, equal ones included, and not the value of the moment.
    const rx::Observable<OptionalText>& kovaObserver() const { return kovaObserver_; }
    const rx::Observable<std::string>& parentProfileIDObserver() const { return parentProfileIDObserver_; }
    const rx::Observable<std::string>& childProfileIDObserver() const { return childProfileIDObserver_; }
    const rx::Observable<OptionalText>& profileJWTObserver() const { return profileJWTObserver_; }

    /// The token with the parent's or the child's identifier; absent without a token.
    std::optional<AnonymousBind> profileBind(bool parent) const;

    /// A new parent identifier; the child's stays.
    void generateNewParentProfileID();

    /// The cookie that carries `kova` to the current domain, as `accountCookie` makes it.
    std::optional<foundation::HTTPCookie> createCookie(const OptionalText& kova) const;

    /// Makes the cookie's domain the current one and installs the cookie where requests find it. Nothing happens
    /// without a cookie, or when its value is empty.
    void sync(const std::optional<foundation::HTTPCookie>& kovaCookie);

    /// Installs the cookie of the current account identifier, if it makes one.
    void regenerateCookie() { sync(createCookie(kova())); }

    /// The headers that stem from the identity: user agent, TV provider and account identifier, absent ones left out.
    StringMap headers() const;

private:
    Identity(const Platform& platform, const StoredIdentity& stored);
    void persist(const StoredIdentity& stored);
    void followAccount(const OptionalText& stored);

    const Platform& platform_;
    rx::Variable<std::string> parentProfileID_;
    rx::Variable<std::string> childProfileID_;
    rx::Variable<OptionalText> profileJWT_;
    rx::Variable<OptionalText> kova_;
    rx::Variable<OptionalText> configDomain_;
    rx::Variable<std::string> userAgent_;
    rx::Variable<OptionalText> vexoMVPD_;
    rx::Observable<OptionalText> kovaObserver_;
    rx::Observable<std::string> parentProfileIDObserver_;
    rx::Observable<std::string> childProfileIDObserver_;
    rx::Observable<OptionalText> profileJWTObserver_;
};

}  // namespace quorin

#pragma GCC visibility pop
