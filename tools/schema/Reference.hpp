#pragma once

#include "quorin/platform/json/DocumentMap.hpp"

#include <string>
#include <string_view>

namespace quorin::schema {

/// The schema that is the definition `name` of the same document.
inline json::DocumentMap referenceTo(std::string_view name) { return {{"$ref", "#/$defs/" + std::string(name)}}; }

}  // namespace quorin::schema
