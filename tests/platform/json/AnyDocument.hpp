#pragma once

#include <random>
#include <string>

namespace quorin::json {

using Random = std::mt19937;

/// A text that is to be read: brands with their sections, in any spelling that JSON allows. Among them are all forms of
/// blanks, escapes and numbers, members of one name, objects large enough to be indexed, a byte order mark, and
/// nestings to the deepest that is allowed.
std::string anyDocument(Random& random);

}  // namespace quorin::json
