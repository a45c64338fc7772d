#include "quorin/platform/foundation/SHA256.hpp"

#include <sodium.h>

#include <array>

namespace quorin::foundation {

std::string sha256Hex(std::string_view bytes) {
    std::array<unsigned char, crypto_hash_sha256_BYTES> digest{};
    const auto* const from = reinterpret_cast<const unsigned char*>(bytes.data());
    crypto_hash_sha256(digest.data(), from, bytes.size());
    std::string text(2 * digest.size() + 1, '\0');
    sodium_bin2hex(text.data(), text.size(), digest.data(), digest.size());
    text.pop_back();
    return text;
}

}  // namespace quorin::foundation
