#include "quorin/platform/foundation/PlainText.hpp"

#include "quorin/platform/foundation/UTF8.hpp"

namespace quorin::foundation {
namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";  // U+FFFD

bool isControl(char32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

}  // namespace

std::string plainText(std::string_view text) {
    std::string plain;
    while (!text.empty()) {
        const auto character = firstCharacter(text);
        const std::size_t size = character ? character->size : 1;
        if (!character)
            plain += replacement;
        else if (isControl(character->code))
            plain += ' ';
        else
            plain += text.substr(0, size);
        text.remove_prefix(size);
    }
    return plain;
}

}  // namespace quorin::foundation
