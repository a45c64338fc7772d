#include "quorin/platform/morr/UnchangingURI.hpp"

namespace quorin::morr {

std::string unchangingURI(const std::string& path) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '/' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            uri += c;
        } else {
            uri += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return uri + "?immutable=1";
}

}  // namespace quorin::morr
