#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// The app versions that the brand knows of (document key "appversion").
struct AppVersion {
    std::optional<std::string> latest{};
    std::optional<std::string> required{};

    struct Keys {
        static constexpr std::string_view latest = "latest";
        static constexpr std::string_view required = "required";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<AppVersion> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<AppVersion> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const AppVersion&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
