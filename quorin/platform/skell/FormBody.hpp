#pragma once

#include "quorin/platform/json/DocumentMap.hpp"

#include <string>

namespace quorin::skell {

/// `content` as application/x-www-form-urlencoded (WHATWG URL Standard section 5.2): a blank is "+", ASCII letters,
/// digits and "*-._" stay, every other byte of a name or value is escaped. Members stand in byte order of their names.
///
/// A member of a nested map is `a[b]=c`, an item of a list `a[]=1`, a map inside a list `a[][b]=c`; these brackets are
/// not escaped, those within names are. Numbers are as JSON writes them, booleans "true" and "false", null an empty
/// value. An empty map or list inside adds nothing. Bytes that are not UTF-8 become U+FFFD.
std::string formBody(const json::DocumentMap& content);

}  // namespace quorin::skell
