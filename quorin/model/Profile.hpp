#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// Settings of user profiles (document key "profile").
struct Profile {
    std::optional<std::string> defaultAvatarId{};
    std::optional<Integer> limit{};  ///< how many profiles an account may have

    struct Keys {
        static constexpr std::string_view defaultAvatarId = "defaultAvatarId";
        static constexpr std::string_view limit = "limit";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<Profile> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Profile> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Profile&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
