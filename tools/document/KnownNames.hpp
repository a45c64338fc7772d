#pragma once

#include "quorin/table/KeyTable.hpp"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quorin::document {

/// The names that readers ask for in the object to which `steps` lead from the
/// top of a section that is read by `table`; empty where they ask for none, or
/// for any.
std::vector<std::string_view> namesKnownAt(const KeyTable& table, std::span<const std::string> steps);

}  // namespace quorin::document
