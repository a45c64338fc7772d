#pragma once

#include "tests/platform/json/AnyDocument.hpp"

#include <string>

namespace quorin::json {

/// `text` with one damage: bits turned, bytes put in, taken out or cut off, tokens exchanged, or a piece of syntax, of
/// a number or of broken UTF-8 set among them. It may still be read.
std::string damaged(std::string text, Random& random);

}  // namespace quorin::json
