#pragma once

#include "quorin/core/ConfigurationManager.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::tool {

/// An identity value that can be assigned by its name.
struct IdentityName {
    std::string_view name;
    bool optional;  ///< whether it can be absent
    void (*assign)(ConfigurationManager::Instance& manager, const std::optional<std::string>& value);

    static const IdentityName* find(std::string_view name);

    /// The names of all of them, or of those that can be absent.
    static std::vector<std::string> all(bool optionalOnly);
};

/// A secret as JSON: masked unless it is `revealed`, null where it is absent.
json::Value shown(const std::optional<std::string>& secret, bool revealed);

}  // namespace quorin::tool
