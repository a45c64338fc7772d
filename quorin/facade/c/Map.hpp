#pragma once

#include "quorin/platform/brule/Object.hpp"
#include "quorin/table/Document.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorin::c {

/// Texts or objects under names, by position.
struct Map {
    static constexpr std::string_view objectName = "Map";

    struct Entry {
        std::string name{};
        std::optional<std::string> text{};
        std::optional<Object> object{};
    };
    std::vector<Entry> entries{};

    Map() = default;

    explicit Map(const StringMap& texts) {
        for (const auto& [name, text] : texts) entries.push_back({name, text, {}});
    }

    template <NamedObject T>
    explicit Map(const MapOf<T>& objects) {
        for (const auto& [name, object] : objects) entries.push_back({name, {}, Object(object)});
    }
};

}  // namespace quorin::c
