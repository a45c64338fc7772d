#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// A profile and the token that the profile service gave for it. Both are required; either may be empty.
struct AnonymousBind {
    std::string profileID{};
    std::string profileJWT{};  ///< a secret

    struct Keys {
        static constexpr std::string_view profileID = "profileId";
        static constexpr std::string_view profileJWT = "jwt";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<AnonymousBind> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<AnonymousBind> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const AnonymousBind&) const = default;

    /// Whether neither is empty.
    bool isValid() const { return !profileID.empty() && !profileJWT.empty(); }

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
