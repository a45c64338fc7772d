#pragma once

#include "quorin/platform/json/Value.hpp"

#include <map>
#include <string>

#pragma GCC visibility push(default)

namespace quorin {

using json::DocumentMap;
using json::Integer;
using json::List;
using json::Value;

/// Values under their names, in byte order of the names.
template <class T>
using MapOf = std::map<std::string, T, std::less<>>;

/// Headers, pairs of a query, replacements of a template.
using StringMap = MapOf<std::string>;

}  // namespace quorin

#pragma GCC visibility pop
