#include "quorin/platform/foundation/PercentEscape.hpp"

#include "quorin/platform/foundation/UTF8.hpp"

#include <cstring>

namespace quorin::foundation {
namespace {

bool isASCII(std::string_view text) {
    unsigned char bits = 0;
    for (const char c : text) bits |= static_cast<unsigned char>(c);
    return bits < 0x80;
}

/// Pieces are escaped on the stack, so that the target is made longer by no more than it needs.
constexpr std::size_t pieceSize = 256;

/// Every form is written whole, its size too, and the next one over what of it is not text: no branch depends on a
/// byte, and four bytes are one move.
void appendPiece(std::string& target, std::string_view piece, const EscapeSet& set) {
    std::array<char, 3 * pieceSize + 1> escaped;
    char* end = escaped.data();
    for (const char c : piece) {
        const EscapeSet::Form& form = set[static_cast<unsigned char>(c)];
        std::memcpy(end, &form, sizeof form);
        end += form.size;
    }
    target.append(escaped.data(), end);
}

}  // namespace

bool appendPercentEscaped(std::string& target, std::string_view text, const EscapeSet& set) {
    if (!isASCII(text) && !isUTF8(text)) return false;
    if (text.size() > pieceSize) target.reserve(target.size() + text.size());
    while (!text.empty()) {
        const std::string_view piece = text.substr(0, pieceSize);
        appendPiece(target, piece, set);
        text.remove_prefix(piece.size());
    }
    return true;
}

}  // namespace quorin::foundation
