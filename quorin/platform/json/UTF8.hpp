#pragma once

#include <string>
#include <string_view>

namespace quorin::json {

/// Whether `text` is well-formed UTF-8 (RFC 3629).
bool isUTF8(std::string_view text);

/// `text` with U+FFFD in place of every byte that makes it ill-formed.
std::string repairedUTF8(std::string_view text);

}  // namespace quorin::json
