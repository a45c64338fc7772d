#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Start-up and refresh settings of the app (document key "init"), handed on as the document gives them: no unit and no
/// default is applied.
struct Initialize {
    std::optional<Integer> configRefreshInterval{};
    std::optional<Integer> sessionRefreshInterval{};
    std::optional<std::string> storeLink{};
    std::optional<bool> isIRateEnabled{};
    std::optional<bool> isRateThisAppEnabled{};
    std::optional<std::string> optionalUpdateLink{};
    std::optional<std::string> forceUpdateLink{};
    std::optional<bool> isMaintenanceState{};
    std::optional<std::string> maintenanceMainMessage{};
    std::optional<Integer> compulsiveRewardCount{};
    std::optional<bool> compulsiveReward{};
    std::optional<Integer> geoCacheDuration{};

    struct Keys {
        static constexpr std::string_view configRefreshInterval = "configRefreshInterval";
        static constexpr std::string_view sessionRefreshInterval = "sessionRefreshInterval";
        static constexpr std::string_view storeLink = "storeLink";
        static constexpr std::string_view isIRateEnabled = "isIRateEnabled";
        static constexpr std::string_view isRateThisAppEnabled = "isRateThisAppEnabled";
        static constexpr std::string_view optionalUpdateLink = "optionalUpdateLink";
        static constexpr std::string_view forceUpdateLink = "forceUpdateLink";
        static constexpr std::string_view isMaintenanceState = "isMaintenanceState";
        static constexpr std::string_view maintenanceMainMessage = "maintenanceMainMessage";
        static constexpr std::string_view compulsiveRewardCount = "compulsiveRewardCount";
        static constexpr std::string_view compulsiveReward = "compulsiveReward";
        static constexpr std::string_view geoCacheDuration = "geoCacheDuration";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Initialize> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Initialize> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Initialize&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
