#pragma once

#include "quorin/core/ConfigurationManager.hpp"
#include "quorin/facade/KVTAnonymousBind.hpp"
#include "quorin/facade/KVTBrand.hpp"
#include "quorin/facade/KVTConfiguration.hpp"
#include "quorin/platform/brule/SwiftObservable.hpp"

#include <cstddef>
#include <optional>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

/// The manager for hosts that know objects, texts and integers alone. It holds nothing but a reference, so any number
/// of them are the same manager; any thread may use it.
class KVTConfigurationManager {
public:
    using Instance = ConfigurationManager::Instance;

    /// Speaks for the shared manager, which is built at the first use and not here.
    KVTConfigurationManager() = default;

    /// Speaks for a manager that outlives it.
    explicit KVTConfigurationManager(Instance& manager) : manager_(&manager) {}

    /// Loads the configuration from an http or https URL, as `Instance::initialize` does: one `KVTConfiguration`, or
    /// the error as it is. `KVTBrand::undefined` ends the process here; the forms without a brand load without one. The
    /// version is "1.0.0" where it is left out. The holder is always there.
    std::optional<SwiftObservable> initialize(const std::string& url, const std::string& deviceID, KVTBrand brand,
                                              const std::string& version) const;
    std::optional<SwiftObservable> initialize(const std::string& url, const std::string& deviceID,
                                              KVTBrand brand) const;
    std::optional<SwiftObservable> initialize(const std::string& url, const std::string& deviceID,
                                              const std::string& version) const;
    std::optional<SwiftObservable> initialize(const std::string& url, const std::string& deviceID) const;

    std::optional<SwiftObservable> initialize(const std::string& url, const std::string& deviceID,
                                              std::nullptr_t) const = delete;  // nor 0, which is no brand

    /// Empty before the first load has succeeded.
    std::optional<KVTConfiguration> configuration() const;
    bool configured() const { return configurationManager().configured(); }

    /// An assignment is stored and makes the account cookie anew.
    std::optional<std::string> kova() const { return configurationManager().kova(); }
    void setKova(std::optional<std::string> value) const { configurationManager().setKova(std::move(value)); }

    /// The parent profile with the token; empty without a token.
    std::optional<KVTAnonymousBind> profileBind() const;

    /// Assigns the parent profile's identifier and, unless it is empty, the token; nothing where `bind` is empty.
    void setProfileBind(const std::optional<KVTAnonymousBind>& bind) const;

    /// An assignment keeps what `ConfigurationManagerUtils::generateUserAgent` makes of the text.
    std::string userAgent() const { return configurationManager().userAgent(); }
    void setUserAgent(const std::string& existing) const { configurationManager().setUserAgent(existing); }

    /// What support needs to know, in ten lines, without any secret.
    std::string supportCard() const { return configurationManager().supportCard().text(); }

    /// The manager that this one speaks for.
    Instance& configurationManager() const { return manager_ ? *manager_ : ConfigurationManager::sharedInstance(); }

private:
    SwiftObservable load(const std::string& url, LoadArguments arguments) const;

    Instance* manager_ = nullptr;
};

}  // namespace quorin

#pragma GCC visibility pop
