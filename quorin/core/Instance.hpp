#pragma once

#include "quorin/context/Identity.hpp"
#include "quorin/context/Platform.hpp"
#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/core/LoadArguments.hpp"
#include "quorin/core/LoadReport.hpp"
#include "quorin/core/SupportCard.hpp"
#include "quorin/model/Configuration.hpp"
#include "quorin/platform/rx/Observable.hpp"

#include <memory>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The state of a running app: the current configuration, in memory only, and the identity values. An app uses the one
/// that `ConfigurationManager::sharedInstance()` yields; tests make their own. All of it may be used from any thread.
///
/// Each identity value is any bytes, of any length and with NUL or none of UTF-8 among them, and comes back as it went
/// in, after a restart too; an empty one is not absent. One that no header can carry (a control character but the tab)
/// makes the request that bears it fail with `SkellError::Kind::invalidRequest`, and nothing is sent.
class ConfigurationManager::Instance {
public:
    using ConfigurationPointer = std::shared_ptr<const Configuration>;
    using OptionalText = Identity::OptionalText;

    /// Restores the identity values from the platform's store. The services that `platform` leaves out are standard.
    explicit Instance(const Platform& platform);
    ~Instance();
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    /// The configuration of the last successful load; null before the first. What must belong together is read from one
    /// of them: it never changes, whatever is loaded later.
    ConfigurationPointer configuration() const;
    bool configured() const { return configuration() != nullptr; }

    /// What is known of the load that made the current configuration, which it holds: a caller that wants both takes
    /// the configuration out of it. Null before the first successful load.
    std::shared_ptr<const LoadReport> loadReport() const;

    /// The same of the last load that failed, however many have succeeded since; null when none did. One whose memory
    /// ended leaves no report.
    std::shared_ptr<const LoadReport> failedLoad() const;

    /// What support needs to know of the app's configuration, for the user to send: without any secret.
    SupportCard supportCard() const;

    /// Loads the configuration from an http or https URL: one value, or the request library's error, or an `Oops`
    /// record. Each subscription sends a request and, when it succeeds, replaces the current configuration; a failure
    /// leaves it as it is. Delivered on the request library's thread.
    rx::Observable<ConfigurationPointer> initialize(const std::string& url, LoadArguments arguments) const;

    /// Loads the configuration from a file, at once, before it returns; the stream delivers what came of it, which is
    /// an `Oops` record when there is no such file, it is larger than 1 GiB, or no JSON object is in it.
    rx::Observable<ConfigurationPointer> initialize(const PathURL& file, const LoadArguments& arguments) const;

    /// The brand's section of a document, with the web services of the document's root in place of its own; the
    /// document itself where no brand is given, or it has no section of that brand.
    static DocumentMap config(const DocumentMap& json, std::optional<Brand> brand);

    /// The account identifier. An assignment is stored before it returns (but for the one case that
    /// `rx::Variable::assign` names); absent removes it from the store.
    OptionalText kova() const { return identity_.kova(); }
    void setKova(OptionalText value) { identity_.setKova(std::move(value)); }

    std::string parentProfileID() const { return identity_.parentProfileID(); }
    void setParentProfileID(std::string value) { identity_.setParentProfileID(std::move(value)); }

    /// The profile that is selected: on a fresh installation the parent's.
    std::string childProfileID() const { return identity_.childProfileID(); }
    void setChildProfileID(std::string value) { identity_.setChildProfileID(std::move(value)); }

    /// The token of the profile service: a secret.
    OptionalText profileJWT() const { return identity_.profileJWT(); }
    void setProfileJWT(OptionalText value) { identity_.setProfileJWT(std::move(value)); }

    /// The TV provider that the user signed in with.
    OptionalText VEXOMVPD() const { return identity_.vexoMVPD(); }
    void setVEXOMVPD(OptionalText value) { identity_.setVEXOMVPD(std::move(value)); }

    /// The domain, or URL, for which the account cookie is made; `sync` sets it.
    OptionalText configDomain() const { return identity_.configDomain(); }

    /// An assignment keeps what `ConfigurationManagerUtils::generateUserAgent` makes of the text, for this process.
    std::string userAgent() const { return identity_.userAgent(); }
    void setUserAgent(const std::string& existing) { identity_.setUserAgent(existing); }

    /// The time-zone header: made at the first read, and anew by each successful load.
    std::string userZ() const;
    void setUserZ(std::string value);

    /// Every assignment made after the subscription, equal ones included, and not the value of the moment.
    rx::Observable<OptionalText> kovaObserver() const { return identity_.kovaObserver(); }
    rx::Observable<std::string> parentProfileIDObserver() const { return identity_.parentProfileIDObserver(); }
    rx::Observable<std::string> childProfileIDObserver() const { return identity_.childProfileIDObserver(); }
    rx::Observable<OptionalText> profileJWTObserver() const { return identity_.profileJWTObserver(); }

    /// The headers of every request: "User-Agent" and "VEXO-USERTZ" always; "appversion" with a configuration,
    /// "VEXO-MVPD" and "KOVA" with a value.
    StringMap defaultHeaders() const;

    /// The token with the parent's or the child's identifier; absent without a token.
    std::optional<AnonymousBind> profileBind(ProfileBindArguments which = {}) const {
        return identity_.profileBind(which.parent);
    }

    /// A new parent identifier; the child's stays.
    void generateNewParentProfileID() { identity_.generateNewParentProfileID(); }

    /// The cookie named "KOVA" that carries `kova` to the current domain: for its host alone, until the session ends.
    /// Absent where `kova` or the domain is absent, the domain is neither a URL nor a host, or `kova` has a control
    /// character or more than a cookie holds (4096 bytes with its name). Of a `kova` with ";" it carries what stands
    /// before.
    std::optional<foundation::HTTPCookie> createCookie(const OptionalText& kova) const {
        return identity_.createCookie(kova);
    }

    /// Keeps the cookie's domain as the current one, and the cookie in the storage of the platform's transport, where
    /// it replaces one of the same name, domain and path. Nothing happens without a cookie, or when its value is empty.
    void sync(const std::optional<foundation::HTTPCookie>& kovaCookie) { identity_.sync(kovaCookie); }

    /// Installs the cookie of the current account identifier, as its every change does; nothing where it makes none.
    void regenerateCookie() { identity_.regenerateCookie(); }

    /// The first cookie named "KOVA", in just these letters, that a response sets; absent when it sets none.
    static std::optional<foundation::HTTPCookie> kovaCookie(const skell::Response& response) {
        return accountCookieOf(response);
    }

    /// Nothing: a manager has nothing to undo. Hosts may call it at any time.
    void teardown() const {}

    /// What it was made with, and the standard services in the place of what was left out.
    const Platform& platform() const { return platform_; }

private:
    struct Loaded;

    const Platform platform_;
    Identity identity_;
    std::shared_ptr<Loaded> loaded_;
};

}  // namespace quorin

#pragma GCC visibility pop
