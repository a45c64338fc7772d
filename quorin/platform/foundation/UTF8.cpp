#include "quorin/platform/foundation/UTF8.hpp"

#include <array>
#include <bit>

namespace quorin::foundation {
namespace {

/// The smallest code that may not be written in fewer bytes, by the size of its sequence.
constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};

}  // namespace

std::optional<Character> firstCharacter(std::string_view text) {
    if (text.empty()) return std::nullopt;
    const auto first = static_cast<unsigned char>(text[0]);
    if (first < 0x80) return Character{first, 1};
    const auto size = static_cast<std::size_t>(std::countl_one(first));
    if (size < 2 || size > 4 || text.size() < size) return std::nullopt;
    char32_t code = first & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) return std::nullopt;
        code = code << 6U | (byte & 0x3FU);
    }
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (code < least[size] || code > 0x10FFFF || isSurrogate) return std::nullopt;
    return Character{code, size};
}

bool isUTF8(std::string_view text) {
    while (!text.empty()) {
        const bool isASCII = static_cast<unsigned char>(text.front()) < 0x80;  // most often, and told at once
        const auto character = isASCII ? std::optional(Character()) : firstCharacter(text);
        if (!character) return false;
        text.remove_prefix(character->size);
    }
    return true;
}

}  // namespace quorin::foundation
