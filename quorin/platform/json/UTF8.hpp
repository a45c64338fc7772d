#pragma once

#include <string>
#include <string_view>

namespace quorin::json {

/// The mark that may stand before a text in UTF-8.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Whether `text` is well-formed UTF-8 (RFC 3629).
bool isUTF8(std::string_view text);

/// `text` with U+FFFD in place of every byte that makes it ill-formed.
std::string repairedUTF8(std::string_view text);

}  // namespace quorin::json
