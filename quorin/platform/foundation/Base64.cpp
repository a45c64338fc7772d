#include "quorin/platform/foundation/Base64.hpp"

#include <openssl/evp.h>

#include <algorithm>
#include <cstddef>

namespace quorin::foundation {

std::string base64(std::string_view bytes) {
    constexpr std::size_t most = 3 << 20;  // in one call: the library counts in int, and groups of three stay whole
    std::string text((bytes.size() + 2) / 3 * 4 + 1, '\0');
    std::size_t written = 0;
    while (!bytes.empty()) {
        const auto part = bytes.substr(0, most);
        auto* const to = reinterpret_cast<unsigned char*>(text.data() + written);
        const auto* const from = reinterpret_cast<const unsigned char*>(part.data());
        written += static_cast<std::size_t>(EVP_EncodeBlock(to, from, static_cast<int>(part.size())));
        bytes.remove_prefix(part.size());
    }
    text.resize(written);
    return text;
}

}  // namespace quorin::foundation
