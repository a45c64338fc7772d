#pragma once

#include "quorin/model/AnalyticSuite.hpp"
#include "quorin/model/AppVersion.hpp"
#include "quorin/model/ApplicationData.hpp"
#include "quorin/model/Auth.hpp"
#include "quorin/model/Brand.hpp"
#include "quorin/model/Common.hpp"
#include "quorin/model/ConfigLayout.hpp"
#include "quorin/model/Feature.hpp"
#include "quorin/model/Group.hpp"
#include "quorin/model/Initialize.hpp"
#include "quorin/model/Player.hpp"
#include "quorin/model/Profile.hpp"
#include "quorin/services/WebService.hpp"
#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#pragma GCC visibility push(default)

namespace quorin {

/// The remote configuration of one brand: the root of the tree. Every section that the document does not hold, or holds
/// in another shape, is absent.
///
/// `brand`, `device` and `version` are written to the archive and never read from any form: who loads a configuration
/// stamps it with them. One that a manager gives never changes, so any thread may read it.
struct Configuration {
    std::optional<Brand> brand{};
    std::optional<std::string> device{};
    std::optional<std::string> version{};
    std::optional<MapOf<WebService>> webServices{};
    std::optional<std::vector<Group>> groups{};
    std::optional<Common> common{};
    std::optional<AppVersion> appVersion{};
    std::optional<MapOf<AnalyticSuite>> analytics{};
    std::optional<Initialize> initialize{};
    std::optional<Auth> auth{};
    std::optional<Player> player{};
    std::optional<MapOf<ConfigLayout>> layouts{};
    std::optional<Profile> profile{};
    std::optional<ApplicationData> applicationData{};
    std::optional<MapOf<Feature>> features{};

    struct Keys {
        static constexpr std::string_view brand = "brand";
        static constexpr std::string_view device = "device";
        static constexpr std::string_view version = "version";
        static constexpr std::string_view application = "application";
        static constexpr std::string_view features = "features";
        static constexpr std::string_view webServices = "webservices";
        static constexpr std::string_view groups = "groups";
        static constexpr std::string_view common = "common";
        static constexpr std::string_view appVersion = "appversion";
        static constexpr std::string_view analytics = "analytics";
        static constexpr std::string_view initialize = "init";
        static constexpr std::string_view auth = "auth";
        static constexpr std::string_view videoPlayer = "videoPlayer";
        static constexpr std::string_view layouts = "layouts";
        static constexpr std::string_view profile = "profile";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    /// Never empty: an object without any of the keys makes a configuration without sections.
    static std::optional<Configuration> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Configuration> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Configuration&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
