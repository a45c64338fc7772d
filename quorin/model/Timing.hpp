#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// When continuous playback sets in, for short-form and for long-form videos.
struct Timing {
    std::optional<Integer> sf{};
    std::optional<Integer> lf{};

    struct Keys {
        static constexpr std::string_view sf = "sf";
        static constexpr std::string_view lf = "lf";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Timing> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Timing> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Timing&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
