#include "quorin/platform/morr/StoredValue.hpp"

#include <bit>
#include <cmath>

namespace quorin::morr {

StoredValue copyOf(const StoredValue& value) {
    return std::visit([](const auto& held) { return StoredValue(held); }, value);
}

bool isSame(const StoredValue& left, const StoredValue& right) {
    const auto* l = std::get_if<double>(&left);
    const auto* r = std::get_if<double>(&right);
    if (!l || !r) return left == right;
    if (std::isnan(*l) && std::isnan(*r)) return true;
    return std::bit_cast<std::uint64_t>(*l) == std::bit_cast<std::uint64_t>(*r);
}

}  // namespace quorin::morr
