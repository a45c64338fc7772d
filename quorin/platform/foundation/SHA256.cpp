#include "quorin/platform/foundation/SHA256.hpp"

#include <openssl/evp.h>

#include <new>

namespace quorin::foundation {

std::string sha256Hex(std::string_view bytes) {
    constexpr std::string_view digits = "0123456789abcdef";
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    // With an algorithm that is always there, only memory can be missing.
    if (EVP_Digest(bytes.data(), bytes.size(), digest, &length, EVP_sha256(), nullptr) != 1) throw std::bad_alloc();
    std::string text;
    text.reserve(std::size_t{2} * length);
    for (unsigned int i = 0; i < length; ++i) {
        text += digits[digest[i] >> 4];
        text += digits[digest[i] & 15];
    }
    return text;
}

}  // namespace quorin::foundation
