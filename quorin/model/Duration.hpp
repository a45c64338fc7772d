#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// How long continuous playback lasts, for short-form and for long-form videos.
struct Duration {
    std::optional<Integer> sf{};
    std::optional<Integer> lf{};

    struct Keys {
        static constexpr std::string_view sf = "sf";
        static constexpr std::string_view lf = "lf";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Duration> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Duration> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Duration&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
