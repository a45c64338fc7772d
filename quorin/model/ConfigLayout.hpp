#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// One layout of the app. Its `id` is the name under which it stands in the document, whatever its object holds.
struct ConfigLayout {
    std::optional<std::string> id{};
    std::optional<Integer> initialRequest{};
    std::optional<Integer> paginationSize{};
    std::optional<bool> kidSafeDisplayCategoryMenu{};
    std::optional<Integer> heroCycleDuration{};
    std::optional<Integer> successDuration{};

    struct Keys {
        static constexpr std::string_view id = "id";
        static constexpr std::string_view initialRequest = "initialRequest";
        static constexpr std::string_view paginationSize = "paginationSize";
        static constexpr std::string_view kidSafeDisplayCategoryMenu = "kidSafeDisplayCategoryMenu";
        static constexpr std::string_view heroCycleDuration = "heroCycleDuration";
        static constexpr std::string_view successDuration = "successDuration";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<ConfigLayout> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<ConfigLayout> fromJSON(const DocumentMap& json, std::string_view id,
                                                ReadReport* report = nullptr);
    static std::optional<ConfigLayout> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const ConfigLayout&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
