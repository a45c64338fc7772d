#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// What the app tells about itself (document key "application"). The document nests the two versions in an object
/// "version"; the archive keeps them flat beside the other values.
struct ApplicationData {
    std::optional<std::string> author{};
    std::optional<std::string> copyright{};
    std::optional<std::string> supportEmail{};
    std::optional<std::string> link{};
    std::optional<std::string> latestVersion{};
    std::optional<std::string> requiredVersion{};

    struct Keys {
        static constexpr std::string_view author = "author";
        static constexpr std::string_view copyright = "copyright";
        static constexpr std::string_view email = "email";
        static constexpr std::string_view link = "link";
        static constexpr std::string_view latest = "latest";
        static constexpr std::string_view required = "required";
        static constexpr std::string_view version = "version";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    static std::optional<ApplicationData> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<ApplicationData> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const ApplicationData&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
