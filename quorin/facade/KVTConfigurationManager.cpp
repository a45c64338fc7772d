#include "quorin/facade/KVTConfigurationManager.hpp"

#include "quorin/platform/rx/Map.hpp"

#include <utility>

namespace quorin {

SwiftObservable KVTConfigurationManager::load(const std::string& url, LoadArguments arguments) const {
    return SwiftObservable(
        rx::map(configurationManager().initialize(url, std::move(arguments)),
                [](const Instance::ConfigurationPointer& loaded) { return KVTConfiguration(loaded); }));
}

std::optional<SwiftObservable> KVTConfigurationManager::initialize(const std::string& url, const std::string& deviceID,
                                                                   KVTBrand brand, const std::string& version) const {
    return load(url, {.deviceID = deviceID, .brand = brand.brand(), .version = version});
}

std::optional<SwiftObservable> KVTConfigurationManager::initialize(const std::string& url, const std::string& deviceID,
                                                                   KVTBrand brand) const {
    return load(url, {.deviceID = deviceID, .brand = brand.brand()});
}

std::optional<SwiftObservable> KVTConfigurationManager::initialize(const std::string& url, const std::string& deviceID,
                                                                   const std::string& version) const {
    return load(url, {.deviceID = deviceID, .version = version});
}

std::optional<SwiftObservable> KVTConfigurationManager::initialize(const std::string& url,
                                                                   const std::string& deviceID) const {
    return load(url, {.deviceID = deviceID});
}

std::optional<KVTConfiguration> KVTConfigurationManager::configuration() const {
    auto current = configurationManager().configuration();
    return current ? std::optional<KVTConfiguration>(std::move(current)) : std::nullopt;
}

std::optional<KVTAnonymousBind> KVTConfigurationManager::profileBind() const {
    auto bind = configurationManager().profileBind({.parent = true});
    return bind ? std::optional<KVTAnonymousBind>(std::move(*bind)) : std::nullopt;
}

void KVTConfigurationManager::setProfileBind(const std::optional<KVTAnonymousBind>& bind) const {
    if (!bind) return;
    const AnonymousBind& native = bind->anonymousBind();
    configurationManager().setParentProfileID(native.profileID);
    if (!native.profileJWT.empty()) configurationManager().setProfileJWT(native.profileJWT);
}

}  // namespace quorin
