#pragma once

#include "quorin/platform/json/DocumentMap.hpp"

#include <span>
#include <string_view>

namespace quorin::schema {

/// The schema of the texts in any case of their ASCII letters. It lists them as they are, too, for an editor to offer.
json::DocumentMap anyCaseOf(std::span<const std::string_view> texts);

}  // namespace quorin::schema
