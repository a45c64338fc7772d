#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Advertising settings of the player, handed on as the document gives them: no unit and no default is applied.
struct Ads {
    std::optional<Integer> adbreakUnlock{};
    std::optional<Integer> freeTime{};
    std::optional<Integer> overtimeTimeout{};
    std::optional<bool> vpaidEnabled{};
    std::optional<bool> truexEnabled{};
    std::optional<Integer> timeout{};
    std::optional<Integer> durationBetweenAd{};

    struct Keys {
        static constexpr std::string_view adbreakUnlock = "adbreakUnlock";
        static constexpr std::string_view freeTime = "freeTime";
        static constexpr std::string_view overtimeTimeout = "overtimeTimeout";
        static constexpr std::string_view vpaidEnabled = "vpaidEnabled";
        static constexpr std::string_view truexEnabled = "truexEnabled";
        static constexpr std::string_view timeout = "timeout";
        static constexpr std::string_view durationBetweenAd = "durationBetweenAd";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Ads> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Ads> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Ads&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
