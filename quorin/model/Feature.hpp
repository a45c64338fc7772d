#pragma once

#include "quorin/table/Section.hpp"

#include <optional>
#include <string>
#include <string_view>

#pragma GCC visibility push(default)

namespace quorin {

/// A named feature switch. Nothing inside `params` is interpreted: in the document it is the feature's whole object.
struct Feature {
    std::optional<std::string> name{};
    std::optional<DocumentMap> params{};

    struct Keys {
        static constexpr std::string_view name = "name";
        static constexpr std::string_view params = "params";
    };

    /// The server reader, the reader of the archived form, and its writer, as `table/Section.hpp` tells.
    /// Empty when the object has no members.
    static std::optional<Feature> fromJSON(const DocumentMap& json, ReadReport* report = nullptr);
    static std::optional<Feature> fromJSON(const DocumentMap& json, std::string_view name,
                                           ReadReport* report = nullptr);
    static std::optional<Feature> fromEncoded(const DocumentMap& encoded, ReadReport* report = nullptr);
    DocumentMap encode() const;
    bool operator==(const Feature&) const = default;

    static const KeyTable& keyTable();
};

}  // namespace quorin

#pragma GCC visibility pop
