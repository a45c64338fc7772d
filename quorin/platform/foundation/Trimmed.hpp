#pragma once

#include <string_view>

namespace quorin::foundation {

/// The text without the blanks and tabs at both ends: the optional white space of RFC 9110 section 5.6.3.
constexpr std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    return first == text.npos ? std::string_view() : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

}  // namespace quorin::foundation
