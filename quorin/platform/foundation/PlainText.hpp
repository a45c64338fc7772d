#pragma once

#include <string>
#include <string_view>

namespace quorin::foundation {

/// `text` as one line that a terminal only shows: a blank in place of each control character, of C0, DEL and C1, and
/// U+FFFD in place of each byte that makes it ill-formed UTF-8.
std::string plainText(std::string_view text);

}  // namespace quorin::foundation
