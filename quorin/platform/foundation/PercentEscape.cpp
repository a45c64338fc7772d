#include "quorin/platform/foundation/PercentEscape.hpp"

#include "quorin/platform/foundation/UTF8.hpp"

#include <cstring>

namespace quorin::foundation {
namespace {

/// The target has room for the worst of one piece at a time, and not of all the text.
constexpr std::size_t pieceSize = 256;

/// Yields whether the piece is ASCII. Every form is written whole, its size too, and the next one over what of it is
/// not text: no branch depends on a byte, and four bytes are one move.
bool appendPiece(std::string& target, std::string_view piece, const EscapeSet& set) {
    const std::size_t before = target.size();
    target.resize(before + 3 * piece.size() + 1);
    char* const begin = target.data() + before;
    char* end = begin;
    unsigned char bits = 0;
    for (const char c : piece) {
        const auto byte = static_cast<unsigned char>(c);
        const EscapeSet::Form& form = set[byte];
        std::memcpy(end, &form, sizeof form);
        end += form.size;
        bits |= byte;
    }
    target.resize(before + static_cast<std::size_t>(end - begin));
    return bits < 0x80;
}

}  // namespace

bool appendPercentEscaped(std::string& target, std::string_view text, const EscapeSet& set) {
    const std::size_t before = target.size();
    bool isASCII = true;
    for (std::size_t i = 0; i < text.size(); i += pieceSize)
        isASCII = appendPiece(target, text.substr(i, pieceSize), set) && isASCII;
    if (isASCII || isUTF8(text)) return true;
    target.resize(before);
    return false;
}

}  // namespace quorin::foundation
