#include "quorin/platform/foundation/Base64.hpp"

#include <sodium.h>

namespace quorin::foundation {

std::string base64(std::string_view bytes) {
    constexpr int variant = sodium_base64_VARIANT_ORIGINAL;
    std::string text(sodium_base64_encoded_len(bytes.size(), variant), '\0');
    const auto* const from = reinterpret_cast<const unsigned char*>(bytes.data());
    sodium_bin2base64(text.data(), text.size(), from, bytes.size(), variant);
    text.pop_back();
    return text;
}

}  // namespace quorin::foundation
