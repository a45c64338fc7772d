#include "quorin/core/ConfigurationManager.hpp"

#include <utility>

namespace quorin {
namespace {

/// A section of the current configuration, which it shares and keeps.
template <class Section>
std::shared_ptr<const Section> sectionOf(std::optional<Section> Configuration::* member) {
    auto configuration = ConfigurationManager::sharedInstance().configuration();
    if (!configuration || !((*configuration).*member)) return nullptr;
    const Section* const section = &*((*configuration).*member);
    return {std::move(configuration), section};
}

template <class Value>
std::optional<Value> valueOf(std::optional<Value> Configuration::* member) {
    const auto configuration = ConfigurationManager::sharedInstance().configuration();
    return configuration ? (*configuration).*member : std::nullopt;
}

}  // namespace

ConfigurationManager::Instance& ConfigurationManager::sharedInstance() {
    static Instance& shared = *new Instance(platform::current());
    return shared;
}

std::optional<Brand> ConfigurationManager::brand() { return valueOf(&Configuration::brand); }
std::optional<std::string> ConfigurationManager::device() { return valueOf(&Configuration::device); }
std::optional<std::string> ConfigurationManager::version() { return valueOf(&Configuration::version); }

std::shared_ptr<const MapOf<WebService>> ConfigurationManager::webServices() {
    return sectionOf(&Configuration::webServices);
}
std::shared_ptr<const std::vector<Group>> ConfigurationManager::groups() { return sectionOf(&Configuration::groups); }
std::shared_ptr<const Common> ConfigurationManager::common() { return sectionOf(&Configuration::common); }
std::shared_ptr<const AppVersion> ConfigurationManager::appVersion() { return sectionOf(&Configuration::appVersion); }
std::shared_ptr<const MapOf<AnalyticSuite>> ConfigurationManager::analytics() {
    return sectionOf(&Configuration::analytics);
}
std::shared_ptr<const Initialize> ConfigurationManager::initialize() { return sectionOf(&Configuration::initialize); }
std::shared_ptr<const Auth> ConfigurationManager::auth() { return sectionOf(&Configuration::auth); }
std::shared_ptr<const Player> ConfigurationManager::player() { return sectionOf(&Configuration::player); }
std::shared_ptr<const MapOf<ConfigLayout>> ConfigurationManager::layouts() {
    return sectionOf(&Configuration::layouts);
}
std::shared_ptr<const ApplicationData> ConfigurationManager::applicationData() {
    return sectionOf(&Configuration::applicationData);
}
std::shared_ptr<const MapOf<Feature>> ConfigurationManager::features() { return sectionOf(&Configuration::features); }

std::optional<std::string> ConfigurationManager::kova() { return sharedInstance().kova(); }
std::optional<std::string> ConfigurationManager::profileJWT() { return sharedInstance().profileJWT(); }
std::string ConfigurationManager::parentProfileID() { return sharedInstance().parentProfileID(); }
std::string ConfigurationManager::childProfileID() { return sharedInstance().childProfileID(); }
std::optional<AnonymousBind> ConfigurationManager::profileBind(ProfileBindArguments which) {
    return sharedInstance().profileBind(which);
}

}  // namespace quorin
