#pragma once

#include "quorin/platform/json/DocumentMap.hpp"

#include <string>

namespace quorin::skell {

/// `content` as a well-formed XML document (XML 1.0, fifth edition) in UTF-8, without a declaration and without blanks
/// between its elements: the root `request` has an element for each member, in byte order of their names.
///
/// A nested map is an element with elements of its own; a list is one element an item, each of the member's name, and a
/// list inside a list is one such element around those of its items. So an empty list is no element at all. Null is an
/// empty element, numbers are as JSON writes them, booleans "true" and "false". A name that is no XML name, or has a
/// colon, which namespaces claim, becomes `<member name="...">`. Bytes that are not UTF-8 and characters that no XML
/// document can hold, such as most control characters, become U+FFFD.
std::string xmlBody(const json::DocumentMap& content);

}  // namespace quorin::skell
