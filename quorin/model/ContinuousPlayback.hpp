#pragma once

#include "quorin/model/Duration.hpp"
#include "quorin/model/Timing.hpp"
#include "quorin/table/Section.hpp"

#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Playing on to the next video of a playlist.
struct ContinuousPlayback {
    std::optional<Timing> timing{};
    std::optional<Integer> playlistSize{};
    std::optional<bool> enabled{};
    std::optional<Duration> duration{};

    struct Keys {
        static constexpr std::string_view timing = "timing";
        static constexpr std::string_view playlistSize = "playlistSize";
        static constexpr std::string_view enabled = "enabled";
        static constexpr std::string_view duration = "duration";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<ContinuousPlayback> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<ContinuousPlayback> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const ContinuousPlayback&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
