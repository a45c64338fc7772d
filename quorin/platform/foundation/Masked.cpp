#include "quorin/platform/foundation/Masked.hpp"

namespace quorin::foundation {
namespace {

/// Bytes of the first `count` characters of UTF-8 text; those of all of it when there are no more.
std::size_t bytesOf(std::string_view text, std::size_t count) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool begins = (static_cast<unsigned char>(text[i]) & 0xC0U) != 0x80U;
        if (begins && count-- == 0) return i;
    }
    return text.size();
}

}  // namespace

std::string masked(std::string_view secret) {
    const bool isShort = bytesOf(secret, 5) == secret.size();
    return std::string(secret.substr(0, isShort ? 0 : bytesOf(secret, 4))) + "…";
}

}  // namespace quorin::foundation
