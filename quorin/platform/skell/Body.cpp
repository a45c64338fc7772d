#include "quorin/platform/skell/Body.hpp"

#include "quorin/platform/json/Parse.hpp"

#include <algorithm>

namespace quorin::skell {

// Memory that is reserved and never written to costs nothing; but a server may announce any number.
void Body::expect(std::size_t size) {
    static constexpr std::size_t trusted = 64 * 1024 * 1024;
    if (size <= limit_) bytes_.reserve(std::min(size, trusted) + json::parsePadding);
}

bool Body::append(std::string_view bytes) {
    if (bytes.size() > limit_ - bytes_.size()) return false;
    bytes_.append(bytes);
    return true;
}

}  // namespace quorin::skell
