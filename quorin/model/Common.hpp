#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Links to legal texts (document key "common").
struct Common {
    std::optional<std::string> termsOfUse{};
    std::optional<std::string> needMoreInfo{};
    std::optional<std::string> adChoices{};
    std::optional<std::string> privacyPolicy{};

    struct Keys {
        static constexpr std::string_view termsOfUse = "termsOfUse";
        static constexpr std::string_view needMoreInfo = "needMoreInfo";
        static constexpr std::string_view adChoices = "adChoices";
        static constexpr std::string_view privacyPolicy = "privacyPolicy";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Common> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Common> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Common&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
