#pragma once

#include <string>
#include <string_view>

namespace quorin::skell {

/// True for a Name of XML 1.0 (fifth edition, section 2.3) without a colon.
bool isXMLName(std::string_view text);

/// `text` with U+FFFD in place of every byte that is not UTF-8 and every character that XML 1.0 (section 2.2) does not
/// know: U+FFFE, U+FFFF, and all control characters below the blank but tab, LF and CR. Nothing is escaped.
std::string xmlText(std::string_view text);

}  // namespace quorin::skell
