#include "quorin/platform/skell/XMLCharacters.hpp"

#include "quorin/platform/foundation/UTF8.hpp"

#include <algorithm>
#include <array>
#include <span>

namespace quorin::skell {
namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Sorted, as in XML 1.0 section 2.3.
constexpr std::array<Range, 15> nameBegins{{{'A', 'Z'},
                                            {'_', '_'},
                                            {'a', 'z'},
                                            {0xC0, 0xD6},
                                            {0xD8, 0xF6},
                                            {0xF8, 0x2FF},
                                            {0x370, 0x37D},
                                            {0x37F, 0x1FFF},
                                            {0x200C, 0x200D},
                                            {0x2070, 0x218F},
                                            {0x2C00, 0x2FEF},
                                            {0x3001, 0xD7FF},
                                            {0xF900, 0xFDCF},
                                            {0xFDF0, 0xFFFD},
                                            {0x10000, 0xEFFFF}}};
constexpr std::array<Range, 5> nameGoesOn{{{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}}};

bool isIn(std::span<const Range> ranges, char32_t code) {
    return std::any_of(ranges.begin(), ranges.end(),
                       [&](const Range& range) { return code >= range.first && code <= range.last; });
}

bool isKnown(char32_t code) {
    const bool isControl = code < ' ' && code != '\t' && code != '\n' && code != '\r';
    return !isControl && code != 0xFFFE && code != 0xFFFF;
}

}  // namespace

bool isXMLName(std::string_view text) {
    bool isFirst = true;
    for (std::string_view rest = text; !rest.empty(); isFirst = false) {
        const auto character = foundation::firstCharacter(rest);
        if (!character) return false;
        if (!isIn(nameBegins, character->code) && (isFirst || !isIn(nameGoesOn, character->code))) return false;
        rest.remove_prefix(character->size);
    }
    return !isFirst;
}

std::string xmlText(std::string_view text) {
    std::string known;
    known.reserve(text.size());
    while (!text.empty()) {
        const auto character = foundation::firstCharacter(text);
        const std::size_t size = character ? character->size : 1;
        known += character && isKnown(character->code) ? text.substr(0, size) : std::string_view("\xEF\xBF\xBD");
        text.remove_prefix(size);
    }
    return known;
}

}  // namespace quorin::skell
