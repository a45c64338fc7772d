#pragma once

#include "quorin/context/AnonymousBind.hpp"
#include "quorin/context/CookieKeys.hpp"
#include "quorin/model/Configuration.hpp"

#include <memory>
#include <optional>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// Whose profile is bound to the token: `profileBind({.parent = true})`.
struct ProfileBindArguments {
    bool parent = false;
};

/// The one manager of the process and what it knows, in one line each. The first call of any of these builds it.
///
/// A section is shared with the configuration it belongs to and stays true while another one is loaded. Null, or empty,
/// means that no configuration is loaded or the loaded one has no such section. Each call costs the copy of one pointer
/// and may be made from any thread.
class ConfigurationManager {
public:
    class Instance;
    using CookieKeys = quorin::CookieKeys;

    ConfigurationManager() = delete;

    /// Built once, with `platform::current()`, and never destroyed. Of threads that ask at once one builds it, which
    /// opens the store, and the others wait for that.
    static Instance& sharedInstance();

    /// What the load of the configuration was asked for.
    static std::optional<Brand> brand();
    static std::optional<std::string> device();
    static std::optional<std::string> version();

    static std::shared_ptr<const MapOf<WebService>> webServices();
    static std::shared_ptr<const std::vector<Group>> groups();
    static std::shared_ptr<const Common> common();
    static std::shared_ptr<const AppVersion> appVersion();
    static std::shared_ptr<const MapOf<AnalyticSuite>> analytics();
    /// The section; loading is the operation `initialize` of the instance.
    static std::shared_ptr<const Initialize> initialize();
    static std::shared_ptr<const Auth> auth();
    static std::shared_ptr<const Player> player();
    static std::shared_ptr<const MapOf<ConfigLayout>> layouts();
    static std::shared_ptr<const ApplicationData> applicationData();
    static std::shared_ptr<const MapOf<Feature>> features();

    /// The identity values, as `Instance` tells of each.
    static std::optional<std::string> kova();
    static std::optional<std::string> profileJWT();
    static std::string parentProfileID();
    static std::string childProfileID();
    static std::optional<AnonymousBind> profileBind(ProfileBindArguments which = {});
};

}  // namespace quorin

#pragma GCC visibility pop

#include "quorin/core/Instance.hpp"  // IWYU pragma: export
