#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorin::foundation {

/// A Unicode scalar value and the bytes that it takes in UTF-8.
struct Character {
    char32_t code = 0;
    std::size_t size = 1;

    bool operator==(const Character&) const = default;
};

/// The character that `text` begins with, or empty where its first bytes are not well-formed UTF-8 (RFC 3629 section 4:
/// no overlong form, no surrogate, nothing beyond U+10FFFF) and where it is empty.
std::optional<Character> firstCharacter(std::string_view text);

/// True for text of such characters only.
bool isUTF8(std::string_view text);

}  // namespace quorin::foundation
