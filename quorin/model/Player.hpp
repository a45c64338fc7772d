#pragma once

#include "quorin/model/Ads.hpp"
#include "quorin/model/ContinuousPlayback.hpp"
#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Settings of the video player (document key "videoPlayer"), handed on as the document gives them.
struct Player {
    std::optional<Integer> historyInterval{};
    std::optional<Integer> contentInterval{};
    std::optional<Integer> contentTimeout{};
    std::optional<bool> hardwiredExternalDisplaysEnabled{};
    std::optional<bool> secureExternalOutput{};
    std::optional<Ads> ads{};
    std::optional<bool> prerollOnResume{};
    std::optional<ContinuousPlayback> continuousPlayback{};
    std::optional<std::string> castRecieverID{};
    std::optional<bool> useGeoCache{};

    struct Keys {
        static constexpr std::string_view historyInterval = "historyInterval";
        static constexpr std::string_view contentInterval = "contentInterval";
        static constexpr std::string_view contentTimeout = "contentTimeout";
        static constexpr std::string_view hardwiredExternalDisplaysEnabled = "hardwiredExternalDisplaysEnabled";
        static constexpr std::string_view secureExternalOutput = "secureExternalOutput";
        static constexpr std::string_view ads = "ads";
        static constexpr std::string_view prerollOnResume = "prerollOnResume";
        static constexpr std::string_view continuousPlayback = "continuousPlayback";
        static constexpr std::string_view castRecieverID = "castRecieverId";
        static constexpr std::string_view useGeoCache = "useGeoCache";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Player> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Player> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Player&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
