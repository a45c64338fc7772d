#pragma once

#include "quorin/platform/json/Value.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// The member of an object under that name, or the element of a list at that index; empty where there is none.
std::optional<json::Value> below(const json::Value& value, std::string_view step);

/// What stands at the end of the steps.
std::optional<json::Value> valueAt(const json::DocumentMap& map, const std::vector<std::string>& steps);

}  // namespace quorin::document
